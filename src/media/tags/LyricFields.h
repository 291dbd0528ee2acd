// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// One place in a file's tags that holds a lyric.
struct LyricField
{
    std::string name; ///< as the format spells it: "USLT", "LYRICS", "©lyr" (UTF-8)
    std::string language; ///< three letters of ISO 639-2, or empty where the format has none
    std::string description; ///< the frame's own, UTF-8; empty where the format has none
    std::string text; ///< UTF-8, the bytes as stored; never a terminating NUL

    friend bool operator==(const LyricField &, const LyricField &) = default;
};

/// Whether some line of `lyric` begins with a time tag, `[mm:ss` or one of its longer forms.
/// Cost: linear, and it stops at the first one.
[[nodiscard]] bool holdsTimeTags(std::string_view lyric);

/// The field that is *the* lyric of a file: the first one that holds time tags, if any does;
/// otherwise the first one that holds text. Null when there is none.
///
/// `fields` are in the order in which the format prefers them. This is the only place that
/// decides it, for reading and for writing.
[[nodiscard]] std::optional<std::size_t> lyricFieldIndex(const std::vector<LyricField> &fields);

} // namespace tags
