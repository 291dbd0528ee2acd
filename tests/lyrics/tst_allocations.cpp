// SPDX-License-Identifier: MIT
#include "lyrics/CountedNew.h"
#include "lyrics/RBPreviewSong.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

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

TEST(Allocations, WritingAfterEditsDoesNotAllocateByTheLine)
{
    RBEditSong song;
    song.buildWithLrcText(repeated("[00:12.34][00:13.00]hello\n", kLines));
    for (RBSongLine &line : song.aryLines())
        line.shiftAllTime(7);
    EXPECT_LE(counted::by([&] { song.updateSongText(); }).allocations, 8U);
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

} // namespace
