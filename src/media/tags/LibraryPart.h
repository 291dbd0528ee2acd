// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/Patch.h"

namespace tags {

class ByteSource;

/// The edit that takes out of the sight of TagLib what it is not to see of a file of `format`: what would
/// exhaust it, and what would keep it from finding a tag that is there.
[[nodiscard]] Edit hiddenFromLibrary(const ByteSource &source, Format format);

} // namespace tags
