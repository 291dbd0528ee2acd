// SPDX-License-Identifier: MIT
#include "editor/LineClipboard.h"

#include "editor/LineColumns.h"
#include "editor/SongChanges.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/WordStamps.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace editor {

namespace {

bool isBare(const RBSongLine &line)
{
    return !line.isProperty() && line.aryTimes().empty() && shownText(line).empty();
}

bool isPlainText(const std::vector<RBSongLine> &lines)
{
    return std::all_of(lines.begin(), lines.end(),
        [](const RBSongLine &line) { return !line.isProperty() && line.aryTimes().empty(); });
}

std::optional<kit::RowRange> placed(
    SongChanges &changes, int row, std::size_t replaced, std::vector<RBSongLine> lines)
{
    if (lines.empty()) {
        return std::nullopt;
    }
    const kit::RowRange rows{row, row + static_cast<int>(lines.size()) - 1};
    changes.splice(static_cast<std::size_t>(row), replaced, std::move(lines));
    return rows;
}

} // namespace

RBSongLine withoutSpelling(const RBSongLine &line)
{
    RBSongLine made = RBSongLine::emptyLine();
    if (line.isProperty()) {
        made.setIsProperty(true);
        made.setPropertyStr(line.propertyStr());
    }
    for (const std::int64_t time : line.aryTimes()) {
        made.appendTime(time);
    }
    made.updateWithText(shownText(line));
    return made;
}

QString lrcTextOf(std::span<const RBSongLine> lines)
{
    RBEditSong song;
    song.aryLines().assign(lines.begin(), lines.end());
    song.updateSongText();
    const std::string_view text = song.songText();
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::vector<RBSongLine> linesOfText(const QString &text)
{
    if (text.trimmed().isEmpty()) {
        return {};
    }
    // Word processors and browsers end lines in ways of their own.
    QString plain = text;
    plain.replace(QChar::LineSeparator, QLatin1Char('\n'))
        .replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    RBEditSong song;
    song.buildWithLrcText(plain.toUtf8().toStdString());
    std::vector<RBSongLine> lines;
    lines.reserve(song.aryLines().size());
    for (const RBSongLine &line : std::as_const(song).aryLines()) {
        lines.push_back(withoutSpelling(line));
    }
    return lines;
}

std::optional<kit::RowRange> pasteText(
    SongChanges &changes, const LineSelection &selection, const QString &text)
{
    const int last = selection.lastRow();
    if (const RBSongLine *line = lineAt(changes.song(), last); line && isBare(*line)) {
        return placed(changes, last, 1, linesOfText(text));
    }
    const auto count = static_cast<int>(changes.song().aryLines().size());
    return insertText(changes, last < 0 ? count : last + 1, text);
}

std::optional<kit::RowRange> insertText(SongChanges &changes, int row, const QString &text)
{
    const auto count = static_cast<int>(changes.song().aryLines().size());
    return placed(changes, std::clamp(row, 0, count), 0, linesOfText(text));
}

std::optional<kit::RowRange> pasteIntoText(
    SongChanges &changes, int row, const QString &before, const QString &after, const QString &text)
{
    const RBSongLine *line = lineAt(changes.song(), row);
    std::vector<RBSongLine> lines = linesOfText(text);
    if (!line || lines.empty()) {
        return std::nullopt;
    }
    if (!isPlainText(lines)) {
        return isBare(*line) && before.isEmpty() && after.isEmpty()
            ? placed(changes, row, 1, std::move(lines))
            : placed(changes, row + 1, 0, std::move(lines));
    }
    // The words on either side of the caret, byte for byte, with the stamps that are theirs.
    const auto [head, tail] = wordsAround(*line, before, after);
    RBSongLine first = line->copy();
    lyrics::updateWithWords(first, head);
    std::string opening(shownText(first));
    opening += before.endsWith(QLatin1Char(' ')) ? " " : "";
    opening += lines.front().lineText();
    std::string end = after.startsWith(QLatin1Char(' ')) ? " " : "";
    end += lineOfWords(*line, tail).lineText();
    if (lines.size() == 1) {
        first.updateWithText(opening + end);
    } else {
        first.updateWithText(opening);
        lines.back().updateWithText(std::string(lines.back().lineText()) + end);
    }
    lines.front() = std::move(first);
    return placed(changes, row, 1, std::move(lines));
}

} // namespace editor
