// SPDX-License-Identifier: MIT
//
// Documents and lines as values, and what stands at the edges of the ranges.

#include "lyrics/SongSupport.h"
#include "lyrics/TimeTag.h"
#include "lyrics/WordStamps.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace {

using songs::built;
using songs::onlyLine;
using songs::PlainLine;
using songs::written;

constexpr std::string_view kText = "\uFEFF[ti:x]\r[0:1.5] a \r[00:02.00]b";

TEST(Values, AnAssignedDocumentIsIndependentAndHasTheBytes)
{
    RBEditSong song = built("old\n");
    const RBEditSong source = built(kText);
    song = source;
    EXPECT_EQ(written(song), kText);
    song.aryLines()[1].shiftAllTime(1'000);
    song.insertLine_atIndex(RBSongLine::emptyLine(), 0);
    EXPECT_EQ(written(song), "\uFEFF\r[ti:x]\r[00:02.50] a \r[00:02.00]b");
    EXPECT_EQ(source.songText(), kText);
    RBEditSong &same = song;
    song = same;
    EXPECT_EQ(song.aryLines().size(), 4U);
    song = std::move(same);
    EXPECT_EQ(song.aryLines().size(), 4U);
}

TEST(Values, AMovedDocumentTakesItsBytesAlong)
{
    RBEditSong song = built("old\n");
    RBEditSong source = built(kText);
    song = std::move(source);
    EXPECT_EQ(written(song), kText);
    song.aryLines().back().updateWithText("c");
    EXPECT_EQ(written(song), "\uFEFF[ti:x]\r[0:1.5] a \r[00:02.00]c");
}

TEST(Values, AnAssignedLineIsIndependent)
{
    RBEditSong song = built("[00:01.00][00:02.00][00:03.00]<00:01.00>a\n[00:09.00]b\n");
    RBSongLine line = song.aryLines()[0];
    line.shiftAllTime(5);
    song.aryLines()[1] = line;
    RBSongLine &same = line;
    line = same;
    line = std::move(same);
    line.shiftAllTime(-5);
    EXPECT_TRUE(line == song.aryLines()[0]);
    EXPECT_EQ(written(song),
        "[00:01.00][00:02.00][00:03.00]<00:01.00>a\n[00:01.005][00:02.005][00:03.005]<00:01.005>a\n");
}

TEST(Values, TheOghamSpaceIsABlank)
{
    EXPECT_EQ(onlyLine("\u1680[00:01.00]\u1680a\u1680"), (PlainLine{{1'000}, "a", {}}));
    EXPECT_EQ(onlyLine("\u1681a").text, "\u1681a");
}

TEST(Values, TheLeastTimeIsWrittenAsTheLeastThatCanBeRead)
{
    char text[lyrics::kLongestTime];
    constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(std::string(text, lyrics::writeTime(text, kLeast, lyrics::Fraction::Exact)),
        "-153722867280912:55.807");
    EXPECT_EQ(std::string(text, lyrics::writeTime(text, kLeast, lyrics::Fraction::Rounded)), "00:00.00");
    EXPECT_EQ(std::string(text, lyrics::writeTime(text, kLeast + 1, lyrics::Fraction::Exact)),
        "-153722867280912:55.807");
}

TEST(Values, ATimeFitsUpToTheLargest)
{
    constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(onlyLine("[153722867280912:55.807]").times, std::vector<std::int64_t>{kLargest});
    EXPECT_TRUE(onlyLine("[153722867280912:55.808]").times.empty());
    EXPECT_EQ(onlyLine("[2562047788015:12:55.807]").times, std::vector<std::int64_t>{kLargest});
    EXPECT_TRUE(onlyLine("[2562047788015:12:55.808]").times.empty());
    EXPECT_TRUE(onlyLine("[2562047788016:00:00.0]").times.empty());
    EXPECT_TRUE(onlyLine("[1:02:03.]").times.empty());
    EXPECT_TRUE(onlyLine("[1:60:03.5]").times.empty());
}

/// The colon form is hours only where the largest of them fits.
TEST(Values, HoursInTheColonFormFitUpToTheLargest)
{
    const auto secondTime = [](const std::string &tag) {
        return built("[2562047788015:11:00.00]a\n" + tag + "b\n[2562047788015:12:55.80]c\n")
            .aryLines()[1]
            .aryTimes()[0];
    };
    EXPECT_EQ(secondTime("[2562047788015:12:55]"), std::numeric_limits<std::int64_t>::max() - 807);
    EXPECT_LT(secondTime("[2562047788015:12:56]"), std::numeric_limits<std::int64_t>::max() / 2);
}

TEST(Values, FiftyNineSecondsAreSecondsOfAnHour)
{
    EXPECT_EQ(built("[59:50.00]a\n[01:00:59]b\n").aryLines()[1].aryTimes()[0], 3'659'000);
    EXPECT_EQ(built("[59:50.00]a\n[01:00:60]b\n").aryLines()[1].aryTimes()[0], 60'600);
}

TEST(Values, EveryTagThatHoldsStaysWhereTimesOnlyWent)
{
    RBEditSong song = built("  [0:01] [0:02]\t[0:03] [0:04]a\n");
    song.aryLines()[0].aryTimes().erase(2);
    song.aryLines()[0].aryTimes().erase(0);
    EXPECT_EQ(written(song), "  [0:02] [0:04]a\n");
    song.aryLines()[0].aryTimes().erase(1);
    EXPECT_EQ(written(song), "  [0:02]a\n");
    song.aryLines()[0].appendTime(1'000);
    song.aryLines()[0].appendTime(3'000);
    EXPECT_EQ(written(song), "  [00:02.00][00:01.00][00:03.00]a\n");
}

TEST(Values, NoCharacterIsTornWhereWordsChange)
{
    RBEditSong song = built("[00:01.00]<00:01.00>x\u00E9<00:02.00>y\n");
    lyrics::updateWithWords(song.aryLines()[0], "x\u00E8y");
    EXPECT_EQ(song.aryLines()[0].lineText(), "<00:01.00>x\u00E8<00:02.00>y");
    lyrics::updateWithWords(song.aryLines()[0], "x\u01A8y");
    EXPECT_EQ(song.aryLines()[0].lineText(), "<00:01.00>x\u01A8<00:02.00>y");
}

} // namespace
