// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"

#include <optional>
#include <string_view>

namespace cli {

/// The key and the value of a tag line. Valid until the line changes.
struct TagView
{
    /// "ti", "ar", "al", "by"; the key of any other tag as it is spelled.
    std::string_view key;
    /// Without the blanks round it.
    std::string_view value;
};

/// What the tag line `line` says, other ID tags included; absent for every other line.
[[nodiscard]] std::optional<TagView> tagOf(const RBSongLine &line);

} // namespace cli
