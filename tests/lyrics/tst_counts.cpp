// SPDX-License-Identifier: MIT
//
// What the model's speed rests on and no clock has to say: allocations, comparisons of a look-up, lines
// touched by an edit. The times themselves are printed by bench/lyrics. What an edit of the line editor and
// its undoing cost is counted in tests/editor/tst_counts.cpp.

#include "lyrics/CountedNew.h"
#include "lyrics/RBPreviewSong.h"
#include "lyrics/StartSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kLines = 10'000;

std::string repeated(std::string_view line, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += line;
    return text;
}

TEST(Allocations, ALineIsSmall)
{
    EXPECT_LE(sizeof(RBSongLine), 64U);
}

TEST(Allocations, BuildingDoesNotAllocateByTheLine)
{
    const std::string text = "[ti:x]\n" + repeated("[00:12.34][01:02.30]hello\n\n", kLines);
    RBEditSong song;
    const counted::Work work = counted::by([&] { song.buildWithLrcText(text); });
    EXPECT_LE(work.allocations, 4U);
    EXPECT_LE(work.bytes, text.size() + (2 * kLines + 1) * sizeof(RBSongLine) + 256);
}

TEST(Allocations, LinesOfManyTimesDoNotAllocateByTheLine)
{
    const std::string text = repeated("[00:12.34][01:02.30][02:00.00][03:00.00][04:00.00]hello\n", kLines);
    RBEditSong song;
    const counted::Work work = counted::by([&] { song.buildWithLrcText(text); });
    EXPECT_LE(work.allocations, 30U);
}

TEST(Allocations, AnUntouchedDocumentIsWrittenWithoutAny)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34]hello\n", kLines));
    EXPECT_EQ(counted::by([&] { song.updateSongText(); }).allocations, 0U);
}

TEST(Allocations, WritingAfterEditsNeedsTheTextAlone)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34][00:13.00]hello\n", kLines));
    song.aryLines()[kLines / 2].shiftAllTime(10);
    EXPECT_EQ(counted::by([&] { song.updateSongText(); }).allocations, 1U);
    for (RBSongLine &line : song.aryLines())
        line.shiftAllTime(7);
    EXPECT_EQ(counted::by([&] { song.updateSongText(); }).allocations, 1U);
}

TEST(Allocations, WritingTagsThatHaveToBeReadAgainDoesNotAllocateByTheLine)
{
    RBEditSong song;
    song.buildWithLrcText(repeated(" [0:12.3] [00:13.000]hello\n", kLines));
    for (RBSongLine &line : song.aryLines())
        line.shiftAllTime(7);
    EXPECT_LE(counted::by([&] { song.updateSongText(); }).allocations, 8U);
}

TEST(Allocations, ShiftingAllNeedsNone)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34][00:13.00]hello\n", kLines));
    const counted::Work work = counted::by([&] {
        for (RBSongLine &line : song.aryLines())
            line.shiftAllTime(7);
    });
    EXPECT_EQ(work.allocations, 0U);
}

TEST(Allocations, EqualityAndSearchNeedNone)
{
    const std::string text = repeated("[00:12.34][00:13.00][00:14.00]hello\n", kLines);
    RBEditSong a;
    RBEditSong b;
    RBPreviewSong preview;
    a.buildWithLrcText(text);
    b.buildWithLrcText(text);
    preview.buildWithLrcText(text);
    b.aryLines()[5].shiftAllTime(1);
    b.aryLines()[5].shiftAllTime(-1);
    const counted::Work work = counted::by([&] {
        EXPECT_TRUE(a == b);
        EXPECT_TRUE(preview.currentLineIndex(13.0).has_value());
    });
    EXPECT_EQ(work.allocations, 0U);
}

TEST(Allocations, WhetherAPreviewHasLinesIsReadOffItsBeginning)
{
    const std::string text = "[ti:x]\n\n" + repeated("[00:12.34]hello\n", kLines);
    const counted::Work work = counted::by([&] { EXPECT_TRUE(RBPreviewSong::hasLines(text)); });
    EXPECT_LE(work.bytes, 2000U);
}

TEST(Allocations, APreviewLaysItsTextOutOnce)
{
    const std::string text = "[ti:x]\n" + repeated("[00:12.34]hello\n", kLines);
    const std::size_t shown = (kLines * 6 + 2) * sizeof(char16_t);
    RBPreviewSong song;
    const counted::Work building = counted::by([&] { song.buildWithLrcText(text); });
    EXPECT_LE(building.allocations, 60U);
    const counted::Work layingOut = counted::by([&] {
        EXPECT_EQ(song.previewSongTextWithHasTag(true).size(), kLines * 6 + 1);
        EXPECT_EQ(song.aryLines().back().txtRg, (RBTextRange{kLines * 6 - 4, 5}));
    });
    EXPECT_LT(layingOut.bytes, 2 * (text.size() + 1) * sizeof(char16_t));
    EXPECT_GE(layingOut.bytes, shown);
}

TEST(Allocations, ACopyOfADocumentSharesItsText)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34][00:13.00][00:14.00]hello\n", kLines));
    const counted::Work work = counted::by([&] { const RBEditSong copy(song); });
    EXPECT_EQ(work.allocations, 1U);
    EXPECT_EQ(work.bytes, kLines * sizeof(RBSongLine));
}

TEST(Allocations, AStampOnAUsualLineNeedsNone)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34]hello\n", kLines));
    EXPECT_EQ(counted::by([&] { song.aryLines()[kLines / 2].appendTime(5); }).allocations, 0U);
}

/// A time that counts how often it is compared.
struct CountedStart
{
    double seconds = 0;
    static inline std::size_t comparisons = 0;

    friend bool operator<=(const CountedStart &start, double position)
    {
        ++comparisons;
        return start.seconds <= position;
    }
};

TEST(LookUp, ComparesAtMostTwiceTheLogarithmOfTheLines)
{
    for (const std::size_t lines : {2U, 3U, 66U, 1'000U, 100'000U}) {
        std::vector<CountedStart> starts(lines);
        for (std::size_t i = 0; i < lines; ++i)
            starts[i].seconds = static_cast<double>(i);
        const auto most = static_cast<std::size_t>(2 * std::log2(lines));
        for (std::size_t step = 0; step <= 100; ++step) {
            const double position = static_cast<double>(lines * step) / 100 - 0.5;
            CountedStart::comparisons = 0;
            const auto found = lyrics::lastNotAfter(std::span<const CountedStart>(starts), position);
            EXPECT_LE(CountedStart::comparisons, most) << lines << " lines at " << position;
            EXPECT_EQ(found.has_value(), position >= 0);
        }
    }
}

std::ptrdiff_t touchedLines(const RBEditSong &song)
{
    return std::count_if(song.aryLines().begin(), song.aryLines().end(),
        [](const RBSongLine &line) { return line.aryTimes().isTouched(); });
}

TEST(TouchedLines, AreOnlyThoseThatAreEdited)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34]hello\n", kLines));
    EXPECT_EQ(touchedLines(song), 0);
    const RBSongLine *lines = song.aryLines().data();
    const RBSongLine before = song.aryLines()[7];
    song.aryLines()[7].appendTime(5);
    EXPECT_EQ(touchedLines(song), 1);
    song.aryLines()[7].shiftAllTime(200);
    EXPECT_EQ(touchedLines(song), 1);
    song.aryLines()[7] = before;
    EXPECT_EQ(touchedLines(song), 1);
    EXPECT_EQ(song.aryLines().data(), lines);
}

TEST(TouchedLines, AreNoneOfACopyThatIsComparedAndWritten)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34]hello\n", kLines));
    RBEditSong copy = song;
    EXPECT_TRUE(copy == song);
    copy.updateSongText();
    EXPECT_EQ(touchedLines(song), 0);
    EXPECT_EQ(touchedLines(copy), 0);
}

} // namespace
