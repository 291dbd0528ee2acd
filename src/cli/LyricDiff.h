// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace cli {

/// One place where two lyrics differ. Rows are from 0.
struct LyricDifference
{
    enum class Kind {
        OnlyLeft,
        OnlyRight,
        Times, ///< the same words at other times
        Words, ///< other words at the same times
        Both, ///< other words at other times, in the same place
        Tag, ///< one tag, two values
        Stamps ///< the same words and times, other word stamps
    };

    Kind kind = Kind::OnlyLeft;
    std::optional<std::size_t> left;
    std::optional<std::size_t> right;

    friend bool operator==(const LyricDifference &, const LyricDifference &) = default;
};

/// "only-left", "only-right", "times", "words", "words-and-times", "tag", "word-stamps".
[[nodiscard]] std::string_view nameOf(LyricDifference::Kind kind);

/// Where two lyrics differ in what they say, in order: words, times, tags. Neither the spelling of times nor
/// line ends nor blanks round texts count.
[[nodiscard]] std::vector<LyricDifference> differences(const RBEditSong &left, const RBEditSong &right);

/// How far every time has moved, when the lyrics differ in nothing but that.
[[nodiscard]] std::optional<std::int64_t> commonShift(
    const RBEditSong &left, const RBEditSong &right, const std::vector<LyricDifference> &found);

} // namespace cli
