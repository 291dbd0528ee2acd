// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Id3v2Tag.h"
#include "media/tags/Outcome.h"

#include <optional>

namespace tags {

/// The reason not to give `tag` to a library that inflates whatever it finds and enters
/// whatever is nested: more than 16 MiB of inflated frames, chapters within chapters without
/// end, hundreds of thousands of frames or of synchronised texts. Null when it is harmless. Costs at most as
/// much as inflating 16 MiB.
[[nodiscard]] std::optional<Failure> hostileTag(const Id3v2Tag &tag);

} // namespace tags
