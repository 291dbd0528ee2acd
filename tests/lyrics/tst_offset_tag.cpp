// SPDX-License-Identifier: MIT
#include "lyrics/OffsetTag.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

namespace {

using lyrics::BakeResult;
using lyrics::OffsetSense;
using lyrics::parseOffset;

constexpr OffsetSense kEarlier = OffsetSense::PositiveIsEarlier;
constexpr OffsetSense kLater = OffsetSense::PositiveIsLater;

struct Spelled
{
    std::string_view value;
    std::int64_t millis;
    bool isPlain;
};

TEST(OffsetTag, IsReadInTheSpellingsThatAreFound)
{
    for (const Spelled &one :
        {Spelled{"500", 500, true}, {"+500", 500, true}, {"-500", -500, true}, {" -3000", -3000, true},
            {" +500 ", 500, true}, {"0", 0, true}, {"+200ms", 200, false}, {"500 MS", 500, false},
            {"--500", -500, false}, {"- 500", -500, false}, {"+-5", -5, false}, {"\u2212500", -500, false},
            {"007", 7, true}, {"9223372036854775807", std::numeric_limits<std::int64_t>::max(), true},
            {"-9223372036854775807", -std::numeric_limits<std::int64_t>::max(), true}}) {
        const auto read = parseOffset(one.value);
        ASSERT_TRUE(read) << one.value;
        EXPECT_EQ(read->millis, one.millis) << one.value;
        EXPECT_EQ(read->isPlain, one.isPlain) << one.value;
    }
}

TEST(OffsetTag, IsRefusedWhereItIsNoNumber)
{
    for (const std::string_view value : {"", " ", "-", "auto", "5s", "0.5", "1,5", "---5", "5-", "5 5",
             "msms", "9223372036854775808", "-9223372036854775808", "99999999999999999999", "5mx", "5m"})
        EXPECT_FALSE(parseOffset(value)) << value;
}

TEST(OffsetTag, IsFoundWhereverItStands)
{
    const RBEditSong song = songs::built("[OFFSET: x ]\n[00:01.00]a\n[ti:y][offset:-5]\n[offsets:5]\n");
    const auto tags = lyrics::offsetTags(song);
    ASSERT_EQ(tags.size(), 2U);
    EXPECT_EQ(tags[0].row, 0U);
    EXPECT_EQ(tags[0].spelling, "x");
    EXPECT_FALSE(tags[0].value);
    EXPECT_EQ(tags[1].row, 3U);
    EXPECT_EQ(tags[1].value->millis, -5);
}

TEST(OffsetTag, IsToldInWordsForBothReadings)
{
    EXPECT_EQ(lyrics::offsetInWords(500, kEarlier), "lines appear 0.5 s earlier");
    EXPECT_EQ(lyrics::offsetInWords(500, kLater), "lines appear 0.5 s later");
    EXPECT_EQ(lyrics::offsetInWords(-3000, kEarlier), "lines appear 3 s later");
    EXPECT_EQ(lyrics::offsetInWords(-61'234, kLater), "lines appear 61.234 s earlier");
    EXPECT_EQ(lyrics::offsetInWords(5, kLater), "lines appear 0.005 s later");
    EXPECT_EQ(lyrics::offsetInWords(0, kLater), "nothing moves");
    EXPECT_EQ(lyrics::offsetShift(std::numeric_limits<std::int64_t>::min(), kEarlier),
        std::numeric_limits<std::int64_t>::max());
}

struct Baked
{
    BakeResult result;
    std::int64_t shift;
    std::size_t clamped;
    std::string text;
};

Baked baked(std::string_view text, OffsetSense sense)
{
    RBEditSong song = songs::built(text);
    const lyrics::BakeOutcome outcome = lyrics::bakeOffset(song, sense);
    return {outcome.result, outcome.shift, outcome.clamped, songs::written(song)};
}

TEST(OffsetTag, IsBakedInTheChosenSense)
{
    const std::string text = "[ti:x]\r\n[offset:+500]\r\n[00:10.00][0:20.5]a<00:11.00>\r\nb";
    const Baked earlier = baked(text, kEarlier);
    EXPECT_EQ(earlier.result, BakeResult::Baked);
    EXPECT_EQ(earlier.shift, -500);
    EXPECT_EQ(earlier.clamped, 0U);
    EXPECT_EQ(earlier.text, "[ti:x]\r\n[00:09.50][00:20.00]a<00:10.50>\r\nb");
    EXPECT_EQ(baked(text, kLater).text, "[ti:x]\r\n[00:10.50][00:21.00]a<00:11.50>\r\nb");
}

TEST(OffsetTag, OfZeroOnlyGoes)
{
    EXPECT_EQ(baked("[offset:0]\n[0:10.0]a\n[-00:01.00]b\n", kLater).text, "[0:10.0]a\n[-00:01.00]b\n");
}

TEST(OffsetTag, TellsWhatWasStopped)
{
    const Baked outcome = baked("[offset:2000]\n[00:01.00]<00:01.50>a<00:03.00>\n[00:02.00]b\n", kEarlier);
    EXPECT_EQ(outcome.clamped, 2U);
    EXPECT_EQ(outcome.text, "[00:00.00]<00:00.00>a<00:01.00>\n[00:00.00]b\n");
}

TEST(OffsetTag, LeavesTagLinesAlone)
{
    EXPECT_EQ(baked("[offset:2000]\n[length: 02:00.00]\n[ti:<00:05.00>]\n[00:05.00]a\n", kEarlier).text,
        "[length: 02:00.00]\n[ti:<00:05.00>]\n[00:03.00]a\n");
}

TEST(OffsetTag, SeveralOfOneValueAreOne)
{
    EXPECT_EQ(baked("[offset:500]\n[00:01.00]a\n[offset:+500]\n", kLater).text, "[00:01.50]a\n");
}

TEST(OffsetTag, IsRefusedWithoutAChange)
{
    for (const auto &[text, result] :
        {std::pair<std::string, BakeResult>("[00:01.00]a\n", BakeResult::NoOffset),
            {"[offset:5][offset:6]\n[00:01.00]a\n", BakeResult::OffsetsDiffer},
            {"[offset:auto]\n[00:01.00]a\n", BakeResult::NotANumber},
            {"[offset:5]\n[offset:auto]\n[00:01.00]a\n", BakeResult::NotANumber}}) {
        const Baked outcome = baked(text, kLater);
        EXPECT_EQ(outcome.result, result) << text;
        EXPECT_EQ(outcome.shift, 0);
        EXPECT_EQ(outcome.text, text);
    }
}

} // namespace
