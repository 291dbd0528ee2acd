// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"
#include "lyrics/WordStamps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <string_view>

namespace {

using generate::Random;
using lyrics::hasWordStamps;
using lyrics::isShiftCut;
using lyrics::StampedWord;
using lyrics::stampedWords;
using lyrics::wordsOf;
using lyrics::WordStamp;
using lyrics::wordStamps;
using songs::built;
using songs::written;
using testing::ElementsAre;
using testing::IsEmpty;

RBSongLine lineOf(std::string_view text)
{
    return built(text).aryLines().at(0);
}

TEST(WordStamps, AreFoundInEitherForm)
{
    const RBSongLine line = lineOf("[00:10.00]<00:10.00>hel<00:10.50>lo [00:11.00]you< 0:12 >");
    EXPECT_TRUE(hasWordStamps(line));
    EXPECT_THAT(wordStamps(line),
        ElementsAre(WordStamp{0, 10, 10'000, true}, WordStamp{13, 23, 10'500, true},
            WordStamp{26, 36, 11'000, false}, WordStamp{39, 47, 12'000, true}));
    EXPECT_EQ(wordsOf(line), "hello you");
    EXPECT_THAT(stampedWords(line),
        ElementsAre(StampedWord{10'000, "hel"}, StampedWord{10'500, "lo "}, StampedWord{11'000, "you"},
            StampedWord{12'000, ""}));
    EXPECT_THAT(stampedWords(lineOf("[00:10.00]a <00:11.00>b")),
        ElementsAre(StampedWord{{}, "a "}, StampedWord{11'000, "b"}));
    EXPECT_THAT(stampedWords(lineOf("[00:10.00]")), IsEmpty());
    EXPECT_THAT(stampedWords(lineOf("a")), ElementsAre(StampedWord{{}, "a"}));
}

TEST(WordStamps, AreNotWhatOnlyLooksLikeThem)
{
    for (const std::string_view text :
        {"[00:10.00]a [35] b", "[00:10.00]a [00:11.00-00:12.00]", "a <b> <3>", "a <00:10.00", "a <00:10.00]",
            "[length: <00:10.00>]", "[ti:<00:10.00>]", "a <00:10.>", "a <1:2>", ""}) {
        const RBSongLine line = text.empty() ? RBSongLine() : lineOf(text);
        EXPECT_FALSE(hasWordStamps(line)) << text;
        EXPECT_THAT(wordStamps(line), IsEmpty()) << text;
        EXPECT_EQ(wordsOf(line), line.lineText());
    }
}

TEST(WordStamps, OfAnUntimedLineToo)
{
    EXPECT_EQ(wordsOf(lineOf("<00:10.00>hel<00:10.50>lo")), "hello");
}

TEST(WordStamps, InTheColonFormMeanWhatItMeansInTheLine)
{
    EXPECT_EQ(wordStamps(lineOf("[00:10:50]a<00:11:25>")).at(0).millis, 11'250);
    const RBEditSong song = built("[59:50.00]a\n[01:00:10]b<01:00:12>\n");
    EXPECT_EQ(wordStamps(song.aryLines()[1]).at(0).millis, 3'612'000);
}

struct Shifted
{
    std::string_view before;
    std::int64_t millis;
    std::string_view after;
};

TEST(WordStamps, MoveWithTheirLineAndKeepTheirShape)
{
    for (const Shifted &one :
        {Shifted{"<00:11.22>a", 1'000, "<00:12.22>a"}, {"<00:11.22>a", 5, "<00:11.225>a"},
            {"<0:11.2>a", 50, "<0:11.25>a"}, {"<00:11>a", 500, "<00:11.50>a"},
            {"<00:11>a", 1'000, "<00:12>a"}, {"<00:11.220>a", 1'000, "<00:12.220>a"},
            {"<00:11.123456>a", 1'000, "<00:12.123456>a"}, {"a[00:59.99]", 20, "a[01:00.01]"},
            {"a< 99:59.99 >", 20, "a< 100:00.01 >"}, {"<0:59:59.99>a", 20, "<1:00:00.01>a"},
            {"<1:2.5>a", 1'000, "<1:03.5>a"}, {"<00:12:34>a", 1'000, "<00:13:34>a"},
            {"<00:12:34>a", 5, "<00:12:345>a"}, {"<00:99.00>a", 1'000, "<01:40.00>a"},
            {"<00:01.00>a<00:05.00>b", -2'000, "<00:00.00>a<00:03.00>b"},
            {"<-00:01.00>a", 3'000, "<00:02.00>a"}, {"<0000:01.00>a", 1'000, "<0000:02.00>a"},
            {"<00:01.0009>a", -1'000, "<00:00.000>a"}}) {
        RBSongLine line = lineOf("[01:00.00]" + std::string(one.before) + "\n");
        line.shiftAllTime(one.millis);
        EXPECT_EQ(line.lineText(), one.after) << one.before;
        EXPECT_EQ(line.aryTimes()[0], 60'000 + one.millis);
        RBEditSong song;
        song.insertLine_atIndex(line, 0);
        EXPECT_EQ(built(written(song)), song);
    }
}

TEST(WordStamps, InHoursStayInHours)
{
    RBEditSong song = built("[59:50.00]a\n[01:00:10]b<01:00:12>\n");
    song.aryLines()[1].shiftAllTime(1'000);
    EXPECT_EQ(song.aryLines()[1].lineText(), "b<01:00:13>");
    song.aryLines()[1].shiftAllTime(10);
    EXPECT_EQ(song.aryLines()[1].lineText(), "b<01:00:13.01>");
}

TEST(WordStamps, OfTagLinesDoNotMove)
{
    for (const std::string_view text : {"[ti:<00:10.00>]", "[length: <00:10.00>]", "[by:a [00:10.00]]"}) {
        RBEditSong song = built(text);
        song.aryLines()[0].shiftAllTime(500);
        EXPECT_EQ(written(song), text);
    }
    // A title that is made a lyric line has words from then on.
    RBSongLine line = lineOf("[ti:<00:10.00>x]");
    line.shiftAllTime(500);
    line.setIsProperty(false);
    line.shiftAllTime(500);
    EXPECT_EQ(line.lineText(), "<00:10.50>x");
}

TEST(WordStamps, ThatWereTypedMoveToo)
{
    RBSongLine line = lineOf("[00:10.00]x");
    line.shiftAllTime(500);
    line.updateWithText("<00:10.50>x");
    line.shiftAllTime(500);
    EXPECT_EQ(line.lineText(), "<00:11.00>x");
    line.updateWithText("x");
    line.shiftAllTime(500);
    EXPECT_EQ(line.lineText(), "x");
}

/// Any words with any stamps, none below `least`.
std::string stampedText(Random &random, std::size_t leastMinute)
{
    static constexpr std::array<std::string_view, 9> kWords
        = {"hel", "lo", " ", "走", "廊", "a b", "[35]", "　", "<"};
    static constexpr std::array<std::string_view, 8> kStamps
        = {"%:11.22", "0%:11.225", "%:05", "%:5.5", "0:%:11.22", "%:59.999", "%:12.1234567", " %:01.10 "};
    std::string text;
    for (std::size_t piece = random.below(8); piece > 0; --piece) {
        if (random.oneIn(2)) {
            text += random.oneOf(kWords);
            continue;
        }
        std::string stamp(random.oneOf(kStamps));
        stamp.replace(stamp.find('%'), 1, std::to_string(leastMinute + 10 + random.below(40)));
        text += random.oneIn(3) ? "[" + stamp + "]" : "<" + stamp + ">";
    }
    return text;
}

TEST(WordStamps, AnyShiftsThatAddUpToNothingGiveTheSameBytes)
{
    Random random(41);
    int stamped = 0;
    for (int round = 0; round < 10'000; ++round) {
        const std::string text = "[20:00.50]x" + stampedText(random, 0) + "\n";
        RBEditSong song = built(text);
        RBSongLine &line = song.aryLines()[0];
        stamped += hasWordStamps(line);
        const auto a = static_cast<std::int64_t>(random.below(600'000)) - 300'000;
        const auto b = static_cast<std::int64_t>(random.below(600'000)) - 300'000;
        for (const std::int64_t millis : {a, b, -a, -b})
            line.shiftAllTime(millis);
        ASSERT_EQ(written(song), text);
        line.shiftAllTime(a);
        line.shiftBack(a);
        ASSERT_EQ(written(song), text);
    }
    EXPECT_GT(stamped, 5'000);
}

TEST(WordStamps, AreEachShiftedAsTheTimesAre)
{
    Random random(42);
    for (int round = 0; round < 10'000; ++round) {
        RBSongLine line = lineOf("[20:00.50]x" + stampedText(random, 0) + "\n");
        std::vector<std::int64_t> expected;
        for (const WordStamp &stamp : wordStamps(line))
            expected.push_back(stamp.millis);
        const std::string words = wordsOf(line);
        for (int step = 0; step < 3; ++step) {
            const auto millis = static_cast<std::int64_t>(random.below(4'000'000)) - 2'000'000;
            bool isCut = lyrics::shifted(line.aryTimes()[0], millis) != line.aryTimes()[0] + millis;
            for (std::int64_t &stamp : expected) {
                isCut = isCut || lyrics::shifted(stamp, millis) != stamp + millis;
                stamp = lyrics::shifted(stamp, millis);
            }
            ASSERT_EQ(isShiftCut(line, millis), millis != 0 && isCut);
            line.shiftAllTime(millis);
            std::vector<std::int64_t> found;
            for (const WordStamp &stamp : wordStamps(line))
                found.push_back(stamp.millis);
            ASSERT_EQ(found, expected) << line.lineText();
            ASSERT_EQ(wordsOf(line), words);
        }
    }
}

TEST(WordStamps, BelowZeroComeBackByShiftBack)
{
    RBEditSong song = built("[-00:02.00]a<-00:01.00>b\n");
    RBSongLine &line = song.aryLines()[0];
    EXPECT_FALSE(isShiftCut(line, 5'000));
    EXPECT_TRUE(isShiftCut(line, 1'500));
    EXPECT_FALSE(isShiftCut(line, 0));
    line.shiftAllTime(5'000);
    EXPECT_EQ(line.lineText(), "a<00:04.00>b");
    line.shiftBack(5'000);
    EXPECT_EQ(written(song), "[-00:02.00]a<-00:01.00>b\n");
    line.shiftBack(1'000);
    EXPECT_EQ(line.lineText(), "a<-00:02.00>b");
    line.shiftBack(0);
    EXPECT_EQ(line.lineText(), "a<-00:02.00>b");
}

TEST(WordStamps, AtTheEndsOfTheRangeStopThere)
{
    constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
    for (const std::int64_t millis : {kLargest, kLeast, kLargest - 1, kLeast + 1}) {
        RBSongLine line = lineOf("[00:10.00]a<00:10.00>b");
        line.shiftAllTime(millis);
        EXPECT_EQ(wordStamps(line).at(0).millis, millis > 0 ? kLargest : 0);
        line.shiftAllTime(millis);
        line.shiftBack(millis);
        line.shiftBack(millis);
        line.shiftAllTime(5);
        EXPECT_EQ(wordStamps(line).size(), 1U);
    }
}

TEST(WordStamps, OfACopyAreItsOwn)
{
    RBSongLine line = lineOf("[00:10.00]a<00:10.00>b");
    line.shiftAllTime(5);
    RBSongLine copy = line.copy();
    copy.shiftAllTime(5);
    line.shiftAllTime(-5);
    EXPECT_EQ(line.lineText(), "a<00:10.00>b");
    EXPECT_EQ(copy.lineText(), "a<00:10.01>b");
    EXPECT_FALSE(line == copy);
    copy.shiftAllTime(-10);
    EXPECT_TRUE(line == copy);
}

} // namespace
