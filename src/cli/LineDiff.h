// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// A run of lines that differ: from `leftBegin` to before `leftEnd` stands in the left text what from
/// `rightBegin` to before `rightEnd` stands in the right one; either may be empty.
struct DiffBlock
{
    std::size_t leftBegin = 0;
    std::size_t leftEnd = 0;
    std::size_t rightBegin = 0;
    std::size_t rightEnd = 0;

    friend bool operator==(const DiffBlock &, const DiffBlock &) = default;
};

/// Where two texts differ, with the fewest lines that can be; texts that share little are one block.
/// Cost: linear for what is the same at both ends; at most some millions of comparisons between.
[[nodiscard]] std::vector<DiffBlock> diffLines(
    std::span<const std::string_view> left, std::span<const std::string_view> right);

/// The physical lines of a text, with their line ends.
[[nodiscard]] std::vector<std::string_view> physicalLines(std::string_view text);

/// The changes between two texts for people: what goes with a minus, what comes with a plus, under the number
/// of the line. Line ends are named where they alone make the difference.
[[nodiscard]] std::string changesShown(std::string_view before, std::string_view after, bool inColor);

/// How many lines of `before` go or change, or come where none was.
[[nodiscard]] std::size_t countChanges(std::span<const DiffBlock> blocks);

} // namespace cli
