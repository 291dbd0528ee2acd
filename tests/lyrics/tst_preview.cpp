// SPDX-License-Identifier: MIT
#include "lyrics/DisplayText.h"
#include "lyrics/Generator.h"
#include "lyrics/RBPreviewSong.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::Pair;

RBPreviewSong preview(std::string_view text)
{
    RBPreviewSong song;
    song.buildWithLrcText(text);
    return song;
}

/// Each line's start, and what its range addresses in the text.
std::vector<std::pair<double, std::u16string>> told(RBPreviewSong &song, bool hasTag)
{
    const std::u16string text = song.previewSongTextWithHasTag(hasTag);
    std::vector<std::pair<double, std::u16string>> lines;
    for (const RBPreviewLine &line : song.aryLines()) {
        EXPECT_LE(line.txtRg.location + line.txtRg.length, text.size());
        lines.emplace_back(line.playTime, text.substr(line.txtRg.location, line.txtRg.length));
    }
    return lines;
}

TEST(Preview, WithoutTimeTagsHasNoLines)
{
    EXPECT_TRUE(RBPreviewSong().aryLines().empty());
    EXPECT_TRUE(preview("").aryLines().empty());
    EXPECT_TRUE(preview("[ti:x]\nplain\n\n").aryLines().empty());
}

TEST(Preview, IsKnownToHaveLinesWithoutBeingBuilt)
{
    for (const std::string_view text :
        {"", "\xEF\xBB\xBF", "plain\r[ti:x]", "[xx:yy] text\n[xx:yy][00:01.00]text", "[offset:5]\n\n"})
        EXPECT_FALSE(RBPreviewSong::hasLines(text)) << text;
    for (const std::string_view text : {"[00:01.00]", "\xEF\xBB\xBF[00:01.00]a", "plain\r[00:01.00]b",
             "[xx:yy][00:01.00]text", "\n\n [01:02:03]c"})
        EXPECT_TRUE(RBPreviewSong::hasLines(text)) << text;
}

TEST(Preview, ShowsTagLinesOnlyOnRequest)
{
    RBPreviewSong song = preview("[ti:Title]\n[00:01.00]one\n[offset:5]\nplain\n[00:02.50]two\n");
    EXPECT_EQ(song.previewSongTextWithHasTag(true), u"Title\none\n[offset:5]\nplain\ntwo");
    EXPECT_EQ(song.previewSongTextWithHasTag(false), u"one\nplain\ntwo");
    for (const bool hasTag : {true, false})
        EXPECT_THAT(told(song, hasTag), ElementsAre(Pair(1.0, u"one"), Pair(2.5, u"two")));
}

TEST(Preview, HasRangesAsSoonAsItIsBuilt)
{
    const RBPreviewSong song = preview("[ti:T]\n[00:01.00]one\n");
    EXPECT_EQ(song.aryLines().at(0).txtRg, (RBTextRange{2, 3}));
}

TEST(Preview, RepeatsALineWhereItIsSungAgain)
{
    RBPreviewSong song = preview("[00:05.00][00:01.00][00:03.00]chorus\n[00:02.00]a\nstill a\n[00:04.00]b\n");
    EXPECT_EQ(song.previewSongTextWithHasTag(true), u"chorus\na\nstill a\nchorus\nb\nchorus");
    EXPECT_THAT(told(song, true),
        ElementsAre(Pair(1.0, u"chorus"), Pair(2.0, u"a"), Pair(3.0, u"chorus"), Pair(4.0, u"b"),
            Pair(5.0, u"chorus")));
}

TEST(Preview, KeepsLinesInDocumentOrder)
{
    RBPreviewSong song = preview("[00:09.00]late\n[00:01.00]early\n[00:01.00]same\n");
    EXPECT_THAT(told(song, true), ElementsAre(Pair(9.0, u"late"), Pair(1.0, u"early"), Pair(1.0, u"same")));
}

TEST(Preview, KeepsBlankAndEmptyTimedLines)
{
    RBPreviewSong song = preview("[00:01.00]a\n\n[00:02.00]\n[00:03.00]b");
    EXPECT_EQ(song.previewSongTextWithHasTag(false), u"a\n\n\nb");
    EXPECT_THAT(told(song, false), ElementsAre(Pair(1.0, u"a"), Pair(2.0, u""), Pair(3.0, u"b")));
}

TEST(Preview, CountsInUtf16Units)
{
    RBPreviewSong song = preview("[00:01.00]😀é\n[00:02.00]走\n");
    EXPECT_THAT(song.previewSongTextWithHasTag(true), u"😀é\n走");
    EXPECT_EQ(song.aryLines().at(0).txtRg, (RBTextRange{0, 3}));
    EXPECT_EQ(song.aryLines().at(1).txtRg, (RBTextRange{4, 1}));
}

TEST(Preview, CapsALineThatNoTextViewSurvives)
{
    RBPreviewSong song = preview("[00:01.00]" + std::string(1'000'000, 'x') + "\n[00:02.00]b");
    const std::u16string text = song.previewSongTextWithHasTag(true);
    EXPECT_EQ(text.size(), RBPreviewSong::kLongestLine + 1 + 2);
    EXPECT_THAT(told(song, true).back(), Pair(2.0, u"b"));
}

TEST(Preview, IsBuiltAnew)
{
    RBPreviewSong song = preview("[00:01.00]a\n[00:02.00]b");
    song.buildWithLrcText("[00:07.00]c");
    EXPECT_THAT(told(song, true), ElementsAre(Pair(7.0, u"c")));
    EXPECT_EQ(song.currentLineIndex(6.9), std::nullopt);
}

TEST(Preview, MakesEachLineOfItsTextWhenAsked)
{
    RBPreviewSong song = preview("[ti:T]\n[00:01.00][00:03.00]走\n\n[00:02.00]b\n");
    const auto text = song.textWithHasTag(false);
    EXPECT_THAT(text->lineStarts(), ElementsAre(0, 2, 3, 5, 7));
    EXPECT_EQ(text->line(0), u"走");
    EXPECT_EQ(text->line(1), u"");
    EXPECT_EQ(text->line(3), u"走");
    EXPECT_EQ(text->line(4), u"");
    song.buildWithLrcText("[00:07.00]c");
    EXPECT_EQ(text->whole(), u"走\n\nb\n走");
    EXPECT_THAT(RBPreviewSong().textWithHasTag(true)->lineStarts(), ElementsAre(0, 1));
}

TEST(Preview, BeginsAsTheWholeDoes)
{
    generate::Random random(33);
    for (int round = 0; round < 60; ++round) {
        std::string text;
        while (text.size() < 80'000)
            text
                += generate::anyText(random, 40, true) + "[00:" + std::to_string(random.below(60)) + "]x\r\n";
        RBPreviewSong song = preview(text);
        for (const bool hasTag : {true, false}) {
            const auto beginning = RBPreviewSong::beginningOf(text, hasTag);
            const auto whole = song.textWithHasTag(hasTag);
            const std::size_t lines = beginning->lineStarts().size() - 1;
            ASSERT_GT(lines, 100U);
            ASSERT_LT(lines, 2'600U);
            ASSERT_LT(lines, whole->lineStarts().size());
            for (std::size_t line = 0; line < lines; ++line)
                ASSERT_EQ(beginning->line(line), whole->line(line));
        }
    }
}

TEST(Preview, HasABeginningWhereTheWholeTakesLonger)
{
    EXPECT_EQ(RBPreviewSong::beginningOf("[00:01.00]a\n[00:02.00]b", true), nullptr);
    EXPECT_EQ(RBPreviewSong::beginningOf("", true), nullptr);
    EXPECT_EQ(RBPreviewSong::beginningOf(std::string(100'000, 'x'), true), nullptr);
    // A line end of two bytes is not torn.
    const std::string first(64 * 1024 - 3, 'x');
    EXPECT_EQ(RBPreviewSong::beginningOf("a\n" + first + "\r\nb\n", true)->whole(), u"a");
    EXPECT_EQ(RBPreviewSong::beginningOf("[ti:T]\na\n" + first + first, false)->whole(), u"a");
}

TEST(DisplayText, ReplacesWhatCannotBeShown)
{
    const auto shown = [](std::string_view text) {
        std::u16string out;
        lyrics::appendDisplayText(out, text);
        return out;
    };
    EXPECT_EQ(shown(std::string_view("a\0b\x01\x7F\tc", 7)),
        u"a\xFFFD"
        "b\xFFFD\xFFFD\tc");
    EXPECT_EQ(shown("a\xE2\x80\xA8"
                    "b\xE2\x80\xA9"
                    "c\xC2\x85"),
        u"a b c\xFFFD");
    EXPECT_EQ(shown("\xEF\xBF\xBC\xEF\xB7\x90\xEF\xBF\xBF"), u"\xFFFD\xFFFD\xFFFD");
    // Overlong, surrogate, cut off, stray: one mark for each maximal wrong part.
    EXPECT_EQ(shown("\xC0\xAF"), u"\xFFFD\xFFFD");
    EXPECT_EQ(shown("\xED\xA0\x80"), u"\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(shown("\xE6\x9D"), u"\xFFFD");
    EXPECT_EQ(shown("\xF0\x9F\x98x\xFF"), u"\xFFFDx\xFFFD");
    EXPECT_EQ(shown("\xF4\x90\x80\x80"), u"\xFFFD\xFFFD\xFFFD\xFFFD");
}

TEST(DisplayText, IsCutBeforeAPairAndNotInIt)
{
    std::u16string out;
    lyrics::appendDisplayText(out, "ab😀c", 3);
    EXPECT_EQ(out, u"ab…");
    out.clear();
    lyrics::appendDisplayText(out, "ab😀", 4);
    EXPECT_EQ(out, u"ab😀");
    out.clear();
    lyrics::appendDisplayText(out, "abc", 3);
    lyrics::appendDisplayText(out, "defg", 3);
    lyrics::appendDisplayText(out, "h\x01i", 1);
    EXPECT_EQ(out, u"abcdef…h…");
}

TEST(DisplayText, IsMeasuredAsItIsShown)
{
    using Extent = std::pair<std::size_t, std::size_t>;
    const auto extent = [](std::string_view text, std::size_t units) {
        const lyrics::DisplayExtent found = lyrics::displayExtent(text, units);
        return Extent(found.bytes, found.units);
    };
    EXPECT_EQ(extent("abc", 0), Extent(0U, 0U));
    EXPECT_EQ(extent("abc", 2), Extent(2U, 2U));
    EXPECT_EQ(extent("abc", 9), Extent(3U, 3U));
    EXPECT_EQ(extent("走\xFF\xE6\x9D廊", 3), Extent(6U, 3U));
    // Half a pair is none.
    EXPECT_EQ(extent("😀c", 1), Extent(4U, 2U));
    for (std::string_view text : {"", "a\xE2\x80\xA8", "\xED\xA0\x80😀", "\xF0\x9F\x98x\xFF\xC2\x85"}) {
        std::u16string shown;
        lyrics::appendDisplayText(shown, text);
        EXPECT_EQ(extent(text, 99), Extent(text.size(), shown.size())) << text;
        EXPECT_EQ(lyrics::displayLength(text), shown.size()) << text;
        shown.clear();
        lyrics::appendDisplayText(shown, text, 1);
        EXPECT_EQ(lyrics::displayLength(text, 1), shown.size()) << text;
    }
}

TEST(CurrentLine, IsTheLastThatStartsNotAfterThePosition)
{
    const RBPreviewSong song = preview("[00:01.00]a\n[00:02.00]b\n[00:02.00]c\n");
    EXPECT_EQ(song.currentLineIndex(0.999), std::nullopt);
    EXPECT_EQ(song.currentLineIndex(1.0), 0U);
    EXPECT_EQ(song.currentLineIndex(2.0), 2U);
    EXPECT_EQ(song.currentLineIndex(1e9), 2U);
    EXPECT_EQ(song.currentLineIndex(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
    EXPECT_EQ(RBPreviewSong().currentLineIndex(5), std::nullopt);
}

TEST(CurrentLine, EqualsTheWalkFromTheEnd)
{
    generate::Random random(31);
    for (int round = 0; round < 500; ++round) {
        std::string text;
        for (std::size_t line = random.below(40); line > 0; --line)
            text += "[00:" + std::to_string(10 + random.below(50)) + "]x\n";
        const RBPreviewSong song = preview(text);
        for (const double position :
            {-1.0, 0.0, 9.9, 10.0, 23.0, 23.5, 41.0, 59.0, 60.0, std::nan(""), HUGE_VAL}) {
            std::optional<std::size_t> expected;
            for (std::size_t i = song.aryLines().size(); i-- > 0 && !expected;) {
                if (song.aryLines()[i].playTime <= position)
                    expected = i;
            }
            ASSERT_EQ(song.currentLineIndex(position), expected) << position;
        }
    }
}

TEST(Preview, HoldsForAnyText)
{
    generate::Random random(32);
    for (int round = 0; round < 2'000; ++round) {
        const std::string text = generate::anyText(random, 10, true);
        RBPreviewSong song = preview(text);
        RBEditSong lines;
        lines.buildWithLrcText(text);
        std::size_t times = 0;
        for (const RBSongLine &line : lines.aryLines())
            times += line.isProperty() ? 0 : line.aryTimes().count();
        ASSERT_EQ(song.aryLines().size(), times);
        ASSERT_EQ(RBPreviewSong::hasLines(text), times > 0) << text;
        for (const bool hasTag : {true, false}) {
            const std::u16string shown = song.previewSongTextWithHasTag(hasTag);
            ASSERT_EQ(shown.size() + 1, song.textWithHasTag(hasTag)->lineStarts().back());
            for (const RBPreviewLine &line : song.aryLines()) {
                const std::size_t end = line.txtRg.location + line.txtRg.length;
                ASSERT_LE(end, shown.size());
                ASSERT_TRUE(end == shown.size() || shown[end] == u'\n');
                ASSERT_TRUE(line.txtRg.location == 0 || shown[line.txtRg.location - 1] == u'\n');
            }
        }
    }
}

} // namespace
