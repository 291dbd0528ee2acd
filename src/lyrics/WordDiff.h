// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace lyrics {

/// A part of one text in whose place a part of another stands. Bytes; either side may be empty.
struct Replacement
{
    std::size_t oldBegin = 0;
    std::size_t oldEnd = 0;
    std::size_t newBegin = 0;
    std::size_t newEnd = 0;
};

/// What is to be replaced in `before` to make it `after`: ascending, with something the same between any two.
/// Words that are the same stay, in as long a row as can be; the runs of blanks between them count less. A
/// word is what stands between blanks, and each character from U+2E80 up (ideographs, kana). Cost: linear,
/// and at most a million comparisons; where more words than that would have to be compared, all of them are
/// one replacement.
[[nodiscard]] std::vector<Replacement> wordDiff(std::string_view before, std::string_view after);

/// The lengths of the common beginning and end of two texts, which do not overlap and tear no character
/// apart.
struct CommonEnds
{
    std::size_t prefix = 0;
    std::size_t suffix = 0;
};

[[nodiscard]] CommonEnds commonEnds(std::string_view before, std::string_view after);

/// Where the words of `text` begin, without its blanks.
[[nodiscard]] std::vector<std::string_view> wordsIn(std::string_view text);

} // namespace lyrics
