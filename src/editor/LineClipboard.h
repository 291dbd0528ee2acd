// SPDX-License-Identifier: MIT
#pragma once

#include "editor/LineCommands.h"

#include <QtCore/QString>

#include <optional>
#include <span>
#include <vector>

namespace editor {

/// The lines as LRC text for other programs; what is no text becomes a replacement mark.
[[nodiscard]] QString lrcTextOf(std::span<const RBSongLine> lines);

/// The lines of a text from elsewhere: plain words, one line each, or LRC with its times and tags.
///
/// They belong to no text yet, so that they get the line ends of the document that they go into. Blank lines
/// between verses are lines; a text of nothing but blanks has none.
[[nodiscard]] std::vector<RBSongLine> linesOfText(const QString &text);

/// The same words, times and tag as a line of no text: it gets the line end of the document that it goes
/// into.
[[nodiscard]] RBSongLine withoutSpelling(const RBSongLine &line);

/// Puts the lines of `text` below the last selected row, at the end when nothing is selected, or in the place
/// of the selected line when that is untimed and empty. The rows on which they are; nothing when `text` has
/// none.
[[nodiscard]] std::optional<kit::RowRange> pasteText(
    SongChanges &changes, const LineSelection &selection, const QString &text);
/// The same before the line at `row`, wherever the selection is.
[[nodiscard]] std::optional<kit::RowRange> insertText(SongChanges &changes, int row, const QString &text);

/// Puts a text of several lines where one stands: its first line continues `before`, `after` continues its
/// last, and the line at `row` keeps its times. A text with times of its own goes below the line, or in its
/// place when that is empty. The rows that hold it; nothing when there is no such line.
[[nodiscard]] std::optional<kit::RowRange> pasteIntoText(
    SongChanges &changes, int row, const QString &before, const QString &after, const QString &text);

} // namespace editor
