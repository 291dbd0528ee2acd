// SPDX-License-Identifier: MIT
//
// What is marked. What must not be is in tst_quiet_lyrics.cpp.
#include "editor/ProblemMarks.h"
#include "lyrics/RBSongLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using editor::LineProblem;
using editor::problemsOf;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Order, ALineBeforeTheOneAbove)
{
    EXPECT_THAT(marks::of("[00:10]a\n[00:20]b\n[00:16.8]c\n[00:25]d\n"), ElementsAre("3 earlier 3200"));
}

TEST(Order, TheLastLineBeforeTheOneAbove)
{
    EXPECT_THAT(marks::of("[00:10]a\n[00:20]b\n[00:15]c\n"), ElementsAre("3 earlier 5000"));
}

TEST(Order, OneLineThatIsTooLateIsMarkedAndNotItsNeighbour)
{
    EXPECT_THAT(
        marks::of("[00:01]a\n[00:02]b\n[01:03]c\n[00:04]d\n[00:05]e\n"), ElementsAre("3 later 59000"));
}

TEST(Order, AFirstLineThatIsTooLate)
{
    EXPECT_THAT(marks::of("[00:30]a\n[00:02]b\n[00:04]c\n"), ElementsAre("1 later 28000"));
}

TEST(Order, WhileOnlyTheNextLineIsStampedThatOneIsMarked)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:02]b\n[01:03]c\n[00:04]d\ne\n"), ElementsAre("4 earlier 59000"));
}

TEST(Order, TwoLinesThatWereSwapped)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:05]b\n[00:03]c\n[00:07]d\n"), ElementsAre("3 earlier 2000"));
}

TEST(Order, ALineAtZeroInTheMiddle)
{
    EXPECT_THAT(
        marks::of("[00:00]title\n[00:05]a\n[00:09]b\n[00:00]c\n[00:13]d\n"), ElementsAre("4 earlier 9000"));
}

TEST(Order, SeveralLinesStampedAfterGoingBack)
{
    // Where it begins, and only there.
    EXPECT_THAT(marks::of("[00:10]a\n[00:14]b\n[00:18]c\n[00:03]d\n[00:07]e\n[00:22]f\n"),
        ElementsAre("4 earlier 15000"));
}

TEST(Order, TagsUntimedLinesAndBlanksAreLookedAcross)
{
    EXPECT_THAT(
        marks::of("[ar:x]\n[00:10]a\n\nuntimed\n[offset:+5]\n[00:09]b\n"), ElementsAre("6 earlier 1000"));
}

TEST(Order, ARepeatedLineOfWhichNoTimeFits)
{
    EXPECT_THAT(
        marks::of("[00:10]a\n[00:20]b\n[00:04][00:08]c\n[00:25]d\n"), ElementsAre("3.2 earlier 12000"));
}

TEST(Order, BeyondAHundredRowsNothingIsCompared)
{
    const std::string near = "[00:09]a\n" + std::string(99, '\n') + "[00:08]b\n";
    const std::string far = "[00:09]a\n" + std::string(100, '\n') + "[00:08]b\n";
    EXPECT_THAT(marks::of(near), ElementsAre("101 earlier 1000"));
    EXPECT_THAT(marks::of(far), IsEmpty());
}

TEST(EqualTimes, TheSameTextAtTheSameTime)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:05]b\n[00:05]b\n[00:09]c\n"), ElementsAre("3 same"));
}

TEST(EqualTimes, ACopyOfALineWithRepeats)
{
    EXPECT_THAT(marks::of("[00:05][00:08]b\n[00:05][00:08]b\n"), ElementsAre("2 same", "2.2 same"));
}

TEST(EqualTimes, TheSameTimeTwiceOnALine)
{
    EXPECT_THAT(marks::of("[00:05][00:07][00:05]a\n"), ElementsAre("1.3 twice"));
}

TEST(EqualTimes, FourLinesAtOneTime)
{
    // A stopped player stamps one time again and again.
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]b\n[00:05]c\n[00:05]d\n[00:05]e\n[00:09]f\n"),
        ElementsAre("4 many", "5 many"));
}

TEST(Gap, NothingForMoreThanTenSeconds)
{
    EXPECT_THAT(marks::of("[00:10]a\n[00:13]b\n[00:16]c\n[00:30]d\n[00:33]e\n"), ElementsAre("3 gap 14000"));
}

TEST(Gap, TenSecondsAreNone)
{
    EXPECT_THAT(marks::of("[00:10]a\n[00:20]b\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:10]a\n[00:20.001]b\n"), ElementsAre("1 gap 10001"));
}

TEST(Gap, OfTwoLinesAtOneTimeTheLastIsMarked)
{
    EXPECT_THAT(marks::of("[00:12]a\n[00:12]A\n[00:40]b\n[00:40]B\n"), ElementsAre("2 gap 28000"));
}

TEST(Gap, AfterTheSecondTimeOfALine)
{
    EXPECT_THAT(marks::of("[00:10][00:16]a\n[00:13][00:40]b\n"), ElementsAre("1.2 gap 24000"));
}

TEST(End, ATimePastTheEndOfTheAudio)
{
    EXPECT_THAT(marks::of("[00:10]a\n[00:15][00:19]b\n", 18'000), ElementsAre("2.2 end 18000"));
}

TEST(End, AHairPastTheEndIsRounding)
{
    EXPECT_THAT(marks::of("[00:18.10]a\n", 18'000), IsEmpty());
    EXPECT_THAT(marks::of("[00:18.11]a\n", 18'000), ElementsAre("1 end 18000"));
}

TEST(End, AnUnknownLengthEndsNothing)
{
    EXPECT_THAT(marks::of("[99:00]a\n", 0), IsEmpty());
}

TEST(EmptyLine, AfterAnEmptyOne)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:05]\n[00:07]\n[00:20]b\n"), ElementsAre("3 empty after empty 2000"));
}

TEST(EmptyLine, TakesTheTextAwayAtOnce)
{
    // As a line is that was inserted and not written yet.
    EXPECT_THAT(marks::of("[00:01]a\n[00:01.20]\n[00:06]b\n"), ElementsAre("2 empty at once 200"));
}

TEST(EmptyLine, JustBeforeTheNextText)
{
    EXPECT_THAT(
        marks::of("[00:01]a\n[00:05]b\n[00:08]\n[00:09.9]c\n"), ElementsAre("3 empty before next 1900"));
}

TEST(EmptyLine, IsAboutTheTextAndStandsBehindTheTimes)
{
    RBEditSong song;
    song.buildWithLrcText("[00:01]a\n[00:01.1][00:01.1]\n[00:08]c\n");
    const std::vector<LineProblem> two = problemsOf(song, 1, 0);
    ASSERT_EQ(two.size(), 2U);
    EXPECT_EQ(two[0], (LineProblem{LineProblem::Kind::TwiceOnLine, 1}));
    EXPECT_EQ(two[1], (LineProblem{LineProblem::Kind::EmptyAtOnce, LineProblem::kText, 100}));
}

TEST(Asking, ForARowThatIsNotThereAnswersNothing)
{
    const RBEditSong empty;
    EXPECT_THAT(problemsOf(empty, 0, 0), IsEmpty());
    RBEditSong song;
    song.buildWithLrcText("[00:05]a\n");
    EXPECT_THAT(problemsOf(song, 1, 0), IsEmpty());
    EXPECT_THAT(problemsOf(song, std::numeric_limits<std::size_t>::max(), 0), IsEmpty());
}

TEST(Asking, LeavesTheDocumentAsItIs)
{
    RBEditSong song;
    const std::string text = "[1:2.3][0:1]b \r\n[00:05]\r[00:04]x";
    song.buildWithLrcText(text);
    EXPECT_FALSE(marks::of(song, 1000).empty());
    for (const RBSongLine &line : song.aryLines()) {
        EXPECT_FALSE(line.aryTimes().isTouched());
    }
    song.updateSongText();
    EXPECT_EQ(song.songText(), text);
}

TEST(Asking, TimesAtTheEndsOfTheRange)
{
    RBEditSong song;
    RBSongLine line;
    line.appendTime(std::numeric_limits<std::int64_t>::max());
    song.insertLine_atIndex(line, 0);
    line.aryTimes().clear();
    line.appendTime(std::numeric_limits<std::int64_t>::min());
    song.insertLine_atIndex(line, 1);
    EXPECT_THAT(problemsOf(song, 1, 1),
        ElementsAre(
            LineProblem{LineProblem::Kind::EarlierThanAbove, 0, std::numeric_limits<std::int64_t>::max()},
            LineProblem{LineProblem::Kind::EmptyAfterEmpty, LineProblem::kText,
                std::numeric_limits<std::int64_t>::max()}));
}

TEST(Asking, SixteenTimesOfALineAreLookedAt)
{
    std::string times;
    for (int count = 0; count < 40; ++count) {
        times += "[00:05]";
    }
    EXPECT_EQ(marks::of(times + "a\n").size(), 15U);
}

} // namespace
