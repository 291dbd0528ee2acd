// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/LineOrder.h"
#include "lyrics/SongSupport.h"
#include "lyrics/WordStamps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using generate::Random;
using songs::built;
using songs::written;

std::string expanded(std::string_view text)
{
    RBEditSong song = built(text);
    lyrics::expandRepeats(song);
    return written(song);
}

std::string collapsed(std::string_view text)
{
    RBEditSong song = built(text);
    lyrics::collapseRepeats(song);
    return written(song);
}

std::string sorted(std::string_view text)
{
    RBEditSong song = built(text);
    lyrics::sortByTime(song);
    return written(song);
}

TEST(ExpandRepeats, EachTimeIsALineOfItsOwnInItsPlace)
{
    EXPECT_EQ(expanded("[02:10.00][00:21.10] [0:45.1]chorus\n[00:30.00]a\r\n[01:00.00]b\n"),
        "[00:21.10]chorus\n[00:30.00]a\r\n[0:45.1]chorus\n[01:00.00]b\n[02:10.00]chorus\n");
    EXPECT_EQ(expanded(" [00:01] [00:05]a\nuntimed\n\n[00:03]b\nmore"),
        " [00:01]a\nuntimed\n\n[00:03]b\nmore\n [00:05]a\n");
}

TEST(ExpandRepeats, LinesOfOneTimeKeepTheirOrder)
{
    EXPECT_EQ(expanded("[00:01.00][00:05.00]a\n[00:01.00][00:05.00]b\n[00:05.00]c\n"),
        "[00:01.00]a\n[00:01.00]b\n[00:05.00]c\n[00:05.00]a\n[00:05.00]b\n");
    EXPECT_EQ(expanded("[00:05.00][00:05.00]a\n"), "[00:05.00]a\n[00:05.00]a\n");
}

TEST(ExpandRepeats, WhatIsNotConcernedKeepsItsBytes)
{
    const std::string text = "\uFEFF[ti:x]\r\n[0:1.5] a \r[offset:5]\nb [00:02.00]\xFF\n";
    RBEditSong song = built(text);
    EXPECT_EQ(lyrics::expandRepeats(song), 0U);
    EXPECT_EQ(written(song), text);
    EXPECT_EQ(expanded(text + "[00:03.00][00:04.00]c"), text + "[00:03.00]c\n[00:04.00]c");
}

TEST(ExpandRepeats, WordStampsMoveWithTheTimeThatTheyDoNotFit)
{
    EXPECT_EQ(expanded("[00:10.00][00:50.00]<00:10.00>a <00:11.50>b\n"),
        "[00:10.00]<00:10.00>a <00:11.50>b\n[00:50.00]<00:50.00>a <00:51.50>b\n");
    EXPECT_EQ(
        expanded("[00:10.00][00:50.00]<00:50.00>a\n"), "[00:10.00]<00:10.00>a\n[00:50.00]<00:50.00>a\n");
    EXPECT_EQ(
        expanded("[00:10.00][00:50.00]<00:09.00>a\n"), "[00:10.00]<00:09.00>a\n[00:50.00]<00:49.00>a\n");
}

TEST(ExpandRepeats, OfEditedLinesToo)
{
    RBEditSong song = built("[0:10.0] [0:20]a\n[0:30]x\n");
    song.aryLines()[0].appendTime(40'000);
    song.aryLines()[0].updateWithText("[00:05.00]b");
    EXPECT_EQ(lyrics::expandRepeats(song), 2U);
    EXPECT_EQ(written(song), "[0:10.0][00:05.00]b\n[0:20][00:15.00]b\n[0:30]x\n[00:40.00][00:35.00]b\n");
    RBEditSong made;
    RBSongLine line;
    line.appendTime(5'000);
    line.appendTime(1'000);
    line.updateWithText("new");
    made.insertLine_atIndex(line, 0);
    EXPECT_EQ(lyrics::expandRepeats(made), 1U);
    EXPECT_EQ(written(made), "[00:01.00]new\n[00:05.00]new\n");
}

TEST(ExpandRepeats, KeepsTheMeaningOfTheColonForm)
{
    EXPECT_EQ(expanded("[59:50.00]a\n[01:00:10][01:00:20]b\n"), "[59:50.00]a\n[01:00:10]b\n[01:00:20]b\n");
}

TEST(ExpandRepeats, SharesAPhysicalLineWhereItDid)
{
    EXPECT_EQ(expanded("[ti:x][00:01.00][00:03.00]a\n[ar:y][00:02.00]b\n"),
        "[ti:x][00:01.00]a\n[ar:y][00:02.00]b\n[00:03.00]a\n");
    EXPECT_EQ(expanded("[ti:x][00:01.00][00:03.00]a\n[ar:y][00:05.00]b\n"),
        "[ti:x][00:01.00]a\n[ar:y]\n[00:03.00]a\n[00:05.00]b\n");
}

TEST(ExpandRepeats, RefusesWhatWouldFillTheMemory)
{
    std::string text;
    for (int i = 0; i < 40'000; ++i)
        text += "[00:01.00]";
    text += std::string(100'000, 'a');
    RBEditSong song = built(text);
    EXPECT_THROW(lyrics::expandRepeats(song), std::length_error);
    EXPECT_EQ(written(song), text);
}

TEST(ExpandRepeats, OfALineOfAHundredThousandTimesComesBack)
{
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "[00:01.00]";
    RBEditSong song = built(text + "<00:01.00>a\n");
    EXPECT_EQ(lyrics::expandRepeats(song), 99'999U);
    EXPECT_EQ(written(song).size(), 100'000 * std::string_view("[00:01.00]<00:01.00>a\n").size());
    EXPECT_EQ(lyrics::collapseRepeats(song), 99'999U);
    EXPECT_EQ(song.aryLines().size(), 1U);
}

TEST(CollapseRepeats, EqualTextsAreOneLine)
{
    EXPECT_EQ(
        collapsed("[0:10.0]a\r\n[00:20.00]b\r\n[00:30.00] a\r\n[00:40.00][00:50.00]a\r\n[00:55.00]c\r\n"),
        "[0:10.0][00:30.00][00:40.00][00:50.00]a\r\n[00:20.00]b\r\n[00:55.00]c\r\n");
}

TEST(CollapseRepeats, BlankLinesTagsAndUntimedTextsTakeNoPart)
{
    const std::string text = "[ti:a]\n[00:01.00]\n[00:02.00]a\nx\n[00:03.00]\nx\n\n[00:04.00]a\ny\n[ar:a]\n";
    RBEditSong song = built(text);
    EXPECT_EQ(lyrics::collapseRepeats(song), 0U);
    EXPECT_EQ(written(song), text);
    EXPECT_EQ(collapsed("[00:01.00]a\n\n[00:02.00]b\n\n[00:03.00]a\n\n[by:x]\n"),
        "[00:01.00][00:03.00]a\n\n[00:02.00]b\n\n\n[by:x]\n");
}

TEST(CollapseRepeats, WordStampsAtTheSameDistancesAreEqual)
{
    EXPECT_EQ(collapsed("[00:10.00]<00:10.00>a <00:11.50>b\n[00:50.00]<00:50.0>a <0:51.50>b\n"),
        "[00:10.00][00:50.00]<00:10.00>a <00:11.50>b\n");
    for (const std::string_view text :
        {"[00:10.00]<00:10.00>a\n[00:50.00]<00:50.01>a\n", "[00:10.00]<00:10.00>a\n[00:50.00][00:50.00]a\n",
            "[00:10.00]<00:10.00>a\n[00:50.00]a\n", "[00:10.00]<00:10.00>a\n[00:50.00]x[00:50.00]a\n",
            "[00:10.00][00:50.00]<00:10.00>a\n[00:10.00][00:50.00]<00:10.00>a\n"})
        EXPECT_EQ(collapsed(text), text);
}

TEST(SortByTime, PutsLinesInOrderWithWhatFollowsThem)
{
    EXPECT_EQ(sorted("intro\n[00:09.00]c\n\nmore\n[00:05.00]b\n[00:30.00][00:01.00]a\nend"),
        "intro\n[00:30.00][00:01.00]a\nend\n[00:05.00]b\n[00:09.00]c\n\nmore\n");
    EXPECT_EQ(sorted("[00:02.00]b\n[00:01.00]a\n[00:02.00]c\n[00:01.00]d\n"),
        "[00:01.00]a\n[00:01.00]d\n[00:02.00]b\n[00:02.00]c\n");
}

TEST(SortByTime, TagLinesKeepTheirRows)
{
    EXPECT_EQ(sorted("[ti:x]\n[00:02.00]b\n[by:y]\n[00:01.00]a\n[offset:5]\n"),
        "[ti:x]\n[00:01.00]a\n[by:y]\n[00:02.00]b\n[offset:5]\n");
}

TEST(SortByTime, WhatIsSortedKeepsItsBytes)
{
    for (const std::string_view text :
        {"", "a\nb", "\uFEFF[0:1.5] a \r\n[00:02]b\n[00:02]c", "[00:05.00][00:01.00]a\n[00:02.00]b\n"}) {
        RBEditSong song = built(text);
        EXPECT_FALSE(lyrics::sortByTime(song));
        EXPECT_EQ(written(song), text);
    }
    // Negative times come first, and untimed text before them.
    EXPECT_EQ(sorted("x\n[00:00.00]b\n[-00:01.00]a\n"), "x\n[-00:01.00]a\n[00:00.00]b\n");
}

/// Documents of timed lines, blank lines, untimed text and tags.
std::string anySong(Random &random)
{
    static constexpr std::array<std::string_view, 7> kTexts = {"a", "b", "走", "", "c [x]", " d ", "e"};
    std::string text;
    for (std::size_t line = random.below(12); line > 0; --line) {
        switch (random.below(6)) {
        case 0:
            text += random.oneOf(kTexts);
            break;
        case 1:
            text += "[offset:5]";
            break;
        default:
            for (std::size_t count = random.oneIn(3) ? 3 : 1; count > 0; --count)
                text += "[00:" + std::to_string(10 + random.below(50)) + (random.oneIn(2) ? ".00]" : "]");
            text += random.oneOf(kTexts);
        }
        text += "\n";
    }
    return text;
}

/// Each time with its text, in order, tag lines and untimed text apart.
std::multimap<std::int64_t, std::string> timesOf(const RBEditSong &song)
{
    std::multimap<std::int64_t, std::string> times;
    for (const songs::PlainLine &line : songs::plain(song)) {
        for (const std::int64_t millis : line.times)
            times.emplace(millis, line.text);
        if (line.times.empty())
            times.emplace(-1, line.text);
    }
    return times;
}

std::vector<std::pair<std::int64_t, std::string>> inAnyOrder(const RBEditSong &song)
{
    const auto times = timesOf(song);
    std::vector<std::pair<std::int64_t, std::string>> pairs(times.begin(), times.end());
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

TEST(LineOrder, NeitherLosesNorInventsATime)
{
    Random random(91);
    int moved = 0;
    for (int round = 0; round < 5'000; ++round) {
        const std::string text = anySong(random);
        RBEditSong song = built(text);
        const auto expected = inAnyOrder(song);
        const std::size_t added = lyrics::expandRepeats(song);
        ASSERT_EQ(inAnyOrder(song), expected) << text;
        for (const RBSongLine &line : song.aryLines())
            ASSERT_LE(line.aryTimes().size(), 1U);
        ASSERT_EQ(lyrics::expandRepeats(song), 0U);
        const bool isSorted = !lyrics::sortByTime(song);
        ASSERT_EQ(inAnyOrder(song), expected) << text;
        ASSERT_FALSE(lyrics::sortByTime(song));
        const std::size_t taken = lyrics::collapseRepeats(song);
        ASSERT_EQ(inAnyOrder(song), expected) << text;
        ASSERT_EQ(lyrics::collapseRepeats(song), 0U);
        ASSERT_EQ(built(written(song)), song) << text;
        moved += added > 0 || !isSorted || taken > 0;
    }
    EXPECT_GT(moved, 3'000);
}

/// The plain way: insert each line behind all that do not start later.
TEST(LineOrder, SortingEqualsInsertingOneByOne)
{
    Random random(92);
    for (int round = 0; round < 3'000; ++round) {
        RBEditSong song = built(anySong(random));
        struct Group
        {
            std::int64_t start;
            std::vector<songs::PlainLine> lines;
        };
        std::vector<std::pair<std::size_t, songs::PlainLine>> tags;
        std::size_t row = 0;
        Group group{-1, {}};
        std::vector<Group> inOrder;
        for (const songs::PlainLine &line : songs::plain(song)) {
            if (line.text == "[offset:5]") {
                tags.emplace_back(row++, line);
                continue;
            }
            ++row;
            if (!line.times.empty()) {
                inOrder.push_back(group);
                group = {*std::min_element(line.times.begin(), line.times.end()), {}};
            }
            group.lines.push_back(line);
        }
        inOrder.push_back(group);
        std::vector<Group> plainlySorted;
        for (const Group &one : inOrder) {
            auto at = plainlySorted.begin();
            while (at != plainlySorted.end() && at->start <= one.start)
                ++at;
            plainlySorted.insert(at, one);
        }
        std::vector<songs::PlainLine> expected;
        for (const Group &one : plainlySorted)
            expected.insert(expected.end(), one.lines.begin(), one.lines.end());
        for (const auto &[at, tag] : tags)
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), tag);
        lyrics::sortByTime(song);
        ASSERT_EQ(songs::plain(song), expected);
    }
}

TEST(LineOrder, CollapsingAndExpandingASortedSongGivesItBack)
{
    Random random(93);
    for (int round = 0; round < 3'000; ++round) {
        std::string text = "[ti:x]\n";
        std::int64_t second = 10;
        for (std::size_t line = random.below(12); line > 0; --line, second += 1 + random.below(2))
            text += "[00:" + std::to_string(second) + ".00]" + std::string(1, char('a' + random.below(4)))
                + "\n";
        ASSERT_EQ(expanded(collapsed(text)), text);
    }
}

} // namespace
