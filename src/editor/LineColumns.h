// SPDX-License-Identifier: MIT
#pragma once

#include "kit/TableDataSource.h"

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class RBEditSong;
class RBSongLine;

/// The columns of the line table as a function of the document: "number", "time1" … "timeN" with
/// N the largest number of time tags on one line, and "text", always last.
namespace editor {

/// N: one pass over the lines.
[[nodiscard]] std::size_t timeColumnCount(const RBEditSong &song);

[[nodiscard]] kit::TableColumn numberColumn();
/// The columns after "number" for `timeColumns` time columns.
[[nodiscard]] std::vector<kit::TableColumn> columnsAfterNumber(std::size_t timeColumns);
[[nodiscard]] QString textColumnIdentifier();
[[nodiscard]] QString numberColumnIdentifier();

[[nodiscard]] bool isTimeColumn(QStringView identifier);
/// Index from 0 of a time column's times: "time12" gives 11. Nothing for what cannot name one.
[[nodiscard]] std::optional<std::size_t> timeIndex(QStringView identifier);

/// A tag line's value, otherwise the line's text with its word stamps.
[[nodiscard]] std::string_view shownText(const RBSongLine &line);
/// What the text column shows of a line: a tag line's value, otherwise the line's words without stamps.
[[nodiscard]] std::string shownWords(const RBSongLine &line);
/// The user's edit of `shownWords`, as the cell has it. A text that was shown and not touched is no change;
/// bytes that cannot be shown, and the stamps of words that stay, are kept.
void updateShownWords(RBSongLine &line, const QString &typed);
/// What a tag line is, in the user's language, for the chip before its value; empty for any other line.
[[nodiscard]] QString chipText(const RBSongLine &line);
/// The text of one cell; empty for any other identifier and for a line with fewer times.
[[nodiscard]] QString cellText(const RBSongLine &line, int row, QStringView identifier);

} // namespace editor
