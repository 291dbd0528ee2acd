// SPDX-License-Identifier: MIT
#include "editor/LineCommands.h"

#include "editor/LineColumns.h"
#include "editor/SongChanges.h"
#include "editor/TextSplice.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/WordStamps.h"

#include <QtCore/QChar>

#include <algorithm>
#include <string>
#include <utility>

namespace editor {

namespace {

// How far a new line is from the line that it was made beside.
constexpr std::int64_t kSpacingMillis = 200;
// In bytes.
constexpr std::size_t kLongestCharacter = 4;

std::size_t index(int row)
{
    return static_cast<std::size_t>(row);
}

// An empty line that begins `millis` after `line`, which is negative for before.
RBSongLine emptyLineBeside(const RBSongLine &line, std::int64_t millis)
{
    RBSongLine made = RBSongLine::emptyLine();
    if (const auto first = line.aryTimes().firstObject()) {
        made.appendTime(lyrics::shifted(*first, millis));
    }
    return made;
}

bool isWrittenWithoutBlanks(char32_t character)
{
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Thai:
        return true;
    default:
        return false;
    }
}

// What stands between two texts that become one.
std::string_view jointOf(std::string_view first, std::string_view second)
{
    // The characters that meet, and no more: the first text grows with each line.
    const auto left
        = shownForm(first.substr(first.size() - std::min(first.size(), kLongestCharacter))).toUcs4();
    const auto right = shownForm(second.substr(0, kLongestCharacter)).toUcs4();
    if (left.isEmpty() || right.isEmpty()) {
        return {};
    }
    return isWrittenWithoutBlanks(left.back()) && isWrittenWithoutBlanks(right.front()) ? "" : " ";
}

} // namespace

WordsAround wordsAround(const RBSongLine &line, const QString &before, const QString &after)
{
    const std::string words = shownWords(line);
    const qsizetype units = shownForm(words).size();
    const auto begin = static_cast<std::size_t>(bytesOfPrefix(words, before.size()));
    const auto end = static_cast<std::size_t>(bytesOfPrefix(words, units - after.size()));
    return {words.substr(0, begin), words.substr(end)};
}

RBSongLine lineOfWords(const RBSongLine &line, std::string_view words)
{
    RBSongLine made = RBSongLine::emptyLine();
    made.updateWithText(shownText(line));
    lyrics::updateWithWords(made, words);
    return made;
}

void makeTagLine(RBSongLine &line, std::string_view key)
{
    line.aryTimes().removeAllObjects();
    line.setIsProperty(true);
    line.setPropertyStr(key);
}

void untag(RBSongLine &line)
{
    if (line.isProperty()) {
        line.setIsProperty(false);
        line.setPropertyStr({});
    }
    // Asking for the times to be changed makes a line look again at its own spelling.
    if (!std::as_const(line).aryTimes().empty()) {
        line.aryTimes().removeAllObjects();
    }
}

void stamp(RBSongLine &line, std::int64_t millis)
{
    line.setIsProperty(false);
    line.appendTime(millis);
}

const RBSongLine *lineAt(const RBEditSong &song, int row)
{
    const auto &lines = song.aryLines();
    return row < 0 || index(row) >= lines.size() ? nullptr : &lines[index(row)];
}

bool insertBefore(SongChanges &changes, const LineSelection &selection)
{
    const RBSongLine *line = lineAt(changes.song(), selection.selectedRow);
    if (!line) {
        return false;
    }
    changes.insert(index(selection.selectedRow), emptyLineBeside(*line, -kSpacingMillis));
    return true;
}

bool insertAfter(SongChanges &changes, const LineSelection &selection)
{
    const RBSongLine *line = lineAt(changes.song(), selection.selectedRow);
    if (!line) {
        return false;
    }
    changes.insert(index(selection.lastRow() + 1), emptyLineBeside(*line, kSpacingMillis));
    return true;
}

bool duplicate(SongChanges &changes, const LineSelection &selection)
{
    const RBSongLine *line = lineAt(changes.song(), selection.selectedRow);
    if (!line) {
        return false;
    }
    changes.insert(index(selection.lastRow() + 1), line->copy());
    return true;
}

bool paste(SongChanges &changes, const LineSelection &selection, std::span<const RBSongLine> copied)
{
    const RBSongLine *anchor = lineAt(changes.song(), selection.lastRow());
    if (!anchor) {
        return false;
    }
    auto base = anchor->aryTimes().firstObject();
    std::vector<RBSongLine> lines;
    lines.reserve(copied.size());
    for (const RBSongLine &line : copied) {
        RBSongLine &made = lines.emplace_back(line.copy());
        if (base) {
            base = lyrics::shifted(*base, kSpacingMillis);
            made.aryTimes().removeAllObjects();
            made.appendTime(*base);
        }
    }
    changes.insert(index(selection.lastRow() + 1), std::move(lines));
    return true;
}

std::vector<RBSongLine> copyOf(const RBEditSong &song, const kit::RowRanges &rows)
{
    std::vector<RBSongLine> lines;
    for (const kit::RowRange &range : rows) {
        for (int row = range.first; row <= range.last; ++row) {
            if (const RBSongLine *line = lineAt(song, row)) {
                lines.push_back(line->copy());
            }
        }
    }
    return lines;
}

std::optional<kit::RowRanges> moveUp(SongChanges &changes, const kit::RowRanges &rows)
{
    kit::RowRanges moved = rows;
    int ceiling = 0;
    bool hasMoved = false;
    for (kit::RowRange &range : moved) {
        if (range.first > ceiling) {
            changes.rotate(index(range.first - 1), index(range.first), index(range.last + 1));
            --range.first;
            --range.last;
            hasMoved = true;
        }
        ceiling = range.last + 1;
    }
    return hasMoved ? std::optional(moved) : std::nullopt;
}

std::optional<kit::RowRanges> moveDown(SongChanges &changes, const kit::RowRanges &rows)
{
    kit::RowRanges moved = rows;
    int floor = static_cast<int>(changes.song().aryLines().size()) - 1;
    bool hasMoved = false;
    for (auto range = moved.rbegin(); range != moved.rend(); ++range) {
        if (range->last < floor) {
            changes.rotate(index(range->first), index(range->last + 1), index(range->last + 2));
            ++range->first;
            ++range->last;
            hasMoved = true;
        }
        floor = range->first - 1;
    }
    return hasMoved ? std::optional(moved) : std::nullopt;
}

std::optional<int> merge(SongChanges &changes, const kit::RowRanges &rows)
{
    if (rows.empty()) {
        return std::nullopt;
    }
    const int first = rows.front().first;
    const int last = std::max(rows.front().last, first + 1);
    const RBSongLine *line = lineAt(changes.song(), first);
    if (!line || !lineAt(changes.song(), last)) {
        return std::nullopt;
    }
    RBSongLine merged = line->copy();
    std::string text(shownText(merged));
    for (int row = first + 1; row <= last; ++row) {
        const RBSongLine &next = *lineAt(changes.song(), row);
        text += jointOf(text, shownText(next));
        text += shownText(next);
        if (std::as_const(merged).aryTimes().empty() && !merged.isProperty()) {
            for (const std::int64_t time : next.aryTimes()) {
                merged.appendTime(time);
            }
        }
    }
    merged.updateWithText(text);
    changes.splice(index(first), index(last - first + 1), {std::move(merged)});
    return first;
}

bool split(SongChanges &changes, int row, const QString &before, const QString &after)
{
    const RBSongLine *line = lineAt(changes.song(), row);
    if (!line) {
        return false;
    }
    const auto [head, tail] = wordsAround(*line, before, after);
    RBSongLine first = line->copy();
    RBSongLine second = lineOfWords(*line, tail);
    lyrics::updateWithWords(first, head);
    changes.splice(index(row), 1, {std::move(first), std::move(second)});
    return true;
}

} // namespace editor
