// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/LineAccess.h"
#include "lyrics/RBUtils.h"
#include "lyrics/SongSupport.h"
#include "lyrics/TimeTag.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <string>
#include <string_view>
#include <vector>

namespace {

using generate::Random;
using songs::built;
using songs::plain;
using songs::written;

constexpr int kRounds = 10'000;

TEST(Laws, BuildAndWriteGivesTheSameBytes)
{
    Random random(11);
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = generate::anyText(random, 12, true);
        RBEditSong song = built(text);
        ASSERT_EQ(song.songText(), text);
        ASSERT_EQ(written(song), text);
    }
}

TEST(Laws, LinesOpenedForWritingAndNotChangedGiveTheSameBytes)
{
    Random random(12);
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = generate::anyText(random, 12, true);
        RBEditSong song = built(text);
        songs::touchAll(song);
        ASSERT_EQ(written(song), text) << testing::PrintToString(text);
    }
}

TEST(Laws, EveryByteBelongsToExactlyOneLine)
{
    Random random(13);
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = generate::anyText(random, 12, true);
        const RBEditSong song = built(text);
        std::string joined = text.starts_with("\xEF\xBB\xBF") ? "\xEF\xBB\xBF" : "";
        for (const RBSongLine &line : song.aryLines())
            joined += lyrics::LineAccess::spelling(line);
        ASSERT_EQ(joined, text);
    }
}

/// One edit that a user makes of one line, without moving lines.
void editLine(RBSongLine &line, Random &random)
{
    const auto millis = static_cast<std::int64_t>(random.below(700'000));
    switch (random.below(8)) {
    case 0:
        line.appendTime(millis);
        break;
    case 1:
        line.aryTimes().removeAllObjects();
        break;
    case 2:
        line.shiftAllTime(millis - 350'000);
        break;
    case 3:
        line.updateWithText(random.oneOf(generate::kTypedTexts));
        break;
    case 4:
        line.updateWithTimeStr_atIndex("12:34.56", static_cast<std::ptrdiff_t>(random.below(4)) - 1);
        break;
    case 5:
        line.updateWithTimeStr_atIndex("", static_cast<std::ptrdiff_t>(random.below(4)));
        break;
    case 6:
        line.aryTimes().removeAllObjects();
        line.setIsProperty(true);
        line.setPropertyStr(random.oneIn(2) ? "ti" : "by");
        break;
    default:
        line.setIsProperty(false);
        line.setPropertyStr("");
    }
}

bool isLyricUpTo(const RBEditSong &song, std::size_t last)
{
    const auto &lines = song.aryLines();
    return std::any_of(
        lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(last) + 1, songs::isReadAsLyric);
}

TEST(Laws, EditingALineLeavesTheBytesOfEveryOther)
{
    Random random(14);
    int checked = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = generate::anyText(random, 8, false);
        RBEditSong song = built(text);
        if (song.aryLines().empty())
            continue;
        const std::size_t row = random.below(song.aryLines().size());
        const songs::Surroundings around = songs::surroundings(song, row);
        for (std::size_t edits = random.below(3) + 1; edits > 0; --edits)
            editLine(song.aryLines()[row], random);
        const std::string &before = around.before;
        // What was a tag of an unknown word is text behind a lyric line, so it needs a line end of its own.
        const std::string &after = isLyricUpTo(song, around.last) ? around.afterParted : around.after;
        const std::string result = written(song);
        ASSERT_TRUE(result.starts_with(before))
            << testing::PrintToString(text) << testing::PrintToString(result);
        ASSERT_TRUE(result.ends_with(after))
            << testing::PrintToString(text) << testing::PrintToString(result);
        ASSERT_GE(result.size(), before.size() + after.size());
        ++checked;
    }
    EXPECT_GT(checked, kRounds / 2);
}

TEST(Laws, WritingTwiceIsWritingOnce)
{
    Random random(15);
    for (int round = 0; round < kRounds; ++round) {
        RBEditSong song = built(generate::anyText(random, 8, true));
        for (RBSongLine &line : song.aryLines()) {
            if (random.oneIn(3))
                editLine(line, random);
        }
        const std::string once = written(song);
        ASSERT_EQ(written(song), once);
        RBEditSong again = built(once);
        songs::touchAll(again);
        ASSERT_EQ(written(again), once);
    }
}

/// A text as lyric editors and people write them: nothing in it that stops being a tag when it moves.
std::string soundText(Random &random, std::string_view lineEnd)
{
    static constexpr std::array<std::string_view, 9> kHeads
        = {"", "[00:12.34]", "[0:12.3][1:00]", " [72:04.29] ", "[00:01.20-00:02.30]", "[ti:x][00:01.00]",
            "[al: y ]", "[offset:+500]", "[00:01][00:02][00:03]"};
    static constexpr std::array<std::string_view, 7> kTexts
        = {"", "hello", " 走廊 ", "<00:11.22>hel<00:11.60>lo", "a [b] c", "é", "(live) \t"};
    std::string text;
    for (std::size_t line = random.below(9); line > 0; --line) {
        const std::string_view head = random.oneOf(kHeads);
        text += head;
        if (head.find(']') == std::string_view::npos || head.find("0") != std::string_view::npos)
            text += head.starts_with("[offset") ? "" : random.oneOf(kTexts);
        text += lineEnd;
    }
    return text;
}

/// A document as a user can make it of a sound one.
RBEditSong editedSong(Random &random)
{
    RBEditSong song = built(soundText(random, random.oneOf(generate::kLineEnds)));
    const RBEditSong other = built(soundText(random, random.oneOf(generate::kLineEnds)));
    for (std::size_t step = random.below(12); step > 0; --step) {
        auto &lines = song.aryLines();
        const std::size_t row = lines.empty() ? 0 : random.below(lines.size());
        const auto kind = random.below(5);
        if (kind == 0 || lines.empty()) {
            song.insertLine_atIndex(RBSongLine::emptyLine(), row);
        } else if (kind == 1 && !other.aryLines().empty()) {
            song.insertLine_atIndex(other.aryLines()[random.below(other.aryLines().size())].copy(), row);
        } else if (kind == 2) {
            const std::array<std::size_t, 2> rows = {row, row + 1};
            song.deleteLineAtIndexs(rows);
        } else {
            editLine(lines[row], random);
        }
    }
    return song;
}

TEST(Laws, WhatAnEditorMakesIsReadBackAsItIs)
{
    Random random(16);
    for (int round = 0; round < kRounds; ++round) {
        RBEditSong song = editedSong(random);
        const std::string text = written(song);
        ASSERT_EQ(built(text), song) << testing::PrintToString(text);
    }
}

TEST(Laws, TextThatBeginsLikeATagIsReadAsOneOnceItIsWritten)
{
    // The two things that a user can type and that do not survive: told here so that a change is noticed.
    RBEditSong typed = built("x\n");
    typed.aryLines()[0].updateWithText("[00:12.00]x");
    EXPECT_EQ(typed.aryLines()[0].lineText(), "[00:12.00]x");
    EXPECT_EQ(songs::onlyLine(written(typed)), (songs::PlainLine{{12'000}, "x", {}}));
    RBEditSong title = built("[ti:x]\n");
    title.aryLines()[0].updateWithText("a]b");
    EXPECT_EQ(written(title), "[ti:a]b]\n");
    EXPECT_EQ(built(title.songText()).aryLines().size(), 2U);
}

TEST(Laws, LineEndsAndByteOrderMarkMakeNoDifference)
{
    Random random(17);
    for (int round = 0; round < kRounds / 4; ++round) {
        const auto state = random.next();
        std::vector<RBEditSong> songs;
        for (const std::string_view lineEnd : generate::kLineEnds) {
            for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
                Random same(state);
                songs.push_back(built(mark + soundText(same, lineEnd)));
            }
        }
        for (const RBEditSong &song : songs)
            ASSERT_EQ(song, songs.front());
    }
}

TEST(Laws, EqualityIsThatOfTheContent)
{
    Random random(18);
    for (int round = 0; round < kRounds; ++round) {
        const RBEditSong a = built(generate::anyText(random, 3, true));
        const RBEditSong b = built(generate::anyText(random, 3, true));
        ASSERT_EQ(a == b, plain(a) == plain(b));
        RBEditSong touched = a;
        songs::touchAll(touched);
        ASSERT_EQ(touched, a);
    }
}

TEST(Laws, ShiftAndShiftBackIsTheIdentity)
{
    Random random(19);
    for (int round = 0; round < kRounds / 4; ++round) {
        const std::string text = soundText(random, "\n");
        RBEditSong song = built(text);
        const auto amount = static_cast<std::int64_t>(random.below(1'000'000));
        for (RBSongLine &line : song.aryLines())
            line.shiftAllTime(amount);
        for (RBSongLine &line : song.aryLines())
            line.shiftAllTime(-amount);
        ASSERT_EQ(song, built(text));
        ASSERT_EQ(written(song), text);
    }
}

/// `text` with each `<time>` moved by `millis` and written anew.
std::string withStampsMoved(std::string_view text, std::int64_t millis)
{
    std::string moved;
    while (!text.empty()) {
        const std::size_t open = std::min(text.find('<'), text.size());
        moved += text.substr(0, open);
        text.remove_prefix(open);
        const std::size_t close = text.find('>');
        if (text.empty() || close == std::string_view::npos)
            break;
        const std::int64_t time = RBUtils::getTimeInterval(text.substr(1, close - 1));
        char buffer[lyrics::kLongestTime];
        const std::int64_t now = millis == 0 ? time : std::max<std::int64_t>(time + millis, 0);
        moved += '<' + std::string(buffer, lyrics::writeTime(buffer, now, lyrics::Fraction::Exact)) + '>';
        text.remove_prefix(close + 1);
    }
    return moved;
}

std::vector<songs::PlainLine> withStampsWrittenAnew(std::vector<songs::PlainLine> lines)
{
    for (songs::PlainLine &line : lines)
        line.text = withStampsMoved(line.text, 0);
    return lines;
}

/// The same operations on a document and on a plain list of lines.
TEST(Laws, EveryOperationEqualsThatOnAPlainList)
{
    Random random(20);
    for (int round = 0; round < kRounds / 4; ++round) {
        RBEditSong song = built(soundText(random, "\n"));
        std::vector<songs::PlainLine> list = plain(song);
        for (int step = 0; step < 20; ++step) {
            const std::size_t row = random.below(list.size() + 1);
            const auto millis = static_cast<std::int64_t>(random.below(100'000));
            switch (random.below(6)) {
            case 0:
                song.insertLine_atIndex(RBSongLine::emptyLine(), row);
                list.insert(list.begin() + static_cast<std::ptrdiff_t>(row), songs::PlainLine{});
                break;
            case 1: {
                const std::array<std::size_t, 3> rows = {row, row + 2, row + 2};
                song.deleteLineAtIndexs(rows);
                for (const std::size_t at : {row + 2, row}) {
                    if (at < list.size())
                        list.erase(list.begin() + static_cast<std::ptrdiff_t>(at));
                }
                break;
            }
            case 2:
                if (row < list.size()) {
                    song.aryLines()[row].appendTime(millis);
                    list[row].times.push_back(millis);
                }
                break;
            case 3:
                if (row < list.size()) {
                    song.aryLines()[row].updateWithText("typed");
                    list[row].text = "typed";
                }
                break;
            case 4:
                if (row < list.size()) {
                    song.aryLines()[row].setIsProperty(true);
                    song.aryLines()[row].setPropertyStr("al");
                    list[row].key = "al";
                }
                break;
            default:
                for (RBSongLine &line : song.aryLines())
                    line.shiftAllTime(-millis);
                for (songs::PlainLine &line : list) {
                    for (std::int64_t &time : line.times)
                        time = millis == 0 ? time : std::max<std::int64_t>(time - millis, 0);
                    if (line.key.empty())
                        line.text = withStampsMoved(line.text, -millis);
                }
            }
            ASSERT_THAT(
                withStampsWrittenAnew(plain(song)), testing::ElementsAreArray(withStampsWrittenAnew(list)));
        }
    }
}

TEST(Laws, NothingDependsOnTheLocale)
{
    const std::string text = "[00:12.34]a\n[TI:I]\n[0:12.5]b\n[İ:x]\n";
    const auto expected = plain(built(text));
    int tried = 0;
    for (const char *locale : {"C", "de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8", "C.UTF-8"}) {
        if (!std::setlocale(LC_ALL, locale))
            continue;
        ++tried;
        EXPECT_EQ(plain(built(text)), expected) << locale;
        RBEditSong song = built(text);
        song.aryLines()[0].appendTime(1'234'567);
        EXPECT_EQ(written(song), "[00:12.34][20:34.567]a\n[TI:I]\n[0:12.5]b\n[İ:x]\n") << locale;
    }
    std::setlocale(LC_ALL, "C");
    EXPECT_GE(tried, 1);
    RecordProperty("locales", tried);
}

} // namespace
