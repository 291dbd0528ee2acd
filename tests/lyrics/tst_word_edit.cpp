// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"
#include "lyrics/WordStamps.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace {

using generate::Random;
using lyrics::updateWithWords;
using lyrics::wordsOf;
using lyrics::wordStamps;
using songs::built;

/// The text of the line "[00:09.00]`before`" once its words are `words`.
std::string edited(std::string_view before, std::string_view words)
{
    RBEditSong song = built("[00:09.00]" + std::string(before) + "\n");
    updateWithWords(song.aryLines()[0], words);
    EXPECT_EQ(song.aryLines()[0].aryTimes()[0], 9'000);
    return std::string(song.aryLines()[0].lineText());
}

constexpr std::string_view kHello = "<00:10.00>hel<00:11.00>lo <00:12.00>big <00:13.00>world<00:14.00>";

TEST(WordEdit, TheSameWordsAreNoChange)
{
    EXPECT_EQ(edited(kHello, "hello big world"), kHello);
    EXPECT_EQ(edited(kHello, "  hello big world "), kHello);
    EXPECT_EQ(edited("plain", " plain"), "plain");
}

TEST(WordEdit, StampsOfWordsThatStayAreKept)
{
    EXPECT_EQ(edited(kHello, "hallo big world"),
        "<00:10.00>hal<00:11.00>lo <00:12.00>big <00:13.00>world<00:14.00>");
    EXPECT_EQ(edited(kHello, "hello wide big world"),
        "<00:10.00>hel<00:11.00>lo wide <00:12.00>big <00:13.00>world<00:14.00>");
    EXPECT_EQ(edited(kHello, "hello big big world"),
        "<00:10.00>hel<00:11.00>lo <00:12.00>big big <00:13.00>world<00:14.00>");
    EXPECT_EQ(edited(kHello, "oh hello big world!"),
        "oh <00:10.00>hel<00:11.00>lo <00:12.00>big <00:13.00>world!<00:14.00>");
}

TEST(WordEdit, StampsOfDeletedWordsGo)
{
    EXPECT_EQ(edited(kHello, "hello world"), "<00:10.00>hel<00:11.00>lo <00:13.00>world<00:14.00>");
    EXPECT_EQ(edited(kHello, "big world"), "<00:12.00>big <00:13.00>world<00:14.00>");
    EXPECT_EQ(edited(kHello, "hello"), "<00:10.00>hel<00:11.00>lo<00:14.00>");
    EXPECT_EQ(edited(kHello, " "), "");
}

TEST(WordEdit, WordsInThePlaceOfOthersTakeTheirStamps)
{
    EXPECT_EQ(edited(kHello, "hello big earth"),
        "<00:10.00>hel<00:11.00>lo <00:12.00>big <00:13.00>earth<00:14.00>");
    EXPECT_EQ(edited(kHello, "so xyz 走"), "<00:10.00>so <00:12.00>xyz <00:13.00>走<00:14.00>");
    EXPECT_EQ(edited("<00:10.00>world", "wide web"), "<00:10.00>wide web");
    EXPECT_EQ(edited("a <00:10.00>world", "a green sea"), "a <00:10.00>green sea");
    EXPECT_EQ(edited("ab<00:10.00>cd", "x y"), "<00:10.00>x y");
}

TEST(WordEdit, IdeographsAreWords)
{
    EXPECT_EQ(
        edited("<00:10.00>走<00:11.00>廊<00:12.00>里", "走进廊里"), "<00:10.00>走进<00:11.00>廊<00:12.00>里");
    EXPECT_EQ(edited("<00:10.00>走<00:11.00>廊<00:12.00>里", "走里"), "<00:10.00>走<00:12.00>里");
}

TEST(WordEdit, StampsAndBlanksRoundTheWordsStay)
{
    EXPECT_EQ(edited("<00:10.00> <00:11.00>a <00:12.00>", "b"), "<00:10.00> <00:11.00>b <00:12.00>");
    EXPECT_EQ(edited("<00:10.00><00:11.00>a", "xa"), "x<00:10.00><00:11.00>a");
}

TEST(WordEdit, WithoutStampsIsAnOrdinaryEdit)
{
    EXPECT_EQ(edited("hello", " two\nwords "), "two words");
    EXPECT_EQ(edited(kHello, "hello\nbig world"), kHello);
    RBEditSong title = built("[ti:x]");
    updateWithWords(title.aryLines()[0], "y");
    EXPECT_EQ(songs::written(title), "[ti:y]");
}

TEST(WordEdit, TypedStampsAreStamps)
{
    EXPECT_EQ(edited("<00:10.00>a", "a <00:11.00>b"), "<00:10.00>a <00:11.00>b");
    EXPECT_EQ(edited("<00:10.00>a", "a <00:1"), "<00:10.00>a <00:1");
}

/// Words without brackets, so that nothing becomes a stamp.
std::string anyWords(Random &random, bool withStamps)
{
    static constexpr std::array<std::string_view, 10> kWords
        = {"a", "b", "hel", "lo", " ", "  ", "走", "廊", "é", "　"};
    std::string text;
    for (std::size_t piece = random.below(10); piece > 0; --piece) {
        if (withStamps && random.oneIn(3))
            text += "<00:" + std::to_string(10 + random.below(50)) + ".00>";
        text += random.oneOf(kWords);
    }
    if (withStamps && random.oneIn(2))
        text += "<01:00.00>";
    return text;
}

TEST(WordEdit, TheWordsAreAlwaysThoseThatWereTyped)
{
    Random random(51);
    for (int round = 0; round < 20'000; ++round) {
        const std::string before = anyWords(random, true);
        const std::string words = anyWords(random, false);
        RBEditSong song = built("[00:09.00]" + before + "\n");
        RBSongLine &line = song.aryLines()[0];
        const std::vector<lyrics::WordStamp> old = wordStamps(line);
        updateWithWords(line, words);
        RBSongLine expected;
        expected.updateWithText(words);
        ASSERT_EQ(wordsOf(line), expected.lineText()) << before << '|' << words;
        // Stamps go, and none comes or changes its place among the others.
        auto next = old.begin();
        for (const lyrics::WordStamp &stamp : wordStamps(line)) {
            while (next != old.end() && next->millis != stamp.millis)
                ++next;
            ASSERT_NE(next, old.end()) << before << '|' << words << '|' << line.lineText();
            ++next;
        }
        ASSERT_EQ(built(songs::written(song)), song);
    }
}

TEST(WordEdit, WordsThatArePutInTakeNoStampAway)
{
    Random random(52);
    for (int round = 0; round < 5'000; ++round) {
        RBEditSong song = built("[00:09.00]x <00:10.00>" + anyWords(random, true) + "<00:50.00> y\n");
        RBSongLine &line = song.aryLines()[0];
        const std::size_t stamps = wordStamps(line).size();
        std::string words = wordsOf(line);
        std::size_t at = random.below(words.size() + 1);
        while (at < words.size() && (static_cast<unsigned char>(words[at]) & 0xC0U) == 0x80)
            ++at;
        words.insert(at, random.oneIn(2) ? "q" : " new words ");
        updateWithWords(line, words);
        ASSERT_EQ(wordStamps(line).size(), stamps) << words;
    }
}

TEST(WordEdit, OfAMillionWordsComesBack)
{
    std::string before;
    std::string words;
    for (int i = 0; i < 200'000; ++i) {
        before += "<00:10.00>a" + std::to_string(i) + " ";
        words += "b" + std::to_string(i) + " ";
    }
    const std::string after = edited(before, words);
    EXPECT_TRUE(after.starts_with("<00:10.00>b0 <00:10.00>b1 "));
}

} // namespace
