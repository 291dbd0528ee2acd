// SPDX-License-Identifier: MIT
#include "lyrics/SongSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using songs::onlyLine;
using songs::plain;
using songs::PlainLine;
using testing::ElementsAre;

PlainLine timed(std::int64_t millis, std::string text)
{
    return {{millis}, std::move(text), {}};
}
PlainLine untimed(std::string text)
{
    return {{}, std::move(text), {}};
}
PlainLine tag(std::string key, std::string value)
{
    return {{}, std::move(value), std::move(key)};
}

struct Spelled
{
    std::string_view tag;
    std::int64_t millis;
};

class TimeTagShapes : public testing::TestWithParam<Spelled>
{ };

TEST_P(TimeTagShapes, AreRead)
{
    EXPECT_EQ(onlyLine(std::string(GetParam().tag) + "a"), timed(GetParam().millis, "a"));
}

INSTANTIATE_TEST_SUITE_P(All, TimeTagShapes,
    testing::Values(Spelled{"[00:12]", 12'000}, Spelled{"[0:12.3]", 12'300}, Spelled{"[00:12.34]", 12'340},
        Spelled{"[00:12.345]", 12'345}, Spelled{"[00:12:34]", 12'340}, Spelled{"[1:02:03.45]", 3'723'450},
        Spelled{"[01:02:03.456]", 3'723'456}, Spelled{"[72:04.29]", 4'324'290},
        Spelled{"[123:45.67]", 7'425'670}, Spelled{"[12.34]", 12'340}, Spelled{"[35]", 35'000},
        Spelled{"[00:01.20-00:02.30]", 1'200}, Spelled{"[03:52.100]", 232'100},
        Spelled{"[-00:01.00]", -1'000}, Spelled{"[-1:-0.10]", -60'100}, Spelled{"[00:99.00]", 99'000},
        Spelled{"[00:12.3456789]", 12'345}, Spelled{"[ 00:12.34 ]", 12'340},
        Spelled{"[0000000000000000000000000:01]", 1'000}, Spelled{"[00:02:123]", 2'123},
        Spelled{"[2562047788015:12:55.807]", INT64_MAX}, Spelled{"[153722867280912:55.807]", INT64_MAX}));

class NoTimeTag : public testing::TestWithParam<std::string_view>
{ };

TEST_P(NoTimeTag, IsText)
{
    const std::string text = std::string(GetParam()) + "x";
    EXPECT_EQ(onlyLine(text), untimed(text));
}

INSTANTIATE_TEST_SUITE_P(All, NoTimeTag,
    testing::Values("[00:01.]", "[00:01.2a]", "[00:01,23]", "[]", "[00:005]", "[00:60:00.0]", "[1_0:00]",
        "[٠٠:٠١]", "[00:01.00 ", "(00:01.00)", "[1:2]", "[--1:00]", "[-5]", "[1-2]", "[1999]", "[:12]",
        "[00:xx]", "[153722867280912:55.808]", "[153722867280913:00]", "[9223372036854775807:00]",
        "[2562047788015:12:55.808]", "[18446744073709551617:00]", "[00:12.34", "[00:12.34-]", "[00:01.00-35]",
        "[", "[[00:12.34]", "［00:12.34］"));

TEST(Reading, ALeadingRunOfTimeTagsIsOneLine)
{
    EXPECT_EQ(onlyLine("[02:10.00][00:21.10][00:45.10]chorus"),
        (PlainLine{{130'000, 21'100, 45'100}, "chorus", {}}));
    EXPECT_EQ(
        onlyLine(" [1:00 ]  [  2:00] [ 3:01 ]  hello"), (PlainLine{{60'000, 120'000, 181'000}, "hello", {}}));
    EXPECT_EQ(onlyLine("[00:10][00:10]x"), (PlainLine{{10'000, 10'000}, "x", {}}));
}

TEST(Reading, ATimeTagInTheTextIsText)
{
    EXPECT_EQ(onlyLine("[00:17.12]走[00:17.30]廊"), timed(17'120, "走[00:17.30]廊"));
    EXPECT_EQ(onlyLine("[00:01.10]Hello[00:06.13]"), timed(1'100, "Hello[00:06.13]"));
    EXPECT_EQ(onlyLine("[00:11.22]<00:11.22>hel<00:11.60>lo<00:12.85>"),
        timed(11'220, "<00:11.22>hel<00:11.60>lo<00:12.85>"));
    EXPECT_EQ(onlyLine("[00:10][Chorus][00:20]x"), timed(10'000, "[Chorus][00:20]x"));
}

TEST(Reading, TheFourKeysAreTagLinesInAnyCase)
{
    EXPECT_EQ(onlyLine("[TI:x]"), tag("ti", "x"));
    EXPECT_EQ(onlyLine(" [ar: Artist ] "), tag("ar", "Artist"));
    EXPECT_EQ(onlyLine("[al:]"), tag("al", ""));
    EXPECT_EQ(onlyLine("[By:me]"), tag("by", "me"));
    EXPECT_EQ(onlyLine("[ti:Song [Feat. A] (Remix)]"), tag("ti", "Song [Feat. A] (Remix)"));
}

TEST(Reading, OtherIdTagsAreUntimedLinesWithTheWholeTag)
{
    for (const std::string_view text :
        {"[offset:+500]", "[offset:-500]", "[offset: -3000]", "[offset:+200ms]", "[offset:--500]",
            "[offset:-9223372036854775808]", "[title: Song Name [Explicit]]", "[au: instrumental]",
            "[length: 2:23]", "[#:c]", "[x:y]", "[type:lrc]", "[t_time:(1)]", "[Encoding:iso-8859-15]"}) {
        const RBEditSong song = songs::built(text);
        ASSERT_EQ(song.aryLines().size(), 1U) << text;
        EXPECT_EQ(plain(song.aryLines()[0]), untimed(std::string(text)));
        EXPECT_TRUE(song.aryLines()[0].isOtherTag()) << text;
        EXPECT_FALSE(song.aryLines()[0].isProperty()) << text;
    }
}

TEST(Reading, WhatOnlyLooksLikeATagIsText)
{
    for (const std::string_view text :
        {"[Chorus]", "[Verse 1: A]", "[Drum Solo]", "[ti:open", "[ti]", "[:]", "[ti :x]", "[tİ:T]",
            "[bg:oh yeah] more", "[invalid:stamp]lyrics", "[title: Song [live]", "[SAYONARA]"}) {
        const RBEditSong song = songs::built(text);
        ASSERT_EQ(song.aryLines().size(), 1U) << text;
        EXPECT_EQ(plain(song.aryLines()[0]), untimed(std::string(text)));
        EXPECT_FALSE(song.aryLines()[0].isOtherTag()) << text;
    }
}

TEST(Reading, AnUnknownWordIsAKeyOnlyBeforeTheLyric)
{
    const RBEditSong song = songs::built("[x:y]\n\n[00:01.00]a\n[x:y]\n[offset:5]\n[ti:t]\n");
    EXPECT_TRUE(song.aryLines()[0].isOtherTag());
    EXPECT_FALSE(song.aryLines()[3].isOtherTag());
    EXPECT_TRUE(song.aryLines()[4].isOtherTag());
    EXPECT_TRUE(song.aryLines()[5].isProperty());
}

TEST(Reading, SeveralTagsOnOnePhysicalLineAreSeveralLines)
{
    EXPECT_THAT(plain(songs::built("[ti:x][ar:y]")), ElementsAre(tag("ti", "x"), tag("ar", "y")));
    EXPECT_THAT(plain(songs::built("[offset:500] [00:01.00]a\n")),
        ElementsAre(untimed("[offset:500]"), timed(1'000, "a")));
    EXPECT_THAT(plain(songs::built("[ar:Artist]one")), ElementsAre(tag("ar", "Artist"), untimed("one")));
    EXPECT_THAT(plain(songs::built("[x:y][Chorus]")), ElementsAre(untimed("[x:y]"), untimed("[Chorus]")));
}

TEST(Reading, BlankAndUntimedLinesStandWhereTheyStand)
{
    EXPECT_THAT(plain(songs::built("[00:01.00]a\n\nplain\n[00:02.00]\n   \n")),
        ElementsAre(timed(1'000, "a"), untimed(""), untimed("plain"), timed(2'000, ""), untimed("")));
}

TEST(Reading, EveryKindOfLineEndEndsALine)
{
    const auto expected = ElementsAre(timed(1'000, "a"), untimed(""), timed(2'000, "b"));
    EXPECT_THAT(plain(songs::built("[00:01]a\n\n[00:02]b")), expected);
    EXPECT_THAT(plain(songs::built("[00:01]a\r\n\r\n[00:02]b\r\n")), expected);
    EXPECT_THAT(plain(songs::built("[00:01]a\r\r[00:02]b\r")), expected);
    EXPECT_THAT(plain(songs::built("[00:01]a\n\r[00:02]b")), expected);
}

TEST(Reading, WhatOnlyUnicodeCallsALineEndIsText)
{
    EXPECT_EQ(onlyLine("a\xE2\x80\xA8"
                       "b\xE2\x80\xA9"
                       "c\xC2\x85"
                       "d\x0B\x0C"),
        untimed("a\xE2\x80\xA8"
                "b\xE2\x80\xA9"
                "c\xC2\x85"
                "d\x0B\x0C"));
}

TEST(Reading, TheLastLineEndBeginsNoLine)
{
    EXPECT_EQ(songs::built("").aryLines().size(), 0U);
    EXPECT_EQ(songs::built("\n").aryLines().size(), 1U);
    EXPECT_EQ(songs::built("a\n").aryLines().size(), 1U);
    EXPECT_EQ(songs::built("a\n\n").aryLines().size(), 2U);
}

TEST(Reading, TheByteOrderMarkBelongsToTheDocument)
{
    EXPECT_EQ(onlyLine("\xEF\xBB\xBF[ti:x]"), tag("ti", "x"));
    EXPECT_EQ(songs::built("\xEF\xBB\xBF").aryLines().size(), 0U);
}

TEST(Reading, AByteOrderMarkLeftByJoiningFilesIsABlank)
{
    EXPECT_THAT(plain(songs::built("[00:01.00]a\n\xEF\xBB\xBF[00:02.00]b")),
        ElementsAre(timed(1'000, "a"), timed(2'000, "b")));
}

TEST(Reading, BlanksRoundTheTextAreNoPartOfIt)
{
    EXPECT_EQ(onlyLine("[00:01]  two words \t"), timed(1'000, "two words"));
    EXPECT_EQ(onlyLine("\xC2\xA0[00:01]\xE3\x80\x80"
                       "a\xE2\x80\x83"),
        timed(1'000, "a"));
}

TEST(Reading, OddBytesAreKept)
{
    const std::string odd("[00:01.00]\x01 a\0b \xFF\xC0\xAF\xED\xA0\x80\x7F", 23);
    EXPECT_EQ(onlyLine(odd), timed(1'000, odd.substr(10)));
}

TEST(ColonForm, IsAFractionWhenNothingSettlesIt)
{
    EXPECT_EQ(onlyLine("[1:10:10]hello"), timed(70'100, "hello"));
    EXPECT_THAT(
        plain(songs::built("[00:01:50]a\n[00:02:10]b")), ElementsAre(timed(1'500, "a"), timed(2'100, "b")));
}

TEST(ColonForm, IsAFractionWhenAMiddleFieldExceedsFiftyNine)
{
    EXPECT_THAT(plain(songs::built("[59:00.00]a\n[01:00:30]b\n[00:75:00]c")),
        ElementsAre(timed(3'540'000, "a"), timed(60'300, "b"), timed(75'000, "c")));
}

TEST(ColonForm, IsHoursWhenOnlyThatRises)
{
    EXPECT_THAT(plain(songs::built("[58:00.00]a\n[01:00:30]b\n[61:00.00]c")),
        ElementsAre(timed(3'480'000, "a"), timed(3'630'000, "b"), timed(3'660'000, "c")));
}

/// Found by the fuzzer: in hours the first would have been a text behind a tag, and no longer its own line.
TEST(ColonForm, IsAFractionWhenOneOfThemIsTooLargeForHours)
{
    const std::string text = "[al:][99999999999999:02:03][ 2:\n[01:02:03]a\n[01:02:03]b\n";
    RBEditSong song = songs::built(text);
    ASSERT_EQ(song.aryLines().size(), 4U);
    EXPECT_EQ(song.aryLines()[1].aryTimes().size(), 1U);
    EXPECT_EQ(song.aryLines()[2].aryTimes()[0], 62'030);
    songs::touchAll(song);
    EXPECT_EQ(songs::written(song), text);
}

TEST(ColonForm, IsAFractionWhenNeitherRises)
{
    EXPECT_THAT(plain(songs::built("[58:00.00]a\n[01:00:30]b\n[00:10.00]c")),
        ElementsAre(timed(3'480'000, "a"), timed(60'300, "b"), timed(10'000, "c")));
}

} // namespace
