// SPDX-License-Identifier: MIT
#pragma once

#include "kit/RowSelection.h"
#include "lyrics/RBSongLine.h"

#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class RBEditSong;

/// What the commands do to a document, as functions of the document and the selection: without a table and
/// without a controller. Rows are from 0; times in milliseconds.
namespace editor {

class SongChanges;

/// Makes `line` the tag line `key` ("ti", "ar", "al", "by"): its times go, its text is the value.
void makeTagLine(RBSongLine &line, std::string_view key);
/// Takes all times and the tag key off `line`; its text stays.
void untag(RBSongLine &line);
/// Makes `line` a timed line with one time more, after those it has. `millis` from the start.
void stamp(RBSongLine &line, std::int64_t millis);

/// What of the table the commands go by.
struct LineSelection
{
    /// The row added last; −1 for none.
    int selectedRow = -1;
    kit::RowRanges rows;

    /// The highest selected row; −1 for none.
    [[nodiscard]] int lastRow() const { return rows.empty() ? -1 : rows.back().last; }
};

/// The words of `line` before and behind a place or a selection in its cell, whose shown form is `before` and
/// `after`: the bytes themselves, also of what cannot be shown.
struct WordsAround
{
    std::string head;
    std::string tail;
};
[[nodiscard]] WordsAround wordsAround(const RBSongLine &line, const QString &before, const QString &after);
/// An untimed line with those of the words of `line`, and their stamps, that `words` has.
[[nodiscard]] RBSongLine lineOfWords(const RBSongLine &line, std::string_view words);

/// Null for a row that names no line.
[[nodiscard]] const RBSongLine *lineAt(const RBEditSong &song, int row);

// Each of these says whether there was a line to do it to.

/// A line without text above the selected one, 200 ms earlier but not below 0; untimed as that one is.
bool insertBefore(SongChanges &changes, const LineSelection &selection);
/// A line without text below the last selected row, 200 ms after the selected line.
bool insertAfter(SongChanges &changes, const LineSelection &selection);
/// The selected line once more, below the last selected row.
bool duplicate(SongChanges &changes, const LineSelection &selection);
/// Copies of `copied` below the last selected row; where the line there is timed, each has one time, 200 ms
/// after the one before.
bool paste(SongChanges &changes, const LineSelection &selection, std::span<const RBSongLine> copied);
/// Independent copies of the selected lines, in the document's order.
[[nodiscard]] std::vector<RBSongLine> copyOf(const RBEditSong &song, const kit::RowRanges &rows);

/// Moves each run of selected lines up or down by one row, until it meets the end of the document. The rows
/// on which the lines are afterwards; nothing when none of them moved.
[[nodiscard]] std::optional<kit::RowRanges> moveUp(SongChanges &changes, const kit::RowRanges &rows);
[[nodiscard]] std::optional<kit::RowRanges> moveDown(SongChanges &changes, const kit::RowRanges &rows);

/// Makes one line of the selected ones that stand together from the first one on, or of the selected one and
/// the next. It keeps the times of the first of them that has any; a tag line takes the words and no times.
/// The row of the line; nothing when there is nothing to merge.
[[nodiscard]] std::optional<int> merge(SongChanges &changes, const kit::RowRanges &rows);
/// Ends the line at `row` before the place where the shown text `before` ends; what stands after `after`
/// begins goes into an untimed line below.
bool split(SongChanges &changes, int row, const QString &before, const QString &after);

} // namespace editor
