// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/Issues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using generate::Random;
using lyrics::Issue;
using lyrics::IssueSeverity;
using lyrics::issuesOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// "severity line:column code" of each issue.
std::vector<std::string> told(std::string_view text)
{
    std::vector<std::string> lines;
    for (const Issue &issue : issuesOf(text)) {
        lines.push_back(std::string(severityName(issue.severity)) + ' ' + std::to_string(issue.line) + ':'
            + std::to_string(issue.column) + ' ' + std::string(issue.code));
    }
    return lines;
}

/// The text of the only issue.
std::string onlyText(std::string_view text)
{
    const std::vector<Issue> issues = issuesOf(text);
    return issues.size() == 1 ? issues[0].text : std::to_string(issues.size()) + " issues";
}

TEST(Issues, OfASoundTextAreNone)
{
    EXPECT_THAT(told(""), IsEmpty());
    EXPECT_THAT(
        told("\uFEFF[ti:x]\r\n[ar:y]\r\n\r\n[00:01.00][00:30.00]a\r\n[00:02.00]\r\n[00:03.50]走 [b]\r\n"),
        IsEmpty());
    EXPECT_THAT(told("[01:00.00]<01:00.00>hel<01:00.50>lo<01:01.00>\n[01:01.00]a\n"), IsEmpty());
    EXPECT_THAT(told("[offset:0]\n[00:01.00]a\n"), IsEmpty());
}

TEST(Issues, OfCharacters)
{
    EXPECT_THAT(told("[00:01.00]走\xFF\n"), ElementsAre("error 1:12 invalid-utf8"));
    EXPECT_THAT(told("[00:01.00]a\xE6\x9D\xFF z\n"), ElementsAre("error 1:12 invalid-utf8"));
    EXPECT_THAT(told(std::string_view("[00:01.00]a\0b\n", 14)), ElementsAre("error 1:12 nul-character"));
    EXPECT_THAT(told("[00:01.00]a\x01\x7F\n"), ElementsAre("warning 1:12 control-character"));
    EXPECT_THAT(told("[00:01.00]a\tb\n"), IsEmpty());
    EXPECT_THAT(told("[00:01.00]a\n\uFEFF[00:02.00]b\n"), ElementsAre("warning 2:1 byte-order-mark-inside"));
    EXPECT_THAT(told("\uFEFF\uFEFF[00:02.00]b\n"), ElementsAre("warning 1:1 byte-order-mark-inside"));
    EXPECT_THAT(told("[00:01.00]\u202Ea\n"), ElementsAre("warning 1:11 bidi-control"));
    EXPECT_THAT(told("[00:01.00]a\u2066b\u061C\n"), ElementsAre("warning 1:12 bidi-control"));
    for (const std::string_view separator : {"\u2028", "\u2029", "\u0085", "\x0B", "\x0C"})
        EXPECT_THAT(
            told("[00:01.00]a" + std::string(separator) + "b\n"), ElementsAre("warning 1:12 line-separator"));
    EXPECT_THAT(told("[00:01.00]\uFFFD\n"), ElementsAre("warning 1:11 replacement-character"));
}

TEST(Issues, OfManyCharactersOfALineAreOne)
{
    EXPECT_EQ(onlyText("[00:01.00]a\xFF\xFE\n"),
        "2 places of this line are no UTF-8: the file is damaged or in another encoding.");
    EXPECT_EQ(onlyText("[00:01.00]a\xFF\n"), "This is no UTF-8: the file is damaged or in another encoding.");
}

TEST(Issues, OfLineEnds)
{
    EXPECT_THAT(told("a\n[00:01.00]b"), ElementsAre("hint 2:12 no-last-line-end"));
    EXPECT_THAT(
        told("[00:01.00]a\r\n[00:02.00]b\n[00:03.00]c\r"), ElementsAre("warning 2:12 mixed-line-ends"));
    EXPECT_EQ(onlyText("[00:01.00]a\n[00:02.00]b\r"), "This line ends with CR, the lines before it with LF.");
    EXPECT_EQ(
        onlyText("[00:01.00]a\r\n[00:02.00]b\n"), "This line ends with LF, the lines before it with CRLF.");
}

TEST(Issues, OfTimesThatAreNone)
{
    EXPECT_THAT(told("[00:01.00]a\n[00:1a]b\n"),
        ElementsAre("error 2:1 malformed-time-tag", "hint 2:1 untimed-line"));
    EXPECT_THAT(told("[00:01.00]a [00:0x]\n"), ElementsAre("warning 1:13 malformed-time-tag"));
    EXPECT_THAT(told("[00:01.00]<00:01.>a\n"), ElementsAre("warning 1:11 malformed-word-stamp"));
    EXPECT_THAT(told("[00:01.00]a\n[99999999999999999999:00]b\n"),
        ElementsAre("error 2:1 time-too-large", "hint 2:1 untimed-line"));
    EXPECT_THAT(told("[00:01.00]a\n[00:12.34 b\n"),
        ElementsAre("error 2:1 malformed-time-tag", "hint 2:1 untimed-line"));
    EXPECT_THAT(told("[00:01.00]a [b\n"), ElementsAre("warning 1:13 unclosed-bracket"));
    EXPECT_THAT(told("[00:01.00]a ]b [c] [[d]\n"), ElementsAre("warning 1:20 unclosed-bracket"));
    EXPECT_THAT(told("[00:01.00]a <b [Verse: 1] 3:4 <3\n"), IsEmpty());
    EXPECT_THAT(issuesOf("[00:01.00][00:1\x01]\n").at(0).text,
        "\"[00:1?]\" looks like a time, but cannot be read as one. It is a text.");
}

TEST(Issues, OfTimesThatAreOdd)
{
    EXPECT_EQ(onlyText("[00:99.00]a\n"),
        "Seconds above 59: \"00:99.00\" is read as 01:39.00. Perhaps it was meant otherwise.");
    EXPECT_THAT(told("[1:02:75.5]a\n"), ElementsAre("warning 1:1 seconds-above-59"));
    EXPECT_THAT(told("[72:04.29]a\n"), IsEmpty());
    EXPECT_THAT(told("[-00:01.00]a\n[-1:-0.10]b\n"),
        ElementsAre(
            "warning 1:1 negative-time", "warning 2:1 negative-time", "warning 2:1 times-go-backwards"));
    EXPECT_THAT(told("[35]a\n[40.5]b\n"), ElementsAre("hint 1:1 bare-seconds", "hint 2:1 bare-seconds"));
    EXPECT_THAT(told(" [ 00:01.2345 ]a\n"), ElementsAre("hint 1:2 long-fraction"));
    EXPECT_THAT(told("[00:01.234]a\n"), IsEmpty());
    EXPECT_THAT(told("[00:01.00-00:02.00]a\n"), ElementsAre("hint 1:1 time-range"));
    EXPECT_THAT(
        told("[00:03.00-00:02.00]a\n"), ElementsAre("warning 1:1 range-backwards", "hint 1:1 time-range"));
}

TEST(Issues, OfTheOrderOfTimes)
{
    EXPECT_EQ(onlyText("[00:05.00]a\n[00:04.00]b\n[00:06.00]c\n"),
        "This line starts at 00:04.00, before the line above it, which starts at 00:05.00.");
    EXPECT_THAT(told("[00:05.00]a\n\n[00:05.00]b\n"), IsEmpty());
    EXPECT_THAT(told("[00:05.00]a\n[00:30.00][00:06.00]b\n[00:07.00]c\n"), IsEmpty());
    EXPECT_THAT(told("[00:05.00][00:09.00][00:05.00]a\n"), ElementsAre("warning 1:1 repeated-time"));
    EXPECT_THAT(told("[00:00.00]a\n[00:00.00]b\n"), ElementsAre("warning 1:1 all-times-zero"));
    EXPECT_THAT(told("[00:00.00]a\n"), IsEmpty());
    EXPECT_THAT(told("\na\nb\n"), ElementsAre("hint 2:1 no-times"));
    EXPECT_THAT(told("\n\n"), IsEmpty());
    EXPECT_THAT(told("intro\n[00:01.00]a\n\n b\n"), ElementsAre("hint 4:2 untimed-line"));
}

TEST(Issues, OfTheColonForm)
{
    EXPECT_EQ(onlyText("[00:10:20]a\n"),
        "This time is read as minutes, seconds and a fraction. Nothing in the text settles it.");
    EXPECT_THAT(told("[00:10:20]a\n[00:11:20]b\n"), ElementsAre("warning 1:1 ambiguous-time"));
    EXPECT_EQ(onlyText("[00:10:75]a\n[00:11:20]b\n"),
        "This time, and 1 more of its form, are read as minutes, seconds and a fraction, since there is a "
        "field that "
        "fits nothing else.");
    EXPECT_EQ(onlyText("[59:50.00]a\n[01:00:10]b\n"),
        "This time is read as hours, minutes and seconds, since only so do the times rise.");
    EXPECT_EQ(onlyText("[00:10:20]a\n[00:40.00]b\n"),
        "This time is read as minutes, seconds and a fraction, since only so do the times rise.");
    EXPECT_THAT(told("[00:10:20]a\n[00:40.00]b\n"), ElementsAre("hint 1:1 ambiguous-time"));
}

TEST(Issues, OfIdTags)
{
    EXPECT_THAT(told("[ti:x]\n[TI:y]\n[00:01.00]a\n"), ElementsAre("warning 2:1 repeated-tag"));
    EXPECT_THAT(told("[ti:x][ti:y]\n[00:01.00]a\n"), ElementsAre("warning 1:7 repeated-tag"));
    EXPECT_THAT(told("[00:01.00]a\n[by:x]\n"), ElementsAre("warning 2:1 tag-after-lyric"));
    EXPECT_THAT(told("[mood:x]\n[00:01.00]a\n"), ElementsAre("hint 1:1 unknown-tag"));
    EXPECT_THAT(told("[00:01.00]a\n[00:02.00]b\n[ti :x]\n"),
        ElementsAre("warning 3:1 malformed-tag", "hint 3:1 untimed-line"));
    EXPECT_THAT(told("[ti:open\n[00:01.00]a\n"), ElementsAre("warning 1:1 unclosed-bracket"));
}

TEST(Issues, OfOffsets)
{
    EXPECT_EQ(onlyText("[offset:+500]\n[00:01.00]a\n"),
        "Programs disagree on the sign of an offset: for most lines appear 0.5 s earlier, for others lines "
        "appear 0.5 s "
        "later.");
    EXPECT_THAT(told("[offset:+200ms]\n[00:01.00]a\n"),
        ElementsAre("warning 1:1 odd-offset", "hint 1:1 offset-sign"));
    EXPECT_THAT(told("[offset:abc]\n[00:01.00]a\n"), ElementsAre("error 1:1 offset-not-a-number"));
    EXPECT_THAT(told("[offset:0]\n[Offset:0]\n[00:01.00]a\n"), ElementsAre("warning 2:1 several-offsets"));
}

TEST(Issues, OfWordStamps)
{
    EXPECT_THAT(told("[00:10.00]<00:10.00>a <00:12.00>b <00:11.00>c\n"),
        ElementsAre("warning 1:35 word-stamps-go-backwards"));
    EXPECT_THAT(told("[00:10.00]<00:09.00>a\n"), ElementsAre("warning 1:11 word-stamp-outside-line"));
    EXPECT_THAT(told("[00:10.00]a<00:13.00>\n[00:10.00]b\n[00:12.00]c\n"),
        ElementsAre("warning 1:12 word-stamp-outside-line"));
    EXPECT_THAT(told("[00:10.00]a<00:12.00>\n[00:12.00]c\n"), IsEmpty());
    EXPECT_THAT(
        told("[00:10.00][00:30.00]a<00:12.00>\n"), ElementsAre("warning 1:22 word-stamps-of-a-repeat"));
    EXPECT_THAT(told("[00:10.00]a<00:99.00>\n"), ElementsAre("warning 1:12 seconds-above-59"));
}

TEST(Issues, OfOneCodeAreSoManyAndACount)
{
    std::string text;
    for (int i = 0; i < 150; ++i)
        text += "[00:99.00]a\n";
    const std::vector<Issue> issues = issuesOf(text);
    ASSERT_EQ(issues.size(), lyrics::kMostIssuesOfOneCode);
    EXPECT_TRUE(issues.back().text.ends_with(" There are 50 more like this.")) << issues.back().text;
    EXPECT_EQ(issues.back().line, 100U);
}

/// How many characters the issues count in each line, told plainly for texts of well-formed UTF-8.
TEST(Issues, StandInTheirLines)
{
    Random random(61);
    std::set<std::string_view> codes;
    for (int round = 0; round < 20'000; ++round) {
        std::string text = generate::anyText(random, 10, true);
        const std::vector<Issue> issues = issuesOf(text);
        ASSERT_EQ(issuesOf(text), issues);
        if (text.starts_with("\uFEFF"))
            text.erase(0, 3);
        std::vector<std::size_t> lengths(1);
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\n' || (text[i] == '\r' && !(i + 1 < text.size() && text[i + 1] == '\n')))
                lengths.push_back(0);
            else if (text[i] != '\r')
                ++lengths.back();
        }
        std::pair<std::size_t, std::size_t> last{1, 1};
        for (const Issue &issue : issues) {
            const std::pair<std::size_t, std::size_t> place{issue.line, issue.column};
            ASSERT_LE(last, place) << testing::PrintToString(text);
            last = place;
            ASSERT_LE(issue.line, lengths.size());
            ASSERT_LE(issue.column, lengths[issue.line - 1] + 1) << testing::PrintToString(text);
            ASSERT_FALSE(issue.text.empty());
            codes.insert(issue.code);
        }
    }
    EXPECT_GE(codes.size(), 25U);
}

} // namespace
