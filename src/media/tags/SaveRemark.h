// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/FieldEdits.h"
#include "media/tags/Message.h"

#include <vector>

namespace tags {

class ByteSource;

/// What deserves a word about a file that becomes `edited`: that other programs may not find its title any
/// more, or that another of its `fields`, which were those before `edits`, is stale now.
[[nodiscard]] Message remarkOn(const ByteSource &old, const ByteSource &edited, Format format,
    const std::vector<LyricField> &fields, const std::vector<FieldEdit> &edits);

} // namespace tags
