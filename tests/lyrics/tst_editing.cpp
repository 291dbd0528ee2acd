// SPDX-License-Identifier: MIT
#include "lyrics/RBUtils.h"
#include "lyrics/SongSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using songs::built;
using songs::plain;
using songs::PlainLine;
using songs::written;
using testing::ElementsAre;

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

TEST(Document, OfTheEmptyTextHasNoLines)
{
    RBEditSong song = built("");
    EXPECT_TRUE(song.aryLines().empty());
    EXPECT_EQ(song.songText(), "");
    EXPECT_EQ(written(song), "");
    EXPECT_EQ(song, RBEditSong());
}

TEST(Document, GivesBackTheTextItWasBuiltFrom)
{
    const std::string text = "\xEF\xBB\xBF[TI: x ]\r\n\n[0:12.3] a \rlast";
    RBEditSong song = built(text);
    EXPECT_EQ(song.songText(), text);
    const char *bytes = song.songText().data();
    EXPECT_EQ(written(song), text);
    EXPECT_EQ(song.songText().data(), bytes) << "an untouched document is not copied";
}

TEST(Document, IsBuiltAgainFromItsOwnText)
{
    RBEditSong song = built("[00:01.00]a\n[00:02.00]b\n");
    song.buildWithLrcText(song.songText().substr(12));
    EXPECT_EQ(written(song), "[00:02.00]b\n");
}

TEST(Document, EmptiedHasNoTextNotEvenAMark)
{
    RBEditSong song = built("\xEF\xBB\xBF[00:01.00]a\n");
    song.aryLines().clear();
    EXPECT_EQ(written(song), "");
}

TEST(Document, KeepsItsLinesWhenItsSourceIsGone)
{
    RBSongLine line;
    {
        RBEditSong song = built("[00:01.00]a\n");
        line = song.aryLines()[0].copy();
    }
    EXPECT_EQ(line.lineText(), "a");
}

TEST(Document, IsAValue)
{
    RBEditSong song = built("[00:01.00]a\n");
    RBEditSong other = song;
    other.aryLines()[0].updateWithText("b");
    EXPECT_EQ(written(song), "[00:01.00]a\n");
    EXPECT_EQ(written(other), "[00:01.00]b\n");
}

TEST(InsertLine, AtTheLineCountAppends)
{
    RBEditSong song = built("a\nb\n");
    RBSongLine line = RBSongLine::emptyLine();
    line.updateWithText("c");
    song.insertLine_atIndex(line, 2);
    song.insertLine_atIndex(line, 99);
    song.insertLine_atIndex(line, 0);
    EXPECT_EQ(written(song), "c\na\nb\nc\nc\n");
}

TEST(InsertLine, TakesThePrevailingLineEnd)
{
    for (const std::string_view end : {"\n", "\r\n", "\r"}) {
        const std::string lineEnd(end);
        RBEditSong song = built("a" + lineEnd + "b" + lineEnd + "c");
        song.insertLine_atIndex(RBSongLine::emptyLine(), 3);
        EXPECT_EQ(written(song), "a" + lineEnd + "b" + lineEnd + "c" + lineEnd + lineEnd);
    }
}

TEST(InsertLine, OfAnotherDocumentIntoAnEmptyOneGoesByItsLines)
{
    RBEditSong other = built("a\r\nb\r\n");
    RBEditSong song;
    song.insertLine_atIndex(RBSongLine::emptyLine(), 0);
    song.insertLine_atIndex(other.aryLines()[1].copy(), 1);
    EXPECT_EQ(written(song), "\r\nb\r\n");
    RBEditSong lone;
    lone.insertLine_atIndex(RBSongLine::emptyLine(), 0);
    EXPECT_EQ(written(lone), "\n");
}

TEST(InsertLine, GivesALineEndToTheLineThatWasLast)
{
    RBEditSong song = built("a\r\nb");
    song.insertLine_atIndex(song.aryLines()[0].copy(), 2);
    EXPECT_EQ(written(song), "a\r\nb\r\na\r\n");
}

TEST(DeleteLines, TakesOutExactlyTheRows)
{
    RBEditSong song = built("0\n1\n2\n3\n4\n5\n");
    const std::array<std::size_t, 3> rows = {1, 3, 4};
    song.deleteLineAtIndexs(rows);
    EXPECT_EQ(written(song), "0\n2\n5\n");
}

TEST(DeleteLines, IgnoresRepeatedAndMissingRows)
{
    RBEditSong song = built("0\n1\n2\n");
    const std::array<std::size_t, 5> rows = {0, 0, 2, 3, static_cast<std::size_t>(-1)};
    song.deleteLineAtIndexs(rows);
    EXPECT_EQ(written(song), "1\n");
    song.deleteLineAtIndexs({});
    EXPECT_EQ(written(song), "1\n");
}

TEST(UpdateWithTimeStr, ReplacesAppendsAndTakesOut)
{
    RBEditSong song = built("[00:01.00][00:02.00]a\n");
    RBSongLine &line = song.aryLines()[0];
    line.updateWithTimeStr_atIndex("00:05.50", 1);
    line.updateWithTimeStr_atIndex("00:09.00", 7);
    EXPECT_EQ(written(song), "[00:01.00][00:05.50][00:09.00]a\n");
    line.updateWithTimeStr_atIndex("", 0);
    line.updateWithTimeStr_atIndex("", 9);
    line.updateWithTimeStr_atIndex("", -1);
    line.updateWithTimeStr_atIndex("00:01.00", -1);
    line.updateWithTimeStr_atIndex("nonsense", 0);
    EXPECT_EQ(written(song), "[00:05.50][00:09.00]a\n");
}

TEST(UpdateWithTimeStr, OfWhatTheCellShowsChangesNothing)
{
    RBEditSong song = built("[0:12.3456][59:59.996]a\n");
    RBSongLine &line = song.aryLines()[0];
    line.updateWithTimeStr_atIndex("00:12.35", 0);
    line.updateWithTimeStr_atIndex("60:00.00", 1);
    EXPECT_FALSE(std::as_const(line).aryTimes().isTouched());
    EXPECT_EQ(written(song), "[0:12.3456][59:59.996]a\n");
    EXPECT_THAT(plain(line).times, ElementsAre(12'345, 3'599'996));
}

TEST(UpdateWithText, KeepsTheBlanksRoundTheTextAndTheTags)
{
    RBEditSong song = built(" [0:01.5]  old\t\r\n[ti: t ]\r\n  x  \r\n[00:02] \r\n");
    for (RBSongLine &line : song.aryLines())
        line.updateWithText(" new ");
    EXPECT_EQ(written(song), " [0:01.5]  new\t\r\n[ti: new ]\r\n  new  \r\n[00:02] new\r\n");
}

TEST(UpdateWithText, OfTheSameTextChangesNothing)
{
    RBEditSong song = built("[0:01.5]  a b \n");
    const char *before = song.aryLines()[0].lineText().data();
    song.aryLines()[0].updateWithText("a b");
    song.aryLines()[0].updateWithText(" a b\n");
    EXPECT_EQ(song.aryLines()[0].lineText().data(), before);
}

TEST(UpdateWithText, MakesALineBreakOneBlank)
{
    RBSongLine line = RBSongLine::emptyLine();
    line.updateWithText("a\nb\r\nc\rd\n");
    EXPECT_EQ(line.lineText(), "a b c d");
}

TEST(UpdateWithText, OfATagMakesAQuietLineOnlyWhenTheKeyIsKnown)
{
    RBEditSong song = built("[offset:+500]\nx\n");
    song.aryLines()[0].updateWithText("[offset:-300]");
    EXPECT_TRUE(song.aryLines()[0].isOtherTag());
    song.aryLines()[0].updateWithText("no tag");
    EXPECT_FALSE(song.aryLines()[0].isOtherTag());
    song.aryLines()[1].updateWithText("[re:me]");
    EXPECT_TRUE(song.aryLines()[1].isOtherTag());
    EXPECT_EQ(written(song), "no tag\n[re:me]\n");
}

TEST(ShiftAllTime, MovesEveryTimeAndClampsAtZero)
{
    RBEditSong song = built("[00:01.00] [00:02.00]a\n");
    RBSongLine &line = song.aryLines()[0];
    line.shiftAllTime(-1'500);
    EXPECT_EQ(written(song), "[00:00.00] [00:00.50]a\n");
    line.shiftAllTime(std::numeric_limits<std::int64_t>::min());
    EXPECT_THAT(plain(line).times, ElementsAre(0, 0));
    line.shiftAllTime(kLargest);
    line.shiftAllTime(kLargest);
    EXPECT_THAT(plain(line).times, ElementsAre(kLargest, kLargest));
    RBSongLine::emptyLine().shiftAllTime(5);
}

TEST(ShiftAllTime, ByNothingChangesNothing)
{
    RBEditSong song = built("[-00:01.00]a\n");
    song.aryLines()[0].shiftAllTime(0);
    EXPECT_FALSE(std::as_const(song.aryLines()[0]).aryTimes().isTouched());
}

TEST(Copy, IsIndependent)
{
    RBEditSong song = built("[00:01.00][00:02.00][00:03.00]a\n");
    RBSongLine copy = song.aryLines()[0].copy();
    copy.aryTimes()[0] = 7;
    copy.appendTime(9);
    copy.updateWithText("b");
    EXPECT_EQ(plain(song.aryLines()[0]), (PlainLine{{1'000, 2'000, 3'000}, "a", {}}));
    EXPECT_EQ(plain(copy), (PlainLine{{7, 2'000, 3'000, 9}, "b", {}}));
}

TEST(MovedLine, LeavesAnEmptyLineBehind)
{
    RBEditSong song = built("a\n [ti:b]\n[00:01.00][00:02.00][00:03.00]c\n");
    for (RBSongLine &line : song.aryLines()) {
        const RBSongLine taken = std::move(line);
        RBSongLine assigned;
        line = taken;
        assigned = std::move(line);
        EXPECT_EQ(plain(assigned), plain(taken));
        EXPECT_EQ(plain(line), PlainLine());
        line.setPropertyStr("ar");
        line.setIsProperty(true);
        line.updateWithText("x");
    }
    EXPECT_EQ(written(song), "[ar:x]\n[ar:x]\n[ar:x]\n");
}

TEST(TagLine, IsMadeOfALineThatKeepsItsText)
{
    RBEditSong song = built("[00:10.00][00:20.00] My song \n");
    RBSongLine &line = song.aryLines()[0];
    line.aryTimes().removeAllObjects();
    line.setIsProperty(true);
    line.setPropertyStr("ti");
    EXPECT_EQ(line.displayText(), "My song");
    EXPECT_EQ(written(song), "[ti:My song]\n");
}

TEST(TagLine, WithTimesIsWrittenAsItsTagAlone)
{
    RBEditSong song = built("[ti: x ]\n");
    song.aryLines()[0].appendTime(5);
    EXPECT_EQ(written(song), "[ti: x ]\n");
    EXPECT_EQ(song, built("[ti:x]"));
}

TEST(TagLine, StampedBecomesATimedLineWithItsValueAsText)
{
    RBEditSong song = built("[ti: My song ]\r\n");
    RBSongLine &line = song.aryLines()[0];
    line.setIsProperty(false);
    line.appendTime(12'340);
    EXPECT_EQ(line.lineText(), "My song");
    EXPECT_EQ(written(song), "[00:12.34]My song\r\n");
    EXPECT_EQ(song, built(song.songText()));
}

TEST(TagLine, UntaggedBecomesText)
{
    RBEditSong song = built("[AR: me ]\n[offset:5]\n");
    for (RBSongLine &line : song.aryLines()) {
        line.setIsProperty(false);
        line.setPropertyStr("");
        line.aryTimes().removeAllObjects();
    }
    EXPECT_EQ(written(song), "me\n[offset:5]\n");
}

TEST(TagLine, WithAnotherKeyKeepsTheRestOfItsSpelling)
{
    RBEditSong song = built(" [ TI: x: [y] ] \n");
    song.aryLines()[0].setPropertyStr("AR");
    EXPECT_EQ(song.aryLines()[0].propertyStr(), "ar");
    EXPECT_EQ(written(song), " [ ar: x: [y] ] \n");
    song.aryLines()[0].setPropertyStr("ti");
    EXPECT_EQ(written(song), " [ TI: x: [y] ] \n");
}

TEST(TagLine, WithoutAKeyIsWrittenAsALyricLine)
{
    RBSongLine line = RBSongLine::emptyLine();
    line.updateWithText("x");
    line.setIsProperty(true);
    line.setPropertyStr("nonsense");
    EXPECT_EQ(line.propertyStr(), "");
    RBEditSong song;
    song.aryLines().push_back(line);
    EXPECT_EQ(written(song), "x\n");
}

TEST(OtherTag, StampedIsNoTagAnyMore)
{
    RBEditSong song = built("[offset:+500]\n");
    song.aryLines()[0].appendTime(1'000);
    EXPECT_FALSE(song.aryLines()[0].isOtherTag());
    EXPECT_EQ(written(song), "[00:01.00][offset:+500]\n");
}

TEST(WrittenTimes, KeepTheSpellingOfThoseThatStayed)
{
    RBEditSong song = built(" [0:01] [00:02.5][2:0.50]\t[00:04.000] x \n");
    lyrics::TimeList &times = song.aryLines()[0].aryTimes();
    times[1] = 2'345;
    EXPECT_EQ(written(song), " [0:01] [00:02.345][2:0.50]\t[00:04.000] x \n");
    times.push_back(9'000);
    EXPECT_EQ(written(song), " [0:01][00:02.345][02:00.50][00:04.00][00:09.00] x \n")
        << "the second differs already, so only the first is known to have stayed";
}

TEST(WrittenTimes, AddedOrTakenOutLeaveTheOthersAlone)
{
    const std::string text = " [0:01] [00:02.5][2:0.50] x \n";
    const auto edited = [&text](auto edit) {
        RBEditSong song = built(text);
        edit(song.aryLines()[0].aryTimes());
        return written(song);
    };
    using Times = lyrics::TimeList &;
    EXPECT_EQ(edited([](Times t) { t.push_back(9'010); }), " [0:01] [00:02.5][2:0.50][00:09.01] x \n");
    EXPECT_EQ(edited([](Times t) { t.erase(0); }), " [00:02.5][2:0.50] x \n");
    EXPECT_EQ(edited([](Times t) { t.erase(1); }), " [0:01][2:0.50] x \n");
    EXPECT_EQ(edited([](Times t) { t.erase(2); }), " [0:01] [00:02.5] x \n");
    EXPECT_EQ(edited([](Times t) { t.clear(); }), "  x \n");
    EXPECT_EQ(edited([](Times t) { t = {120'500}; }), " [2:0.50] x \n");
    EXPECT_EQ(edited([](Times t) {
        t = {1'000, 5, 2'500, 120'500};
    }),
        " [0:01][00:00.005] [00:02.5][2:0.50] x \n");
}

TEST(WrittenTimes, OfARangeKeepItsLength)
{
    RBEditSong song = built("[00:01.20-00:02.30]a\n");
    song.aryLines()[0].shiftAllTime(500);
    EXPECT_EQ(written(song), "[00:01.70-00:02.80]a\n");
    song.aryLines()[0].shiftAllTime(-500);
    EXPECT_EQ(written(song), "[00:01.20-00:02.30]a\n");
}

TEST(WrittenTimes, AreReadBackExactly)
{
    for (const std::int64_t millis : {std::int64_t(0), std::int64_t(5), std::int64_t(12'345),
             std::int64_t(-60'100), std::int64_t(-5), kLargest, -kLargest}) {
        RBEditSong song = built("x");
        song.aryLines()[0].appendTime(millis);
        EXPECT_EQ(songs::onlyLine(written(song)), (PlainLine{{millis}, "x", {}})) << song.songText();
    }
}

TEST(SharedPhysicalLine, StaysSharedWhereItIsReadBackTheSame)
{
    RBEditSong song = built("[ti:x] [ar:y][00:01.00]a\r\nb\r\n");
    song.aryLines()[0].updateWithText("z");
    song.aryLines()[2].appendTime(2'000);
    EXPECT_EQ(written(song), "[ti:z] [ar:y][00:01.00][00:02.00]a\r\nb\r\n");
    const std::array<std::size_t, 1> row = {1};
    song.deleteLineAtIndexs(row);
    EXPECT_EQ(written(song), "[ti:z][00:01.00][00:02.00]a\r\nb\r\n");
}

TEST(SharedPhysicalLine, IsPartedWhereItWouldBeMisread)
{
    RBEditSong song = built("[ti:x][ar:y]\r\nb\r\n");
    song.aryLines()[0].setIsProperty(false);
    EXPECT_EQ(written(song), "x\r\n[ar:y]\r\nb\r\n");
    RBEditSong open = built("[ti:x][ar:y]");
    open.aryLines()[0].updateWithText("open [");
    EXPECT_EQ(written(open), "[ti:open []\n[ar:y]");
}

TEST(SharedPhysicalLine, EndsWithALineEndWhenItsLastLineGoes)
{
    RBEditSong song = built("[ti:x][ar:y]\r\nb\r\n");
    const std::array<std::size_t, 1> row = {1};
    song.deleteLineAtIndexs(row);
    EXPECT_EQ(written(song), "[ti:x]\r\nb\r\n");
}

TEST(LineEnds, AnEmptiedLastLineCarriesOne)
{
    RBEditSong song = built("a\r\nb");
    song.aryLines()[1].updateWithText("");
    EXPECT_EQ(written(song), "a\r\n\r\n");
}

TEST(LineEnds, OfAnEmptiedLastLineAndItsCopyAreTwo)
{
    // Both were taken for one run of no bytes, which got one line end.
    RBEditSong song = built("a\nb");
    song.aryLines()[1].updateWithText("");
    song.insertLine_atIndex(song.aryLines()[1].copy(), 2);
    EXPECT_EQ(written(song), "a\n\n\n");
    EXPECT_EQ(built(song.songText()), song);
}

TEST(LineEnds, AnEmptiedLineDoesNotMakeOneOfTwo)
{
    RBEditSong song = built("a\rb\nc\n");
    song.aryLines()[1].updateWithText("");
    EXPECT_EQ(written(song), "a\r\n\nc\n");
    const std::array<std::size_t, 1> row = {1};
    RBEditSong other = built("a\rb\n\nc\n");
    other.deleteLineAtIndexs(row);
    EXPECT_EQ(written(other), "a\r\n\nc\n");
}

TEST(ColonForm, IsRespelledWhereItWouldBeMisread)
{
    RBEditSong hours = built("[58:00.00]a\n[01:00:30]b\n");
    ASSERT_EQ(plain(hours.aryLines()[1]).times.front(), 3'630'000);
    RBEditSong song = built("[00:01.00]x\n");
    song.insertLine_atIndex(hours.aryLines()[1].copy(), 1);
    EXPECT_EQ(written(song), "[00:01.00]x\n[60:30.00]b\n");
    hours.aryLines()[1].updateWithText("c");
    EXPECT_EQ(written(hours), "[58:00.00]a\n[01:00:30]c\n") << "kept where it still means the same";
}

TEST(PhysicalLines, OfTagsThatShareOneAreOne)
{
    EXPECT_THAT(built("").physicalLineStarts(), ElementsAre());
    EXPECT_THAT(built("\xEF\xBB\xBF").physicalLineStarts(), ElementsAre());
    RBEditSong song = built("[ti:a][ar:b]\r\n\n[al:c][00:01.00]d\re");
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 2, 3, 5));
    song.insertLine_atIndex(RBSongLine::emptyLine(), 3);
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 2, 3, 4, 6));
    // Between two that shared one: each gets its own.
    song.insertLine_atIndex(RBSongLine::emptyLine(), 1);
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 1, 2, 3, 4, 5, 7));
}

TEST(PhysicalLines, AreThoseThatAreWritten)
{
    RBEditSong song = built("[ti:a][x:y][ar:b]\nc\n");
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 3));
    // A value that does not balance would take the next tag along.
    song.aryLines()[0].updateWithText("a [");
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(written(song), "[ti:a []\n[x:y]\n[ar:b]\nc\n");
    song.aryLines()[0].updateWithText("z");
    EXPECT_THAT(song.physicalLineStarts(), ElementsAre(0, 3));
}

TEST(Equality, StampAndTakeBackMakesEqualAgain)
{
    RBEditSong a = built("[00:01.00]a\nb\n");
    const RBEditSong b = built("[00:01.00]a\nb\n");
    EXPECT_TRUE(a.isEqual(b));
    a.aryLines()[1].appendTime(5);
    EXPECT_FALSE(a.isEqual(b));
    a.aryLines()[1].aryTimes().erase(0);
    EXPECT_TRUE(a.isEqual(b));
    EXPECT_EQ(written(a), "[00:01.00]a\nb\n");
}

TEST(Equality, ComparesContentAndNotSpelling)
{
    EXPECT_EQ(built("[00:01.50] a\r\n[TI: x]"), built("\xEF\xBB\xBF[0:01.5]a \n [ti:x]\n"));
    EXPECT_NE(built("[00:01.50]a"), built("[00:01.50]b"));
    EXPECT_NE(built("[00:01.50]a"), built("[00:01.51]a"));
    EXPECT_NE(built("[ti:a]"), built("[ar:a]"));
    EXPECT_NE(built("[ti:a]"), built("a"));
    EXPECT_NE(built("a\n"), built("a\n\n"));
    EXPECT_NE(built("[00:01.00][00:02.00]a"), built("[00:02.00][00:01.00]a"));
}

} // namespace
