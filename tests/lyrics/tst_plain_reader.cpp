// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/TextLaws.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using generate::Random;

TEST(PlainReader, ReadsWhatThePageSays)
{
    const auto lines = plainreader::read("\uFEFF[ti: a ][x:y] \r\n [0:1.5] [1:02:03.25]b [c]\n[-1:-0.10]\r");
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], (plainreader::Line{{}, "a", "ti", false}));
    EXPECT_EQ(lines[1], (plainreader::Line{{}, "[x:y]", "", true}));
    EXPECT_EQ(lines[2], (plainreader::Line{{1'500, 3'723'250}, "b [c]", "", false}));
    EXPECT_EQ(lines[3], (plainreader::Line{{-60'100}, "", "", false}));
}

TEST(PlainReader, SettlesTheColonForm)
{
    EXPECT_EQ(plainreader::read("[00:12:34]")[0].times[0], 12'340);
    EXPECT_EQ(plainreader::read("[59:50.00]\n[01:00:10]")[1].times[0], 3'610'000);
}

TEST(PlainReader, AgreesWithTheModelOnEveryText)
{
    Random random(81);
    for (int round = 0; round < 40'000; ++round) {
        const std::string text = generate::anyText(random, 10, true);
        ASSERT_EQ(laws::brokenBy(text), "") << testing::PrintToString(text);
    }
}

/// Times of every shape and nearly every shape, character by character.
TEST(PlainReader, AgreesWithTheModelOnWhatLooksLikeATime)
{
    Random random(82);
    constexpr std::string_view kCharacters = "0123456789005:::...--[]  ";
    for (int round = 0; round < 100'000; ++round) {
        std::string text = "[";
        for (std::size_t length = random.below(14); length > 0; --length)
            text += kCharacters[random.below(kCharacters.size())];
        text += random.oneIn(4) ? "x" : "]x\n[00:01.00]y";
        ASSERT_EQ(laws::brokenBy(text), "") << testing::PrintToString(text);
    }
}

} // namespace
