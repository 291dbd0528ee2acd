// SPDX-License-Identifier: MIT
#include "editor/SongDelta.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace editor {

namespace {

using Lines = std::vector<RBSongLine>;

Lines::iterator at(Lines &lines, std::size_t row)
{
    return lines.begin() + static_cast<std::ptrdiff_t>(row);
}

bool areRowsOf(const std::vector<std::size_t> &rows, std::size_t count)
{
    return rows.empty() || rows.back() < count;
}

struct Fits
{
    const Lines &lines;

    bool operator()(const LinesSpliced &delta) const
    {
        return delta.row <= lines.size() && delta.count <= lines.size() - delta.row;
    }
    bool operator()(const LinesChanged &delta) const
    {
        return delta.rows.size() == delta.lines.size() && areRowsOf(delta.rows, lines.size());
    }
    bool operator()(const LinesTakenOut &delta) const
    {
        return lines.size() == delta.lineCount - delta.lines.size() && areRowsOf(delta.rows, delta.lineCount);
    }
    bool operator()(const LinesRotated &delta) const { return delta.last <= lines.size(); }
    bool operator()(const TimesShifted &delta) const
    {
        const bool hasRows
            = delta.rows.empty() || static_cast<std::size_t>(delta.rows.back().last) < lines.size();
        return hasRows
            && std::all_of(delta.cuts.begin(), delta.cuts.end(),
                [this](const TimesShifted::Cut &cut) { return cut.row < lines.size(); });
    }
    bool operator()(const SongReplaced & /*delta*/) const { return true; }
};

Lines takenOut(Lines &lines, std::size_t row, std::size_t count)
{
    const auto first = at(lines, row);
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    Lines taken(std::make_move_iterator(first), std::make_move_iterator(last));
    lines.erase(first, last);
    return taken;
}

// Puts each of `returning` at its row of `rows` in one pass from the end, each line moved once.
void putBack(Lines &lines, const std::vector<std::size_t> &rows, Lines &returning)
{
    std::size_t from = lines.size();
    lines.resize(lines.size() + returning.size());
    std::size_t left = returning.size();
    for (std::size_t to = lines.size(); left > 0 && to > 0; --to) {
        if (rows[left - 1] == to - 1) {
            lines[to - 1] = std::move(returning[--left]);
        } else {
            lines[to - 1] = std::move(lines[--from]);
        }
    }
    returning.clear();
}

Lines movedFrom(Lines &lines, const std::vector<std::size_t> &rows)
{
    Lines moved;
    moved.reserve(rows.size());
    for (const std::size_t row : rows) {
        moved.push_back(std::move(lines[row]));
    }
    return moved;
}

struct Toggle
{
    RBEditSong &song;

    void operator()(LinesSpliced &delta) const
    {
        auto &lines = song.aryLines();
        Lines taken = takenOut(lines, delta.row, delta.count);
        delta.count = delta.lines.size();
        lines.insert(at(lines, delta.row), std::make_move_iterator(delta.lines.begin()),
            std::make_move_iterator(delta.lines.end()));
        delta.lines = std::move(taken);
    }
    void operator()(LinesChanged &delta) const
    {
        auto &lines = song.aryLines();
        for (std::size_t i = 0; i < delta.rows.size(); ++i) {
            std::swap(lines[delta.rows[i]], delta.lines[i]);
        }
    }
    void operator()(LinesTakenOut &delta) const
    {
        if (delta.lines.empty()) {
            delta.lines = movedFrom(song.aryLines(), delta.rows);
            song.deleteLineAtIndexs(delta.rows);
        } else {
            putBack(song.aryLines(), delta.rows, delta.lines);
        }
    }
    void operator()(LinesRotated &delta) const
    {
        auto &lines = song.aryLines();
        std::rotate(at(lines, delta.first), at(lines, delta.middle), at(lines, delta.last));
        delta.middle = delta.first + (delta.last - delta.middle);
    }
    void operator()(TimesShifted &delta) const
    {
        auto &lines = song.aryLines();
        for (const kit::RowRange &range : delta.rows) {
            for (int row = range.first; row <= range.last; ++row) {
                if (RBSongLine &line = lines[static_cast<std::size_t>(row)]; !line.isProperty()) {
                    delta.isDone ? line.shiftBack(delta.millis) : line.shiftAllTime(delta.millis);
                }
            }
        }
        if (delta.isDone) {
            for (const TimesShifted::Cut &cut : delta.cuts) {
                lines[cut.row] = cut.line;
            }
        }
        delta.isDone = !delta.isDone;
    }
    void operator()(SongReplaced &delta) const
    {
        RBEditSong other = std::move(delta.song);
        delta.song = std::move(song);
        song = std::move(other);
    }
};

} // namespace

bool fits(const SongDelta &delta, const RBEditSong &song)
{
    return std::visit(Fits{song.aryLines()}, delta);
}

void toggle(SongDelta &delta, RBEditSong &song)
{
    std::visit(Toggle{song}, delta);
}

} // namespace editor
