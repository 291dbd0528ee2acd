// SPDX-License-Identifier: MIT
#include "editor/PhysicalLines.h"

#include "lyrics/RBEditSong.h"

#include <algorithm>

namespace editor {

PhysicalLines::PhysicalLines(const RBEditSong &song)
    : m_starts(song.physicalLineStarts()), m_rows(song.aryLines().size())
{ }

int PhysicalLines::rowOfLine(int line) const
{
    const auto at = static_cast<std::size_t>(std::max(line, 0));
    return static_cast<int>(at < m_starts.size() ? m_starts[at] : m_rows);
}

int PhysicalLines::lineOfRow(int row) const
{
    const auto at = static_cast<std::size_t>(std::max(row, 0));
    if (at >= m_rows) {
        return static_cast<int>(m_starts.size());
    }
    const auto behind = std::upper_bound(m_starts.begin(), m_starts.end(), at);
    return static_cast<int>(behind - m_starts.begin()) - 1;
}

} // namespace editor
