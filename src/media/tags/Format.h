// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/Outcome.h"

namespace tags {

class ByteSource;

/// What `source` is, by its content alone.
[[nodiscard]] Outcome<Format> detectFormat(const ByteSource &source);

} // namespace tags
