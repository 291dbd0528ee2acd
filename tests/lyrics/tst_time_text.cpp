// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/Millis.h"
#include "lyrics/RBUtils.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(TimeText, IsRoundedBeforeItIsSplit)
{
    EXPECT_EQ(RBUtils::getTimeIntervalPeerStr(59'996), "01:00.00");
    EXPECT_EQ(RBUtils::getTimeIntervalPeerStr(59'994), "00:59.99");
    EXPECT_EQ(RBUtils::getTimeIntervalPeerStr(3'599'995), "60:00.00");
}

TEST(TimeText, MinutesOverNinetyNine)
{
    EXPECT_EQ(RBUtils::getTimeIntervalPeerStr(7'425'670), "123:45.67");
    EXPECT_EQ(RBUtils::getTimeInterval("123:45.67"), 7'425'670);
    EXPECT_EQ(RBUtils::getTimeInterval("[123:45.67]"), 7'425'670);
    EXPECT_TRUE(RBUtils::isTimeString("123:45.67"));
}

TEST(TimeText, NegativeShowsZero)
{
    EXPECT_EQ(RBUtils::getTimeIntervalPeerStr(-1), "00:00.00");
    EXPECT_EQ(RBUtils::getTimeIntervalMMSSMSStr(kLeast), "00:00.00");
}

TEST(TimeText, OfTheEndsOfTheRange)
{
    EXPECT_EQ(RBUtils::getTimeIntervalMMSSMSStr(0), "00:00.00");
    EXPECT_EQ(RBUtils::getTimeIntervalMMSSMSStr(kLargest), "153722867280912:55.80");
    EXPECT_EQ(RBUtils::getTimeInterval("153722867280912:55.80"), kLargest - 7);
}

TEST(TimeText, ReadsBackToTheHundredthAndRises)
{
    generate::Random random(1);
    std::int64_t last = -1;
    for (std::int64_t millis = 0; millis < kLargest / 3; millis += 1 + millis / 7) {
        for (const std::int64_t near : {millis, millis + 4, millis + 5, millis + 9}) {
            const std::string clock = RBUtils::getTimeIntervalMMSSMSStr(near);
            const std::int64_t read = RBUtils::getTimeInterval("[" + clock + "]");
            ASSERT_EQ(read, (near + 5) / 10 * 10) << clock;
            ASSERT_EQ(RBUtils::getTimeInterval(clock), read);
            ASSERT_EQ(RBUtils::getTimeIntervalMMSSMSStr(read), clock);
            ASSERT_TRUE(RBUtils::isTimeString(RBUtils::getTimeIntervalPeerStr(near))) << clock;
        }
        const std::int64_t read = RBUtils::getTimeInterval(RBUtils::getTimeIntervalPeerStr(millis));
        ASSERT_GE(read, last);
        last = read;
    }
}

TEST(TimeText, WhatCannotBeReadIsZero)
{
    for (const std::string_view text : {"", "[]", "[", "]", "abc", "[abc]", "12:", "[00:12.34", "00:12.34]",
             "[00:12.34]x", "[[00:12.34]]", "99999999999999999999:00", "--1:00", "1:2", "nan", "\xFF"})
        EXPECT_EQ(RBUtils::getTimeInterval(text), 0) << text;
    EXPECT_EQ(RBUtils::getTimeInterval({}), 0);
}

TEST(TimeText, ReadsEverySpellingOfATag)
{
    EXPECT_EQ(RBUtils::getTimeInterval(" [ 00:12.34 ] "), 12'340);
    EXPECT_EQ(RBUtils::getTimeInterval("0:12.3"), 12'300);
    EXPECT_EQ(RBUtils::getTimeInterval("1:02:03.45"), 3'723'450);
    EXPECT_EQ(RBUtils::getTimeInterval("-00:01.00"), -1'000);
}

TEST(IsTimeString, TakesTheFormThatTheUserIsTold)
{
    for (const std::string_view text : {"00:00.00", "01:59.99", "100:00.00", "0000000000000000000001:00.00"})
        EXPECT_TRUE(RBUtils::isTimeString(text)) << text;
}

TEST(IsTimeString, RefusesEverythingElse)
{
    for (const std::string_view text : {"", "abc", "0:12.34", "00:60.00", "00:99.00", "00:12", "00:12.3",
             "00:12.345", "00:12:34", "00:12,34", " 00:12.34", "00:12.34 ", "[00:12.34]", "-00:12.34",
             "99999999999999999999:00.00", "153722867280913:00.00", "٠٠:٠١.٠٠", "00:12.3x", "x0:12.34"})
        EXPECT_FALSE(RBUtils::isTimeString(text)) << text;
}

TEST(MillisFromSeconds, TruncatesTowardZero)
{
    using lyrics::millisFromSeconds;
    EXPECT_EQ(millisFromSeconds(83.456), 83'456);
    EXPECT_EQ(millisFromSeconds(83.4569), 83'456);
    EXPECT_EQ(millisFromSeconds(1.001), 1'000);
    EXPECT_EQ(millisFromSeconds(-0.5), -500);
    EXPECT_EQ(millisFromSeconds(2.0009), 2'000);
    EXPECT_EQ(millisFromSeconds(-0.0009), 0);
}

TEST(MillisFromSeconds, SaturatesAndTakesNoNumberForZero)
{
    using lyrics::millisFromSeconds;
    EXPECT_EQ(millisFromSeconds(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(millisFromSeconds(std::numeric_limits<double>::infinity()), kLargest);
    EXPECT_EQ(millisFromSeconds(-std::numeric_limits<double>::infinity()), kLeast);
    EXPECT_EQ(millisFromSeconds(1e300), kLargest);
    EXPECT_EQ(millisFromSeconds(-1e300), kLeast);
}

} // namespace
