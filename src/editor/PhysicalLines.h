// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

class RBEditSong;

namespace editor {

/// The way between the rows of the table and the physical lines of the text that is written of them.
///
/// Several ID tags on one physical line are several rows. Holds for the document as it was when this was
/// made, at the cost of `RBEditSong::physicalLineStarts`.
class PhysicalLines
{
public:
    explicit PhysicalLines(const RBEditSong &song);

    /// The first row on a physical line, both from 0; the number of rows for the line behind the last, which
    /// the source view shows after a last line end, and for what is further.
    [[nodiscard]] int rowOfLine(int line) const;
    /// The physical line that a row stands on, both from 0; the number of lines for a row behind the last.
    [[nodiscard]] int lineOfRow(int row) const;

private:
    std::vector<std::size_t> m_starts;
    std::size_t m_rows;
};

} // namespace editor
