// SPDX-License-Identifier: MIT
//
// Lyrics that are as they are on purpose raise no mark.
#include "editor/ProblemMarks.h"
#include "lyrics/Json.h"

#include <QtCore/QByteArray>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Quiet, LinesInOrder)
{
    EXPECT_THAT(marks::of("[ti:x]\n[00:01]a\n[00:05.5]b\n\n[00:09]c\nuntimed\n[00:12]d\n"), IsEmpty());
}

TEST(Quiet, TagLinesAndUntimedLinesAlone)
{
    EXPECT_THAT(marks::of("[ti:x]\n[ar:y]\n[offset:-500]\nplain\n\n[Chorus]\n", 1), IsEmpty());
}

TEST(Quiet, RepeatsInRisingAndFallingOrder)
{
    EXPECT_THAT(
        marks::of("[00:05]v1\n[00:09]v2\n[00:13][00:29]c1\n[00:37][00:17][00:33]c2\n[00:21]v3\n[00:25]v4\n"),
        IsEmpty());
}

TEST(Quiet, RepeatsWrittenOutInAGroupAboveTheVerses)
{
    EXPECT_THAT(marks::of("[00:16][00:28]c1\n[00:20][00:32]c2\n[00:05]v1\n[00:09]v2\n[00:12]v3\n[00:24]v4\n"),
        IsEmpty());
}

TEST(Quiet, AnIntroductionThatIsARepeatOfALaterLine)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:09]b\n[00:13][00:01]hook\n[00:17]c\n"), IsEmpty());
}

TEST(Quiet, ARepeatedChorusFarAboveEndsAGap)
{
    EXPECT_THAT(marks::of("[00:11][00:39]c1\n[00:15][00:43]c2\n[00:19]v1\n[00:23]v2\n[00:27]v3\n[00:31]v4\n"
                          "[00:35]v5\n[00:47]v6\n[00:51]v7\n"),
        IsEmpty());
}

TEST(Quiet, TranslationsLineByLine)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]A\n[00:09]b\n[00:09]B\n[00:13]c\n[00:13]C\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]aa\n[00:05]A\n[00:09]b\n[00:09]bb\n[00:09]B\n"), IsEmpty());
}

TEST(Quiet, TranslationsThatSayTheSame)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]A\n[00:09]la la\n[00:09]la la\n[00:13]c\n[00:13]C\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:05]la\n[00:05]la\n[00:09]b\n[00:09]B\n"), IsEmpty());
}

TEST(Quiet, TranslationsThatAreEmpty)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]A\n[00:09]b\n[00:09]\n[00:13]c\n[00:13]C\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:05]a\n[00:05]A\n[00:09]\n[00:09]\n[00:13]c\n[00:13]C\n"), IsEmpty());
}

TEST(Quiet, ATranslationAsASecondBlock)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:09]b\n[00:13]c\n[00:05]A\n[00:09]B\n[00:13]C\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:05]a\n[00:09]b\n[00:05]A\n[00:09]B\n[00:13]c\n[00:17]d\n[00:13]C\n[00:17]D\n"),
        IsEmpty());
}

TEST(Quiet, ASecondBlockBehindALongFirstOne)
{
    std::string first;
    std::string second;
    for (int line = 10; line < 300; ++line) {
        const std::string time
            = '[' + std::to_string(line / 15 + 10) + ':' + std::to_string(line % 15 * 4 + 1) + ']';
        first += time + "a" + std::to_string(line) + '\n';
        second += time + "B" + std::to_string(line) + '\n';
    }
    EXPECT_THAT(marks::of(first + second), IsEmpty());
}

TEST(Quiet, TwoVoicesAtOneTime)
{
    EXPECT_THAT(marks::of("[00:05]F: a\n[00:09]F: b\n[00:09]M: c\n[00:13]D: d\n"), IsEmpty());
}

TEST(Quiet, TheMakersOfTheSongAtZero)
{
    EXPECT_THAT(
        marks::of(
            "[00:00]title\n[00:00]words: x\n[00:00]music: y\n[00:00]arranged: z\n[00:00]by w\n[00:24]a\n"),
        IsEmpty());
}

TEST(Quiet, NothingWasSynchronised)
{
    EXPECT_THAT(marks::of("[00:00]a\n[00:00]b\n[00:00]c\n[00:00]d\n[00:00]e\n"), IsEmpty());
}

TEST(Quiet, TheOpening)
{
    EXPECT_THAT(marks::of("[00:00]title\n[00:04]words: x\n[00:31]a\n"), IsEmpty());
}

TEST(Quiet, AnEmptyLineClearsTheScreenBeforeAPause)
{
    EXPECT_THAT(marks::of("[00:12]a\n[00:16]\n[00:40]b\n[00:44]\n"), IsEmpty());
    EXPECT_THAT(marks::of("[00:12]a\n[00:24]\n[00:40]b\n"), IsEmpty());
}

TEST(Quiet, ANoteOrAWordInBracketsStandsForAPause)
{
    EXPECT_THAT(
        marks::of(
            "[00:12]a\n[00:16]\u266a\n[00:40]b\n[00:44](Solo)\n[01:20]c\n[01:24]\u3010\u9593\u594f\u3011\n"
            "[01:50]d\n[01:54] ... \n[02:20]e\n"),
        IsEmpty());
}

TEST(Quiet, AWordThatIsOnlyPartlyInBracketsIsSung)
{
    EXPECT_THAT(marks::of("[00:12]oh (oh)\n[00:40]b\n"), ElementsAre("1 gap 28000"));
}

TEST(Quiet, ASlowSong)
{
    EXPECT_THAT(marks::of("[00:12]a\n[00:23]b\n[00:35]c\n[00:46]d\n[00:58]e\n[01:16]f\n"), IsEmpty());
}

TEST(Quiet, WhatIsNotStampedYet)
{
    EXPECT_THAT(marks::of("[00:12]a\n[00:15]b\nc\nd\n[01:10]e\nf\n"), IsEmpty());
}

TEST(Quiet, TheLastLine)
{
    EXPECT_THAT(marks::of("[00:12]a\n[00:15]b\n", 300'000), IsEmpty());
}

TEST(Quiet, AnEmptyLineAtTheTimeOfTheNext)
{
    EXPECT_THAT(marks::of("[00:05]a\n[00:09]\n[00:09]b\n[00:12]c\n"), IsEmpty());
}

TEST(Quiet, StanzasThatAreAllPartedByEmptyLines)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:05]\n[00:05.4]b\n[00:09]c\n[00:13]\n[00:13.1]d\n"), IsEmpty());
}

TEST(Quiet, EveryLineEndsInAnEmptyOne)
{
    EXPECT_THAT(marks::of("[00:01]a\n[00:03]\n[00:04]b\n[00:06]\n[00:07]c\n[00:09]\n"), IsEmpty());
}

TEST(Quiet, AnEmptyLineAtTheBeginningAndPastTheEnd)
{
    EXPECT_THAT(marks::of("[00:00]\n[00:01]a\n[00:06]\n", 5'000), IsEmpty());
}

TEST(Quiet, WordStampsAreText)
{
    EXPECT_THAT(
        marks::of("[00:11.22]<00:11.22>hel<00:11.60>lo<00:12.85>\n[00:13]x[00:10]y\n[00:17]<00:17.00>\n"),
        IsEmpty());
}

TEST(Quiet, UntimedTextBetweenEmptyLines)
{
    EXPECT_THAT(marks::of("[00:01]\nuntimed\n[00:02]\n"), IsEmpty());
}

// Lyrics from other projects' test suites, where their folder is present. They are short and many are odd on
// purpose, so that what is marked in them is told one by one.
TEST(Quiet, CasesOfOthersAreMarkedOnlyWhereTheyAreOdd)
{
    const char *folder = std::getenv("TQLRC_CASES");
    std::ifstream file(std::string(folder ? folder : "") + "/lrc/cases.jsonl");
    std::size_t lyrics = 0;
    std::size_t found = 0;
    for (std::string line; std::getline(file, line); ++lyrics) {
        const json::Value one = json::Parser(line).value();
        found += marks::of(
            QByteArray::fromBase64(QByteArray::fromStdString(one["input_b64"].text)).toStdString())
                     .size();
    }
    if (lyrics == 0) {
        GTEST_SKIP() << "the folder of cases (TQLRC_CASES) is not here";
    }
    RecordProperty("marks", static_cast<int>(found));
    EXPECT_LE(found * 5, lyrics);
    EXPECT_GT(found, 0U);
}

} // namespace
