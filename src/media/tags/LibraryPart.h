// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Container.h"

#include <optional>

namespace tags {

class ByteSource;

/// The stretch of a file of `format` that TagLib is not to see, if there is one: what would exhaust it, and
/// what would keep it from finding a tag that is there.
[[nodiscard]] std::optional<Range> hiddenFromLibrary(const ByteSource &source, Format format);

} // namespace tags
