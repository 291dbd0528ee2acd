// SPDX-License-Identifier: MIT
#include "editor/SungLine.h"

#include "lyrics/RBEditSong.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace editor {

int SungLine::rowAt(std::int64_t millis)
{
    if (!m_isValid) {
        build();
        m_isValid = true;
    }
    const auto after
        = std::upper_bound(m_onsets.begin(), m_onsets.end(), Onset{millis, std::numeric_limits<int>::max()});
    return after == m_onsets.begin() ? -1 : std::prev(after)->row;
}

void SungLine::build()
{
    m_onsets.clear();
    int row = 0;
    for (const RBSongLine &line : m_song.aryLines()) {
        if (!line.isProperty()) {
            for (const std::int64_t time : line.aryTimes()) {
                m_onsets.push_back({time, row});
            }
        }
        ++row;
    }
    // Most lyrics are in order already, and then there is nothing to do.
    if (!std::is_sorted(m_onsets.begin(), m_onsets.end())) {
        std::sort(m_onsets.begin(), m_onsets.end());
    }
}

} // namespace editor
