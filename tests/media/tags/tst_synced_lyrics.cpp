// SPDX-License-Identifier: MIT
#include "media/tags/LrcTime.h"
#include "media/tags/SyncedLyrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

using tags::entriesFromLrc;
using tags::holdableText;
using tags::LineBreaks;
using tags::lrcFromEntries;
using tags::SyncedEntry;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Entries = std::vector<SyncedEntry>;

TEST(LrcTime, ShapesThatAreKnown)
{
    const std::pair<const char *, std::uint64_t> times[] = {{"[00:12]", 12000}, {"[0:12.3]", 12300},
        {"[00:12.34]", 12340}, {"[00:12.345]", 12345}, {"[00:12.3459]", 12345}, {"[72:04.29]", 4324290},
        {"[123:45.67]", 7425670}, {"[00:99.00]", 99000}, {"[1:2]", 62000}, {"[71582:47.295]", 4294967295}};
    for (const auto &[text, time] : times) {
        const auto read = tags::lrcTimeAt(text, 0, ']');
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(read->time, time) << text;
        EXPECT_EQ(read->end, std::string(text).size()) << text;
    }
}

TEST(LrcTime, ShapesThatAreNot)
{
    for (const char *text : {"[00:12", "[00]", "[:12]", "[00:]", "[00:123]", "[00:12:34]", "[1:02:03.45]",
             "[00:12.]", "[-00:12]", "[ 00:12]", "[00:12 ]", "[00:12>", "[71582:47.296]", "[4294967296:00]",
             "[99999999999999999999999:00]", "[00:01.00-00:02.00]", "[x:12]", "["})
        EXPECT_FALSE(tags::lrcTimeAt(text, 0, ']')) << text;
}

TEST(LrcTime, TextIsExactAndAsShortAsItCanBe)
{
    EXPECT_EQ(tags::lrcTimeText(0), "00:00.00");
    EXPECT_EQ(tags::lrcTimeText(11220), "00:11.22");
    EXPECT_EQ(tags::lrcTimeText(11225), "00:11.225");
    EXPECT_EQ(tags::lrcTimeText(7425670), "123:45.67");
    EXPECT_EQ(tags::lrcTimeText(tags::kMaxLrcTime), "71582:47.295");
}

TEST(SyncedLyrics, LinesAreToldApartAsTheStandardAsks)
{
    const Entries entries = {{1000, "one"}, {2000, "\ntwo"}, {3000, "\n"}, {4005, "\nthree"}};
    const std::string text = "[00:01.00]one\n[00:02.00]two\n[00:03.00]\n[00:04.005]three\n";
    EXPECT_EQ(lrcFromEntries(entries), text);
    EXPECT_EQ(entriesFromLrc(text), entries);
}

TEST(SyncedLyrics, OtherWaysToTellLinesApart)
{
    const std::string text = "[00:01.00]one\n[00:02.00]\n[00:03.00]two\n";
    for (const Entries &entries : {Entries{{1000, "one"}, {2000, ""}, {3000, "two"}},
             Entries{{1000, "one\n"}, {2000, "\n"}, {3000, "two\n"}},
             Entries{{1000, "\none"}, {2000, "\n"}, {3000, "\ntwo"}},
             Entries{{1000, "\r\none"}, {2000, "\r\n"}, {3000, "\r\ntwo"}},
             Entries{{1000, "\rone"}, {2000, "\r"}, {3000, "\rtwo"}}})
        EXPECT_EQ(lrcFromEntries(entries), text);
    EXPECT_THAT(entriesFromLrc(text, LineBreaks::None),
        ElementsAre(SyncedEntry{1000, "one"}, SyncedEntry{2000, ""}, SyncedEntry{3000, "two"}));
}

TEST(SyncedLyrics, EntriesInsideALineAreItsWords)
{
    const Entries entries = {{11220, "hel"}, {11600, "lo"}, {12850, ""}, {13000, "\nthe"}, {13500, " end"}};
    const std::string text
        = "[00:11.22]<00:11.22>hel<00:11.60>lo<00:12.85>\n[00:13.00]<00:13.00>the<00:13.50> end\n";
    EXPECT_EQ(lrcFromEntries(entries), text);
    EXPECT_EQ(entriesFromLrc(text), entries);
    EXPECT_EQ(entriesFromLrc(text, LineBreaks::None), entries) << "lines are no entries of their own here";
}

TEST(SyncedLyrics, WordsOfASingleLineAreNotTakenForLines)
{
    const std::string text = "[00:01.00]<00:01.00>a<00:02.00>b\n";
    EXPECT_THAT(entriesFromLrc(text), ElementsAre(SyncedEntry{1000, "\na"}, SyncedEntry{2000, "b"}));
    EXPECT_EQ(holdableText(text), text);
}

TEST(SyncedLyrics, SilenceBeforeTheFirstWord)
{
    EXPECT_EQ(holdableText("[00:11.00]<00:11.22>hel<00:11.60>lo\n"), "[00:11.00]<00:11.22>hel<00:11.60>lo\n");
    EXPECT_EQ(holdableText("[00:11.00]hel<00:11.60>lo\n"), "[00:11.00]<00:11.00>hel<00:11.60>lo\n");
    EXPECT_EQ(holdableText("[00:11.00]<00:11.00>hello\n"), "[00:11.00]hello\n");
    EXPECT_EQ(holdableText("[00:11.00]<00:11.00><00:11.00>a\n"), "[00:11.00]<00:11.00><00:11.00>a\n");
}

TEST(SyncedLyrics, RepeatsBecomeLinesInTheOrderOfTime)
{
    EXPECT_EQ(holdableText("[02:10.00][00:21.10] [00:45.10]chorus\n[00:30.00]verse"),
        "[00:21.10]chorus\n[00:30.00]verse\n[00:45.10]chorus\n[02:10.00]chorus\n");
    EXPECT_EQ(holdableText("[00:10.00][01:10.00]<00:10.00>a<00:10.50>b\n"),
        "[00:10.00]<00:10.00>a<00:10.50>b\n[01:10.00]<01:10.00>a<01:10.50>b\n");
}

TEST(SyncedLyrics, LinesAtOneTimeStayInTheirOrder)
{
    const std::string text = "[00:01.00]original\n[00:01.00]translation\n[00:02.00]next\n";
    EXPECT_EQ(holdableText(text), text);
}

TEST(SyncedLyrics, WhatHasNoTimeIsNotHeld)
{
    EXPECT_EQ(holdableText("[ti:x]\nwords\n[00:01.00]a\n \n[Chorus]\n[1:02:03.45]b\n[00:01:02]c\n"),
        "[00:01.00]a\n");
    EXPECT_EQ(holdableText("[00:01.00][1:02:03.45]a\n[00:01.00][-00:01.00]b\n"), "");
    EXPECT_EQ(holdableText("\uFEFF[0:1]a"), "[00:01.00]a\n");
    EXPECT_EQ(holdableText("  [00:01.00] a \r\n"), "[00:01.00] a \n");
    EXPECT_EQ(holdableText("[00:01.00]a[00:02.00]b\n"), "[00:01.00]a[00:02.00]b\n");
    EXPECT_EQ(holdableText(""), "");
    EXPECT_THAT(entriesFromLrc("words"), IsEmpty());
}

TEST(SyncedLyrics, BlankLinesBetweenTimedOnesStay)
{
    EXPECT_EQ(holdableText("\n[00:01.00]a\n\n\n[00:02.00]b\n\n"), "[00:01.00]a\n\n\n[00:02.00]b\n");
    EXPECT_THAT(entriesFromLrc("[00:01.00]a\n\n[00:02.00]b\n", LineBreaks::None),
        ElementsAre(SyncedEntry{1000, "a"}, SyncedEntry{2000, "\n\nb"}));
}

TEST(SyncedLyrics, EntriesThatLookLikeTagsStayWhatTheyAre)
{
    const Entries entries = {{5000, "[00:05.00]x"}, {6000, "\n [1:02:03.45]y"}, {7000, "\n[Chorus]"}};
    const std::string text
        = "[00:05.00]<00:05.00>[00:05.00]x\n[00:06.00]<00:06.00> [1:02:03.45]y\n[00:07.00][Chorus]\n";
    EXPECT_EQ(lrcFromEntries(entries), text);
    EXPECT_EQ(entriesFromLrc(text), entries);
}

TEST(SyncedLyrics, LineBreaksInsideAnEntryAndEntriesOutOfOrder)
{
    EXPECT_EQ(lrcFromEntries({{2000, "b"}, {1000, "a\nA"}}), "[00:01.00]a\n[00:01.00]A\n[00:02.00]b\n");
    EXPECT_EQ(lrcFromEntries({{1000, "a<00:01.50>b"}}), "[00:01.00]<00:01.00>a<00:01.50>b\n");
}

class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) { }

    unsigned below(unsigned limit) { return unsigned(m_random() % limit); }

    std::string word()
    {
        static const char *const words[] = {"", " ", "la", "\u8D70", "\U0001F3B5", "[x]", "<3", "[Chorus] ",
            "a:b", " [00:01.00]", "\xFF", "<00:", "[00:0", "\u2028"};
        return words[below(std::size(words))];
    }

    /// As entriesFromLrc() makes them: lines in the order of their times, told apart by leading breaks.
    Entries entries()
    {
        Entries out;
        std::uint64_t start = 0;
        const unsigned lines = 1 + below(6);
        for (unsigned line = 0; line < lines; ++line) {
            start += below(3) * 995;
            const unsigned words = 1 + below(4);
            std::uint64_t time = start;
            for (unsigned i = 0; i < words; ++i, time += below(3) * 333)
                out.push_back(
                    {time, (i == 0 && line > 0 ? std::string(1 + below(2), '\n') : std::string()) + word()});
            if (lines == 1 && words > 1)
                out.front().text.insert(0, "\n");
        }
        return out;
    }

    /// Anything at all, out of pieces that mean something.
    std::string text()
    {
        static const char *const pieces[] = {"\n", "\r\n", "\r", "[00:01.00]", "[0:2]", "<00:01.50>",
            "<00:01.00>", "[", "<", "]", ">", "[1:02:03]", " ", "\t", "[ti:x]", "a", "\uFEFF",
            "[71582:47.295]", "[00:99.9999]", "\n\n", "[00:00.00]", "00:01.00"};
        std::string out;
        for (unsigned i = below(40); i > 0; --i)
            out += pieces[below(std::size(pieces))];
        return out;
    }

private:
    std::mt19937 m_random;
};

TEST(SyncedLyricsLaws, EntriesComeBack)
{
    for (unsigned seed = 0; seed < 20000; ++seed) {
        const Entries entries = Generator(seed).entries();
        const std::string text = lrcFromEntries(entries);
        EXPECT_EQ(entriesFromLrc(text), entries) << seed << '\n' << text;
        EXPECT_EQ(holdableText(text), text) << seed;
    }
}

TEST(SyncedLyricsLaws, WhatIsHeldIsHeldAgain)
{
    for (unsigned seed = 0; seed < 50000; ++seed) {
        const std::string text = Generator(seed).text();
        const std::string held = holdableText(text);
        EXPECT_EQ(holdableText(held), held) << seed << '\n' << text;
        for (const LineBreaks breaks : {LineBreaks::Leading, LineBreaks::None})
            EXPECT_EQ(lrcFromEntries(entriesFromLrc(text, breaks)), held) << seed << '\n' << text;
    }
}

TEST(SyncedLyricsLaws, AnyEntriesReadAsTextThatIsHeld)
{
    for (unsigned seed = 0; seed < 20000; ++seed) {
        Generator generator(seed);
        Entries entries;
        for (unsigned i = generator.below(5); i > 0; --i)
            entries.push_back({generator.below(4000), generator.text()});
        const std::string text = lrcFromEntries(entries);
        EXPECT_EQ(holdableText(text), text) << seed;
    }
}

std::string repeated(const std::string &piece, std::size_t bytes)
{
    std::string out;
    while (out.size() < bytes)
        out += piece;
    return out;
}

TEST(SyncedLyrics, HostileTextStaysBounded)
{
    constexpr std::size_t twoMebibytes = 2U << 20;
    for (const char *piece : {"[", "[00:", "[0000", "<", "[[[[", "[00:01.00]", "<00:01.00>", "[00:01.00]\n",
             "\n", "[00:01.00]<00:01.00>", "<0", "[1:1]<1:1>a", "\r", " ", "[ "}) {
        for (const char *start : {"", "[00:01.00]"}) {
            const std::string held = holdableText(start + repeated(piece, twoMebibytes));
            EXPECT_LE(held.size(), 3 * tags::kMaxSyncedBytes) << piece;
            EXPECT_EQ(holdableText(held), held) << piece;
        }
    }
    // A line that is sung a hundred thousand times is more than a lyric has.
    const std::string often = repeated("[00:01.00]", 1U << 20);
    EXPECT_EQ(holdableText(often + repeated("x", 1U << 20)), "");
    EXPECT_EQ(holdableText(often + "x\n[00:02.00]y").substr(0, 14), "[00:01.00]x\n[0");
}

TEST(SyncedLyrics, MoreEntriesThanThereMayBeAreNotHeld)
{
    const std::string lines = repeated("[00:01.00]\n", 11 * (tags::kMaxSyncedEntries + 5));
    EXPECT_THAT(entriesFromLrc(lines), SizeIs(tags::kMaxSyncedEntries));
}

} // namespace
