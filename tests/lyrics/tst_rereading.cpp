// SPDX-License-Identifier: MIT
//
// What was written is read again: nothing may change its meaning on that road, and what nobody edited must
// not be respelled to keep it.
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace {

using songs::built;
using songs::plain;
using songs::PlainLine;
using songs::written;

void untag(RBSongLine &line)
{
    line.setIsProperty(false);
    line.setPropertyStr("");
    line.aryTimes().removeAllObjects();
}

RBSongLine lineOf(std::string_view text)
{
    RBSongLine line = RBSongLine::emptyLine();
    line.updateWithText(text);
    return line;
}

TEST(ColonForm, StaysWhenAnotherLineIsReadAsATag)
{
    // Any difference between the lines and what is read of them had all colon forms respelled.
    RBEditSong song = built("[00:12:34]a\n[00:13:40]b\nfoo\n");
    song.aryLines()[2].updateWithText("[ti:x]");
    EXPECT_EQ(written(song), "[00:12:34]a\n[00:13:40]b\n[ti:x]\n");
    song.aryLines()[2].updateWithText("[00:20.00]x");
    EXPECT_EQ(written(song), "[00:12:34]a\n[00:13:40]b\n[00:20.00]x\n");
}

TEST(ColonForm, StaysWhenAValueDoesNotBalance)
{
    RBEditSong song = built("[00:12:34]a\n[00:13:40]b\n[ti:foo]\n");
    song.aryLines()[2].updateWithText("Songs: foo]");
    EXPECT_EQ(written(song), "[00:12:34]a\n[00:13:40]b\n[ti:Songs: foo]]\n");
}

TEST(ColonForm, StaysWhenATimeIsTakenFromATag)
{
    RBEditSong song = built("[00:12:34]a\n[00:13.00][ti:x]\n");
    untag(song.aryLines()[1]);
    EXPECT_EQ(written(song), "[00:12:34]a\n[ti:x]\n");
}

TEST(ColonForm, IsRespelledWhenATypedTimeChangesTheReading)
{
    RBEditSong song = built("[58:00.00]a\n[01:00:30]b\nfoo\n");
    ASSERT_EQ(plain(song.aryLines()[1]).times.front(), 3'630'000);
    song.aryLines()[2].updateWithText("[00:75:10]x");
    EXPECT_EQ(written(song), "[58:00.00]a\n[60:30.00]b\n[00:75:10]x\n");
}

TEST(ColonForm, OfTheLinesThatAreFewerGivesWay)
{
    // A pasted line with the other reading had the whole document respelled.
    RBEditSong hours = built("[58:00.00]a\n[01:00:30]b\n");
    RBEditSong song = built("[00:12:34]a\n[00:13:40]b\n");
    song.insertLine_atIndex(hours.aryLines()[1].copy(), 2);
    EXPECT_EQ(written(song), "[00:12:34]a\n[00:13:40]b\n[60:30.00]b\n");
    hours.insertLine_atIndex(built("[62:12:34]c").aryLines()[0].copy(), 2);
    hours.insertLine_atIndex(built("[58:00.00]a\n[01:02:30]d\n").aryLines()[1].copy(), 3);
    EXPECT_EQ(written(hours), "[58:00.00]a\n[01:00:30]b\n[62:12.34]c\n[01:02:30]d\n");
}

TEST(ColonForm, ThatWasRetimedHasNoSayAnyMore)
{
    RBEditSong hours = built("[58:00.00]a\n[01:00:30]b\n");
    RBEditSong song = built("[00:12:34]a\n");
    song.insertLine_atIndex(hours.aryLines()[1].copy(), 1);
    song.aryLines()[1].aryTimes()[0] = 20'000;
    EXPECT_EQ(written(song), "[00:12:34]a\n[00:20.00]b\n");
}

TEST(ByteOrderMark, AloneInTheFirstLineIsALine)
{
    // It was written without a line end, taken for the mark of the document, and the line was gone.
    RBEditSong song = built("[00:12:34]\r\xEF\xBB\xBF[00:99.00]");
    const std::array<std::size_t, 1> row = {0};
    song.deleteLineAtIndexs(row);
    untag(song.aryLines()[0]);
    EXPECT_EQ(written(song), "\xEF\xBB\xBF\r");
    EXPECT_EQ(built(song.songText()), song);
    RBEditSong copied = built("a\n\xEF\xBB\xBF");
    copied.deleteLineAtIndexs(row);
    EXPECT_EQ(written(copied), "\xEF\xBB\xBF\n");
    EXPECT_EQ(built(copied.songText()), copied);
}

TEST(ByteOrderMark, BehindThatOfTheDocumentNeedsNoLineEnd)
{
    RBEditSong song = built("\xEF\xBB\xBF"
                            "a\n\xEF\xBB\xBF");
    const std::array<std::size_t, 1> row = {0};
    song.deleteLineAtIndexs(row);
    EXPECT_EQ(written(song), "\xEF\xBB\xBF\xEF\xBB\xBF");
    EXPECT_EQ(built(song.songText()), song);
}

TEST(ByteOrderMark, BeforeWhatIsNowTheFirstTextBecomesThatOfTheDocument)
{
    for (const std::string rest : {"b", "\n", "[ti:x]\n", " [00:01.00]b"}) {
        RBEditSong song = built("a\n\xEF\xBB\xBF" + rest);
        const std::array<std::size_t, 1> row = {0};
        song.deleteLineAtIndexs(row);
        EXPECT_EQ(written(song), "\xEF\xBB\xBF" + rest) << "no byte of it was edited";
        EXPECT_EQ(built(song.songText()), song) << rest;
    }
}

TEST(UnknownTag, IsPartedFromTheNextWhenTheLyricBeginsBeforeIt)
{
    // It is no key any more, and took the title behind it along into one line of text.
    RBEditSong song = built("[ar:y]\n[ar:q][x:y] [ti:z]\r\n[x:y][00:01.00]a\r\n");
    song.insertLine_atIndex(lineOf("hello"), 1);
    EXPECT_EQ(written(song), "[ar:y]\nhello\r\n[ar:q]\r\n[x:y]\r\n [ti:z]\r\n[x:y]\r\n[00:01.00]a\r\n");
    EXPECT_EQ(built(song.songText()), song);
    const std::array<std::size_t, 1> row = {1};
    song.deleteLineAtIndexs(row);
    EXPECT_EQ(written(song), "[ar:y]\n[ar:q][x:y] [ti:z]\r\n[x:y][00:01.00]a\r\n")
        << "nothing is left behind";
}

TEST(UnknownTag, GoesOnSharingWhereNoLyricBeginsBeforeIt)
{
    for (const std::string_view above : {"", "[ti:x]", "[offset:5]", "[q:r]", "[q:r][s:t]", "[ti:x][q:r]"}) {
        RBEditSong song = built("[x:y][ti:z]\n");
        song.insertLine_atIndex(lineOf(above), 0);
        EXPECT_EQ(written(song), std::string(above) + "\n[x:y][ti:z]\n");
    }
    RBEditSong known = built("[offset:5][ti:z]\n");
    known.insertLine_atIndex(lineOf("hello"), 0);
    EXPECT_EQ(written(known), "hello\n[offset:5][ti:z]\n");
}

TEST(UnknownTag, LosesWhatItJoinedWhenItIsLeftAlone)
{
    RBEditSong song = built("[x:y][ti:z]\nb\n");
    const std::array<std::size_t, 1> row = {1};
    song.deleteLineAtIndexs(row);
    song.insertLine_atIndex(lineOf("hello"), 0);
    EXPECT_EQ(written(song), "hello\n[x:y]\nb\n");
    EXPECT_EQ(built(song.songText()), song);
}

TEST(UnknownTag, OfATextIsAKeyWhenTheLyricBeforeItGoes)
{
    // Only other bytes could say that it is text, and nobody edited it.
    RBEditSong song = built("hello\n[x:y][ti:z]\n");
    const std::array<std::size_t, 1> row = {0};
    song.deleteLineAtIndexs(row);
    EXPECT_EQ(song.aryLines().at(0).lineText(), "[x:y][ti:z]");
    EXPECT_EQ(written(song), "[x:y][ti:z]\n");
    const RBEditSong again = built(song.songText());
    ASSERT_EQ(again.aryLines().size(), 2U);
    EXPECT_EQ(plain(again.aryLines()[0]), (PlainLine{{}, "[x:y]", {}}));
    EXPECT_EQ(plain(again.aryLines()[1]), (PlainLine{{}, "z", "ti"}));
}

} // namespace
