// SPDX-License-Identifier: MIT
#pragma once

#include "kit/RowSelection.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

/// What was done to a document, kept so that it can be taken back and done again.
///
/// Each kind holds what the document does not hold at the moment and nothing else: taking it back swaps
/// the two. A line is kept as it was, with the bytes that it was read from.
namespace editor {

/// `count` lines from `row` on stand where `lines` stood.
struct LinesSpliced
{
    std::size_t row = 0;
    std::size_t count = 0;
    std::vector<RBSongLine> lines;
};

/// Each line of `rows` (ascending) was changed in its place; `lines` are as many, as they were.
struct LinesChanged
{
    std::vector<std::size_t> rows;
    std::vector<RBSongLine> lines;
};

/// The lines at `rows` (ascending, rows of the document that has them) are out, kept in `lines`; or, when
/// that is empty, in.
struct LinesTakenOut
{
    std::vector<std::size_t> rows;
    std::vector<RBSongLine> lines;
    /// Of the document that has them.
    std::size_t lineCount = 0;
};

/// The lines from `first` up to `middle` changed places with those from there up to `last`.
struct LinesRotated
{
    std::size_t first = 0;
    std::size_t middle = 0;
    std::size_t last = 0;
};

/// Every time of the lines in `rows` that are no tag lines was moved by `millis`.
struct TimesShifted
{
    /// A line that did not move by the whole amount, as it was.
    struct Cut
    {
        std::size_t row = 0;
        RBSongLine line;
    };

    kit::RowRanges rows;
    std::int64_t millis = 0;
    std::vector<Cut> cuts;
    bool isDone = true;
};

/// Another document stood here.
struct SongReplaced
{
    RBEditSong song;
};

using SongDelta
    = std::variant<LinesSpliced, LinesChanged, LinesTakenOut, LinesRotated, TimesShifted, SongReplaced>;

/// Whether `song` still has the lines that `delta` speaks of. The lines are handed out by reference, and may
/// have been changed by somebody who keeps no history.
[[nodiscard]] bool fits(const SongDelta &delta, const RBEditSong &song);

/// Takes `delta` back, or does it again: `delta` becomes its own opposite. Only for what fits.
void toggle(SongDelta &delta, RBEditSong &song);

} // namespace editor
