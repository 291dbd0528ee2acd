// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SongDelta.h"
#include "kit/RowSelection.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace editor {

/// Changes a document and remembers how to take each change back.
///
/// All changes of the line editor go through here. What changes nothing leaves nothing behind.
/// Rows are from 0; rows that no line has are ignored.
class SongChanges
{
public:
    /// `song` must outlive this.
    explicit SongChanges(RBEditSong &song) : m_song(song) { }

    [[nodiscard]] const RBEditSong &song() const { return m_song; }

    /// Puts `lines` before the line at `row`; past the end counts as the end.
    void insert(std::size_t row, std::vector<RBSongLine> lines);
    void insert(std::size_t row, RBSongLine line);
    void remove(const kit::RowRanges &rows);
    void removeAll();
    /// Puts `lines` where `count` lines from `row` on stand.
    void splice(std::size_t row, std::size_t count, std::vector<RBSongLine> lines);
    /// Runs `edit` on the line at `row`. True when the line is another one afterwards.
    template <class Edit>
    bool change(std::size_t row, Edit &&edit)
    {
        if (row >= m_song.aryLines().size()) {
            return false;
        }
        LinesChanged delta;
        changeInto(delta, row, edit);
        return keep(std::move(delta));
    }
    /// Runs `edit` on every line of `rows`.
    template <class Edit>
    void changeEach(const kit::RowRanges &rows, Edit &&edit)
    {
        LinesChanged delta;
        for (const kit::RowRange &range : within(rows)) {
            for (int row = range.first; row <= range.last; ++row) {
                changeInto(delta, static_cast<std::size_t>(row), edit);
            }
        }
        keep(std::move(delta));
    }
    /// Moves the lines from `first` up to `middle` behind those from there up to `last`.
    void rotate(std::size_t first, std::size_t middle, std::size_t last);
    /// Moves every time of the lines in `rows` that are no tag lines, later for a positive amount.
    /// Returns how many times would have fallen below 0 and are 0 now.
    std::size_t shift(const kit::RowRanges &rows, std::int64_t millis);
    /// Puts `song` in the document's place, which is moved, not copied. The same text is no change.
    void replace(RBEditSong song);

    /// All rows of the document.
    [[nodiscard]] kit::RowRanges allRows() const;
    [[nodiscard]] bool isEmpty() const { return m_deltas.empty(); }
    /// What was done since the last call, in order.
    [[nodiscard]] std::vector<SongDelta> take() { return std::exchange(m_deltas, {}); }
    /// Forgets what was done, not what it did.
    void forget() { m_deltas.clear(); }

private:
    template <class Edit>
    void changeInto(LinesChanged &delta, std::size_t row, Edit &edit)
    {
        RBSongLine &line = m_song.aryLines()[row];
        RBSongLine before = line;
        edit(line);
        if (!isSame(line, before)) {
            delta.rows.push_back(row);
            delta.lines.push_back(std::move(before));
        } else {
            line = std::move(before);
        }
    }
    /// Also in what a tag line holds and does not write.
    [[nodiscard]] static bool isSame(const RBSongLine &a, const RBSongLine &b)
    {
        return a == b && a.aryTimes() == b.aryTimes() && a.isProperty() == b.isProperty();
    }
    bool keep(LinesChanged &&delta);
    [[nodiscard]] kit::RowRanges within(const kit::RowRanges &rows) const;

    RBEditSong &m_song;
    std::vector<SongDelta> m_deltas;
};

} // namespace editor
