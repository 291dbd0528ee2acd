// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace views {

/// The heights of the lines of a text that stand one below the other, and so where each begins.
///
/// Lines count from 0; heights are in logical pixels, never below 1.
class LineHeights
{
public:
    /// `count` lines, each `height` high. Cost: linear, and nothing but the writing of one array.
    void reset(int count, int height);

    [[nodiscard]] int count() const { return m_count; }
    /// Where line `line` begins; for `count()` where the last one ends. Cost: log n, as for all below.
    [[nodiscard]] int top(int line) const;
    [[nodiscard]] int height(int line) const { return top(line + 1) - top(line); }
    [[nodiscard]] int total() const { return top(m_count); }
    void setHeight(int line, int height);
    /// The line at `y`: the first one above the text, the last one below it. −1 without lines.
    [[nodiscard]] int lineAt(int y) const;

private:
    int m_count = 0;
    int m_highestStep = 0;
    // A binary indexed tree: each place holds the sum of as many heights as its lowest bit says.
    std::vector<int> m_sums;
};

} // namespace views
