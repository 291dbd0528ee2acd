// SPDX-License-Identifier: MIT
//
// Texts that were made to hurt. Each is read, opened for writing, written and previewed at two sizes; what is
// asserted is the structure and the growth of what is allocated. A cost that grows with the square does not
// pass either: at two mebibytes it would not come back before the test's time is up.

#include "lyrics/CountedNew.h"
#include "lyrics/Encoding.h"
#include "lyrics/Issues.h"
#include "lyrics/LineOrder.h"
#include "lyrics/OffsetTag.h"
#include "lyrics/RBPreviewSong.h"
#include "lyrics/SongSupport.h"
#include "lyrics/Stretch.h"
#include "lyrics/WordStamps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kMebibyte = std::size_t(1) << 20;

std::string filled(std::string_view piece, std::size_t bytes)
{
    std::string text;
    text.reserve(bytes + piece.size());
    while (text.size() < bytes)
        text += piece;
    return text;
}

struct Hostile
{
    std::string name;
    std::function<std::string(std::size_t bytes)> text;
    /// How many lines it has for sure; 0 where that is not the point.
    std::size_t lines;
};

std::ostream &operator<<(std::ostream &out, const Hostile &hostile)
{
    return out << hostile.name;
}

Hostile repeatedPiece(std::string name, std::string piece, std::size_t lines)
{
    return {std::move(name), [piece](std::size_t bytes) { return filled(piece, bytes); }, lines};
}

Hostile around(std::string name, std::string before, std::string piece, std::string after, std::size_t lines)
{
    return {std::move(name),
        [=](std::size_t bytes) {
            return before + filled(piece, bytes - before.size() - after.size()) + after;
        },
        lines};
}

class HostileText : public testing::TestWithParam<Hostile>
{ };

counted::Work workOn(const std::string &text)
{
    return counted::by([&text] {
        RBEditSong song = songs::built(text);
        songs::touchAll(song);
        EXPECT_TRUE(songs::written(song) == text);
        if (!song.aryLines().empty()) {
            song.aryLines().front().appendTime(5);
            song.aryLines().back().updateWithText("x");
        }
        song.updateSongText();
        RBPreviewSong preview;
        preview.buildWithLrcText(text);
        EXPECT_EQ(RBPreviewSong::hasLines(text), !preview.aryLines().empty());
        static_cast<void>(preview.previewSongTextWithHasTag(false));
    });
}

TEST_P(HostileText, GrowsNoFasterThanItsSize)
{
    const counted::Work small = workOn(GetParam().text(kMebibyte));
    const counted::Work large = workOn(GetParam().text(2 * kMebibyte));
    EXPECT_LE(static_cast<double>(large.bytes), 2.5 * static_cast<double>(small.bytes));
    EXPECT_LE(static_cast<double>(large.allocations), 2.5 * static_cast<double>(small.allocations) + 64);
}

/// What is done on command only.
counted::Work commandsOn(const std::string &text)
{
    return counted::by([&text] {
        EXPECT_LE(lyrics::issuesOf(text).size(), 40 * lyrics::kMostIssuesOfOneCode);
        RBEditSong song = songs::built(text);
        for (RBSongLine &line : song.aryLines()) {
            const std::string words = lyrics::wordsOf(line);
            line.shiftAllTime(7);
            line.shiftAllTime(-7);
            lyrics::updateWithWords(line, words + "x");
        }
        song.updateSongText();
        RBEditSong other = songs::built(text);
        static_cast<void>(lyrics::bakeOffset(other, lyrics::OffsetSense::PositiveIsLater));
        lyrics::expandRepeats(other);
        lyrics::sortByTime(other);
        lyrics::collapseRepeats(other);
        static_cast<void>(lyrics::stretchTimes(other, {{0, 0}, {1'000, 1'500}}));
        other.updateSongText();
        static_cast<void>(lyrics::guessEncoding(text));
    });
}

TEST_P(HostileText, OnCommandGrowsNoFasterThanItsSize)
{
    const counted::Work small = commandsOn(GetParam().text(kMebibyte / 8));
    const counted::Work large = commandsOn(GetParam().text(kMebibyte / 4));
    EXPECT_LE(
        static_cast<double>(large.bytes), 2.5 * static_cast<double>(small.bytes) + 16.0 * double(kMebibyte));
    EXPECT_LE(static_cast<double>(large.allocations), 2.5 * static_cast<double>(small.allocations) + 64);
}

TEST_P(HostileText, HasTheLinesThatItHas)
{
    const std::size_t lines = songs::built(GetParam().text(2 * kMebibyte)).aryLines().size();
    EXPECT_GE(lines, 1U);
    if (GetParam().lines > 0) {
        EXPECT_EQ(lines, GetParam().lines);
    }
}

INSTANTIATE_TEST_SUITE_P(All, HostileText,
    testing::Values(repeatedPiece("ManyTimesOnOneLine", "[00:01.00]", 1),
        repeatedPiece("OpeningBrackets", "[", 1), repeatedPiece("OpenTimeTags", "[00:", 1),
        around("EndlessZeros", "[", "0", "", 1), repeatedPiece("OpeningAngles", "<", 1),
        repeatedPiece("EmptyBrackets", "[]", 1), repeatedPiece("OpenIdTags", "[a:", 1),
        around("NestedIdTag", "[ti:", "[", "", 1), around("BalancedNesting", "[ti:", "[]", "]", 1),
        repeatedPiece("IdTagsOnOneLine", "[ti:x]", 0),
        around("IdTagsThenAnOpenOne", "", "[ti:x]", "[ti:[[[[", 0), repeatedPiece("UnknownTags", "[x:y]", 0),
        around("UnknownTagsThenText", "", "[x:y]", "text", 0), around("LongWord", "[", "a", ":x]", 1),
        around("LongValue", "[ti:", "a", "]", 1), around("LongFraction", "[00:01.", "9", "]x", 1),
        around("LongMinutes", "[", "9", ":00]x", 1), repeatedPiece("Blanks", " ", 1),
        repeatedPiece("WideBlanks", "\xE3\x80\x80", 1), around("BlanksInATag", "[", " ", "00:01]x", 1),
        around("BlanksBetweenTags", "", "[00:01] \t", "x", 1),
        repeatedPiece("LineFeeds", "\n", 2 * kMebibyte),
        repeatedPiece("CarriageReturns", "\r", 2 * kMebibyte), repeatedPiece("Pairs", "\r\n", kMebibyte),
        repeatedPiece("TurnedPairs", "a\n\r", 0), repeatedPiece("ColonForms", "[00:01:02]x\n", 0),
        around("ColonFormsInHours", "[58:00.00]a\n", "[01:00:30]x\n", "", 0),
        repeatedPiece("Nul", std::string(1, '\0'), 1),
        repeatedPiece("ControlCharacters", "\x01\x1F\x7F\xC2\x9F", 1),
        repeatedPiece("Overlong", "\xC0\xAF", 1), repeatedPiece("Surrogates", "\xED\xA0\x80", 1),
        repeatedPiece("Marks", "\xEF\xBB\xBF", 1),
        repeatedPiece("Separators", "\xE2\x80\xA8\xE2\x80\xA9\xC2\x85", 1),
        repeatedPiece("RightToLeft", "\xE2\x80\xAE", 1), repeatedPiece("TimedLinesOfOneTime", "[00:01]\n", 0),
        repeatedPiece("FallingRepeats", "[00:09][00:08][00:07]x\n", 0),
        repeatedPiece("TagAndTextOnEachLine", "[ti:x][00:01]y\n", 0),
        around("WordStamps", "[00:01.00]", "<00:01.00>a", "", 1),
        repeatedPiece("WordStampsOnEachLine", "[00:01.00]<00:01.00>a\n", 0),
        around("OpenWordStamps", "x", "<00:01", "", 1), around("NearlyTimes", "x", "[1:1", "", 1),
        repeatedPiece("OffsetTags", "[offset:x]\n", 0), around("LongStampInAText", "x<", "0", ":00.00>y", 1),
        repeatedPiece("ManyWords", "a b ", 1)),
    [](const auto &hostile) { return hostile.param.name; });

TEST(HostileNumbers, AreText)
{
    for (const std::string &digits :
        {std::string("9223372036854775807"), std::string("18446744073709551617"), std::string(10'000, '9')}) {
        const std::string text = "[" + digits + ":00]x";
        EXPECT_EQ(songs::onlyLine(text), (songs::PlainLine{{}, text, {}}));
    }
    EXPECT_EQ(songs::onlyLine("[offset:-9223372036854775808]").text, "[offset:-9223372036854775808]");
}

TEST(HostileEdits, ManyLinesOnOnePhysicalLineAreWrittenInOneGo)
{
    RBEditSong song = songs::built(filled("[ti:x]", kMebibyte));
    const std::size_t count = song.aryLines().size();
    song.aryLines()[count / 2].updateWithText("y");
    const std::string text = songs::written(song);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 0);
    EXPECT_EQ(songs::built(text).aryLines().size(), count);
}

} // namespace
