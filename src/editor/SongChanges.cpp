// SPDX-License-Identifier: MIT
#include "editor/SongChanges.h"

#include "lyrics/WordStamps.h"

#include <algorithm>

namespace editor {

namespace {

// How many times of `line` moving by `millis` would bring below 0.
std::size_t timesBelowZero(const RBSongLine &line, std::int64_t millis)
{
    const auto &times = line.aryTimes();
    return static_cast<std::size_t>(std::count_if(
        times.begin(), times.end(), [millis](std::int64_t time) { return time >= 0 && millis < -time; }));
}

} // namespace

void SongChanges::insert(std::size_t row, std::vector<RBSongLine> lines)
{
    splice(std::min(row, m_song.aryLines().size()), 0, std::move(lines));
}

void SongChanges::insert(std::size_t row, RBSongLine line)
{
    row = std::min(row, m_song.aryLines().size());
    m_song.insertLine_atIndex(std::move(line), row);
    m_deltas.emplace_back(LinesSpliced{row, 1, {}});
}

void SongChanges::splice(std::size_t row, std::size_t count, std::vector<RBSongLine> lines)
{
    if (count == 0 && lines.empty()) {
        return;
    }
    SongDelta delta = LinesSpliced{row, count, std::move(lines)};
    toggle(delta, m_song);
    m_deltas.push_back(std::move(delta));
}

void SongChanges::remove(const kit::RowRanges &rows)
{
    const kit::RowRanges present = within(rows);
    if (present.empty()) {
        return;
    }
    SongDelta delta = LinesTakenOut{kit::rowIndexes(present), {}, m_song.aryLines().size()};
    toggle(delta, m_song);
    m_deltas.push_back(std::move(delta));
}

void SongChanges::removeAll()
{
    splice(0, m_song.aryLines().size(), {});
}

void SongChanges::rotate(std::size_t first, std::size_t middle, std::size_t last)
{
    if (first >= middle || middle >= last || last > m_song.aryLines().size()) {
        return;
    }
    // Told as its own opposite, and then taken back.
    SongDelta delta = LinesRotated{first, middle, last};
    toggle(delta, m_song);
    m_deltas.push_back(std::move(delta));
}

std::size_t SongChanges::shift(const kit::RowRanges &rows, std::int64_t millis)
{
    if (millis == 0) {
        return 0;
    }
    TimesShifted delta{within(rows), millis, {}, false};
    std::size_t belowZero = 0;
    bool hasTimes = false;
    const auto &lines = std::as_const(m_song).aryLines();
    for (const kit::RowRange &range : delta.rows) {
        for (auto row = static_cast<std::size_t>(range.first); row <= static_cast<std::size_t>(range.last);
             ++row) {
            if (!lines[row].isProperty()) {
                if (lyrics::isShiftCut(lines[row], millis)) {
                    delta.cuts.push_back({row, lines[row]});
                    belowZero += timesBelowZero(lines[row], millis);
                }
                hasTimes = hasTimes || !lines[row].aryTimes().empty() || lyrics::hasWordStamps(lines[row]);
            }
        }
    }
    if (hasTimes) {
        SongDelta change = std::move(delta);
        toggle(change, m_song);
        m_deltas.push_back(std::move(change));
    }
    return belowZero;
}

void SongChanges::replace(RBEditSong song)
{
    m_song.updateSongText();
    song.updateSongText();
    if (m_song.songText() == song.songText()) {
        return;
    }
    SongDelta delta = SongReplaced{std::move(song)};
    toggle(delta, m_song);
    m_deltas.push_back(std::move(delta));
}

kit::RowRanges SongChanges::allRows() const
{
    const auto count = static_cast<int>(m_song.aryLines().size());
    return count == 0 ? kit::RowRanges() : kit::RowRanges{{0, count - 1}};
}

bool SongChanges::keep(LinesChanged &&delta)
{
    if (delta.rows.empty()) {
        return false;
    }
    m_deltas.emplace_back(std::move(delta));
    return true;
}

kit::RowRanges SongChanges::within(const kit::RowRanges &rows) const
{
    const auto count = static_cast<int>(m_song.aryLines().size());
    kit::RowRanges present;
    for (const kit::RowRange &range : rows) {
        const kit::RowRange part{std::max(range.first, 0), std::min(range.last, count - 1)};
        if (part.first <= part.last) {
            present.push_back(part);
        }
    }
    return present;
}

} // namespace editor
