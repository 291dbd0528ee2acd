// SPDX-License-Identifier: MIT
//
// Random documents of any pieces, edited by random scripts, brackets included.
#include "lyrics/Generator.h"
#include "lyrics/LineAccess.h"
#include "lyrics/LineEnds.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using generate::Random;
using lyrics::LineAccess;
using songs::built;
using songs::plain;
using songs::PlainLine;
using songs::written;

constexpr int kRounds = 20'000;

/// Any text, or a short one of few pieces, in which what is rare elsewhere meets often.
std::string anySource(Random &random, bool withColonForms)
{
    static constexpr std::array<std::string_view, 6> kFew
        = {"", "a", "\xEF\xBB\xBF", "[x:y][ti:z]", "[x:y]", "[00:12.34]"};
    if (random.oneIn(2))
        return generate::anyText(random, 8, withColonForms);
    std::string text;
    for (std::size_t line = random.below(4); line > 0; --line) {
        text += random.oneOf(kFew);
        if (withColonForms && random.oneIn(4))
            text += random.oneOf(generate::kColonPieces);
        text += line > 1 || random.oneIn(2) ? random.oneOf(generate::kLineEnds) : "";
    }
    return text;
}

std::string_view anyTyped(Random &random)
{
    const auto kind = random.below(8);
    if (kind == 0)
        return random.oneOf(generate::kTimeLikeTexts);
    return kind < 3 ? random.oneOf(generate::kTagLikeTexts) : random.oneOf(generate::kTypedTexts);
}

void editLine(RBSongLine &line, Random &random)
{
    const auto millis = static_cast<std::int64_t>(random.below(700'000));
    switch (random.below(7)) {
    case 0:
        line.updateWithText(anyTyped(random));
        break;
    case 1:
        line.setIsProperty(false);
        line.appendTime(millis);
        break;
    case 2:
        line.updateWithTimeStr_atIndex(
            random.oneIn(2) ? "" : "12:34.56", static_cast<std::ptrdiff_t>(random.below(3)));
        break;
    case 3:
        line.aryTimes().removeAllObjects();
        break;
    case 4:
        line.aryTimes().removeAllObjects();
        line.setIsProperty(true);
        line.setPropertyStr(random.oneIn(2) ? "ar" : "ti");
        break;
    case 5:
        line.setIsProperty(false);
        line.setPropertyStr("");
        break;
    default:
        line.shiftAllTime(millis - 350'000);
    }
}

/// Edits `song` in up to nine steps; `other` is a document to paste lines from.
void runScript(RBEditSong &song, const RBEditSong &other, Random &random)
{
    for (std::size_t step = random.below(10); step > 0; --step) {
        auto &lines = song.aryLines();
        const std::size_t row = random.below(lines.size() + 1);
        const auto kind = random.below(9);
        const auto &source = kind == 1 ? other.aryLines() : lines;
        if (kind == 0) {
            song.insertLine_atIndex(RBSongLine::emptyLine(), row);
        } else if (kind <= 2 && !source.empty()) {
            song.insertLine_atIndex(source[random.below(source.size())].copy(), row);
        } else if (kind == 3) {
            const std::array<std::size_t, 2> rows = {row, row + (random.oneIn(3) ? 1 : 0)};
            song.deleteLineAtIndexs(rows);
        } else if (kind == 4) {
            static_cast<void>(written(song));
        } else if (row < lines.size()) {
            editLine(lines[row], random);
        }
    }
}

/// Whether `line` is read back as it is when nothing but it is written: behind a lyric line, or before any.
bool isReadBackAlone(const RBSongLine &line, bool isLyricBefore)
{
    PlainLine expected = plain(line);
    if (!expected.key.empty())
        return songs::onlyLine("[ti:" + expected.text + "]\n") == PlainLine{{}, expected.text, "ti"};
    if (!expected.times.empty()) {
        expected.times = {0};
        return songs::onlyLine("[00:00.00]" + expected.text + "\n") == expected;
    }
    const RBEditSong alone = built((isLyricBefore ? "x\n" : "") + expected.text + "\n");
    return alone.aryLines().size() == (isLyricBefore ? 2 : 1) && plain(alone.aryLines().back()) == expected;
}

bool isReadBackLineByLine(const RBEditSong &song)
{
    bool isLyricBefore = false;
    for (const RBSongLine &line : song.aryLines()) {
        if (!isReadBackAlone(line, isLyricBefore))
            return false;
        isLyricBefore = isLyricBefore || songs::isReadAsLyric(line);
    }
    return true;
}

/// Left out are exactly the documents with a line that has no spelling of its own at all: an untimed text
/// that is, in its place, one or more tags or begins with one (typed, or laid bare by taking a tag's
/// brackets, a line's times or the lyric before it away), a timed text that begins with a time, and the value
/// of a tag whose brackets do not balance.
TEST(ScriptLaws, WhatCanBeReadBackLineByLineIsReadBackAsADocument)
{
    Random random(31);
    int checked = 0;
    int withBracket = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string source = anySource(random, true);
        RBEditSong song = built(source);
        runScript(song, built(anySource(random, true)), random);
        if (!isReadBackLineByLine(song))
            continue;
        const std::string text = written(song);
        ASSERT_EQ(built(text), song) << round << testing::PrintToString(source)
                                     << testing::PrintToString(text);
        ++checked;
        const auto &lines = song.aryLines();
        withBracket += std::any_of(lines.begin(), lines.end(),
            [](const RBSongLine &line) { return !line.isProperty() && line.lineText().starts_with('['); });
    }
    EXPECT_GT(checked, kRounds / 2);
    EXPECT_GT(withBracket, kRounds / 10);
    RecordProperty("checked", checked);
    RecordProperty("withBracket", withBracket);
}

/// Every document, but for time tags `a:b:c`, which other lines' times may force into another spelling.
TEST(ScriptLaws, EveryLineThatNobodyEditedIsInTheTextWithItsOwnBytes)
{
    Random random(32);
    std::size_t found = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string source = anySource(random, false);
        RBEditSong song = built(source);
        if (song.aryLines().empty())
            continue;
        const lyrics::TextBlock *block = LineAccess::block(song.aryLines()[0]);
        runScript(song, built(anySource(random, false)), random);
        const std::string text = written(song);
        std::size_t from = 0;
        for (const RBSongLine &line : song.aryLines()) {
            // A line whose text was edited has a block of its own.
            if (LineAccess::block(line) != block || !LineAccess::isUntouched(line))
                continue;
            const std::string_view spelling = LineAccess::spelling(line);
            const std::size_t at = text.find(spelling, from);
            ASSERT_NE(at, std::string::npos)
                << round << testing::PrintToString(source) << testing::PrintToString(text);
            from = at + spelling.size();
            ++found;
        }
    }
    EXPECT_GT(found, std::size_t(kRounds));
}

/// The physical lines of `text`, without the byte-order mark that the document begins with.
std::vector<std::string_view> physicalLines(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::vector<std::string_view> lines;
    lyrics::LineEndFinder finder(text.data(), text.data() + text.size());
    const char *const end = text.data() + text.size();
    for (const char *p = text.data(); p < end;) {
        const char *next = finder.lineEnd(finder.textEnd(p));
        lines.emplace_back(p, static_cast<std::size_t>(next - p));
        p = next;
    }
    return lines;
}

TEST(ScriptLaws, EveryLineStandsOnThePhysicalLineThatTheDocumentNames)
{
    Random random(34);
    std::size_t shared = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string source = anySource(random, true);
        RBEditSong song = built(source);
        if (!random.oneIn(4))
            runScript(song, built(anySource(random, true)), random);
        const std::vector<std::size_t> starts = song.physicalLineStarts();
        const std::string text = written(song);
        const std::vector<std::string_view> lines = physicalLines(text);
        ASSERT_EQ(starts.size(), lines.size())
            << testing::PrintToString(source) << testing::PrintToString(text);
        ASSERT_TRUE(starts.empty() || starts.front() == 0);
        for (std::size_t line = 0; line < starts.size(); ++line) {
            const std::size_t next = line + 1 < starts.size() ? starts[line + 1] : song.aryLines().size();
            ASSERT_LT(starts[line], next);
            std::size_t from = 0;
            for (std::size_t row = starts[line]; row < next; ++row) {
                const std::string_view said = song.aryLines()[row].lineText();
                const std::size_t at = lines[line].find(said, from);
                ASSERT_NE(at, std::string_view::npos) << row << testing::PrintToString(text);
                from = at + said.size();
            }
            shared += next - starts[line] - 1;
        }
    }
    EXPECT_GT(shared, std::size_t(kRounds / 10));
}

TEST(ScriptLaws, ATypedTextLeavesTheColonFormsOfEveryOtherLine)
{
    Random random(33);
    int checked = 0;
    for (int round = 0; round < kRounds; ++round) {
        // The lyric begins at the top, so that no typed text can move its beginning.
        const std::string source = "lyric\n" + anySource(random, true);
        RBEditSong song = built(source);
        const std::size_t row = random.below(song.aryLines().size());
        if (row == 0)
            continue;
        const songs::Surroundings around = songs::surroundings(song, row);
        song.aryLines()[row].updateWithText(random.oneOf(generate::kTagLikeTexts));
        const std::string text = written(song);
        ASSERT_TRUE(text.starts_with(around.before))
            << testing::PrintToString(source) << testing::PrintToString(text);
        ASSERT_TRUE(text.ends_with(around.after))
            << testing::PrintToString(source) << testing::PrintToString(text);
        ++checked;
    }
    EXPECT_GT(checked, kRounds / 2);
}

} // namespace
