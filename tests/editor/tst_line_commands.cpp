// SPDX-License-Identifier: MIT
//
// What the commands do to a document, without a table.
#include "editor/LineClipboard.h"
#include "editor/LineCommands.h"
#include "editor/SongChanges.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace {

using songs::built;

/// A document and what was done to it.
struct Desk
{
    explicit Desk(std::string_view text) : song(built(text)) { }

    [[nodiscard]] std::string text() { return songs::written(song); }

    RBEditSong song;
    editor::SongChanges changes{song};
};

editor::LineSelection row(int row)
{
    return {row, {{row, row}}};
}

/// The lines that are made before a line timed `first`.
std::string insertedBefore(std::string_view first)
{
    Desk desk(std::string(first) + "a\n");
    EXPECT_TRUE(editor::insertBefore(desk.changes, row(0)));
    return desk.text();
}

TEST(LineCommands, ALineBeforeIsTwoTenthsEarlierButNotBeforeTheStart)
{
    EXPECT_EQ(insertedBefore("[00:00.15]"), "[00:00.00]\n[00:00.15]a\n");
    EXPECT_EQ(insertedBefore("[00:00.20]"), "[00:00.00]\n[00:00.20]a\n");
    EXPECT_EQ(insertedBefore("[00:00.201]"), "[00:00.001]\n[00:00.201]a\n");
    EXPECT_EQ(insertedBefore(""), "\na\n");
    EXPECT_EQ(insertedBefore("[00:10.00][00:20.00]"), "[00:09.80]\n[00:10.00][00:20.00]a\n");
}

TEST(LineCommands, ALineAfterTakesTheTimeOfTheSelectedRowAndThePlaceOfTheLast)
{
    Desk desk("0\n1\n[00:10.00]2\n3\n4\n[00:50.00]5\n6\n");
    EXPECT_TRUE(editor::insertAfter(desk.changes, {2, {{2, 2}, {5, 5}}}));
    EXPECT_EQ(desk.text(), "0\n1\n[00:10.00]2\n3\n4\n[00:50.00]5\n[00:10.20]\n6\n");
}

TEST(LineCommands, ALineAfterAnUntimedOneIsUntimed)
{
    Desk desk("a\n");
    EXPECT_TRUE(editor::insertAfter(desk.changes, row(0)));
    EXPECT_EQ(desk.text(), "a\n\n");
}

TEST(LineCommands, ADuplicateHasTheTimesTheTagAndTheSpelling)
{
    Desk desk("[AR: x ]\n[0:1.5][00:02]  b");
    EXPECT_TRUE(editor::duplicate(desk.changes, row(1)));
    EXPECT_TRUE(editor::duplicate(desk.changes, row(0)));
    EXPECT_EQ(desk.text(), "[AR: x ]\n[AR: x ]\n[0:1.5][00:02]  b\n[0:1.5][00:02]  b");
}

TEST(LineCommands, WithoutASelectedLineNothingIsMade)
{
    Desk desk("a\n");
    const editor::LineSelection none;
    EXPECT_FALSE(editor::insertBefore(desk.changes, none));
    EXPECT_FALSE(editor::insertAfter(desk.changes, none));
    EXPECT_FALSE(editor::duplicate(desk.changes, none));
    EXPECT_FALSE(editor::paste(desk.changes, none, desk.song.aryLines()));
    EXPECT_FALSE(editor::paste(desk.changes, row(7), desk.song.aryLines()));
    EXPECT_FALSE(editor::merge(desk.changes, none.rows));
    EXPECT_FALSE(editor::moveUp(desk.changes, none.rows));
    EXPECT_FALSE(editor::split(desk.changes, -1, {}, {}));
    EXPECT_TRUE(desk.changes.isEmpty());
}

TEST(LineCommands, PastedLinesFollowTheTimeOfTheLineAboveThem)
{
    Desk desk("[01:00.00][02:00.00]anchor\nrest\n");
    const auto copied = built("[00:01.00][00:05.00]a\nb\n[00:03.00]c\n");
    EXPECT_TRUE(editor::paste(desk.changes, row(0), copied.aryLines()));
    EXPECT_EQ(desk.text(), "[01:00.00][02:00.00]anchor\n[01:00.20]a\n[01:00.40]b\n[01:00.60]c\nrest\n");
}

TEST(LineCommands, BelowAnUntimedLinePastedLinesKeepTheirTimes)
{
    Desk desk("anchor\n");
    const auto copied = built("[00:01.00][00:05.00]a\nb\n");
    EXPECT_TRUE(editor::paste(desk.changes, row(0), copied.aryLines()));
    EXPECT_EQ(desk.text(), "anchor\n[00:01.00][00:05.00]a\nb\n");
}

TEST(LineCommands, PastingGoesBelowTheHighestRowAndTwiceAheadOfTheFirst)
{
    Desk desk("0\n1\n[00:02.00]2\n3\n");
    const auto copied = built("x\n");
    EXPECT_TRUE(editor::paste(desk.changes, {0, {{0, 0}, {2, 2}}}, copied.aryLines()));
    EXPECT_TRUE(editor::paste(desk.changes, row(2), built("y\n").aryLines()));
    EXPECT_EQ(desk.text(), "0\n1\n[00:02.00]2\n[00:02.20]y\n[00:02.20]x\n3\n");
}

TEST(LineCommands, CopiesAreInTheOrderOfTheDocumentAndIndependent)
{
    Desk desk("0\n1\n2\n3\n4\n");
    const auto copies = editor::copyOf(desk.song, {{1, 2}, {4, 9}});
    desk.changes.change(1, [](RBSongLine &line) { line.updateWithText("changed"); });
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[0].lineText(), "1");
    EXPECT_EQ(copies[1].lineText(), "2");
    EXPECT_EQ(copies[2].lineText(), "4");
}

TEST(LineCommands, LinesMoveUntilTheyMeetTheEnd)
{
    Desk desk("0\n1\n2\n3\n4\n");
    const auto up = editor::moveUp(desk.changes, {{0, 0}, {2, 2}, {4, 4}});
    ASSERT_TRUE(up);
    EXPECT_EQ(*up, (kit::RowRanges{{0, 0}, {1, 1}, {3, 3}}));
    EXPECT_EQ(desk.text(), "0\n2\n1\n4\n3\n");
    EXPECT_FALSE(editor::moveUp(desk.changes, {{0, 0}}));
    const auto down = editor::moveDown(desk.changes, {{1, 2}, {4, 4}});
    ASSERT_TRUE(down);
    EXPECT_EQ(*down, (kit::RowRanges{{2, 3}, {4, 4}}));
    EXPECT_EQ(desk.text(), "0\n4\n2\n1\n3\n");
    EXPECT_FALSE(editor::moveDown(desk.changes, {{0, 4}}));
}

TEST(LineCommands, RunsThatMeetAtTheEndStandStill)
{
    Desk desk("0\n1\n2\n");
    EXPECT_FALSE(editor::moveUp(desk.changes, {{0, 0}, {1, 1}}));
    EXPECT_FALSE(editor::moveDown(desk.changes, {{1, 1}, {2, 2}}));
    EXPECT_TRUE(desk.changes.isEmpty());
}

TEST(LineCommands, MergingKeepsTheFirstTimesAndJoinsTheWords)
{
    Desk desk("[00:01.00]one\n[00:02.00]two\nthree\n");
    EXPECT_EQ(editor::merge(desk.changes, {{0, 0}}), 0);
    EXPECT_EQ(desk.text(), "[00:01.00]one two\nthree\n");
    EXPECT_EQ(editor::merge(desk.changes, {{0, 1}}), 0);
    EXPECT_EQ(desk.text(), "[00:01.00]one two three\n");
    EXPECT_FALSE(editor::merge(desk.changes, {{0, 0}}));
}

TEST(LineCommands, MergingAnUntimedLineTakesTheTimesOfTheNext)
{
    Desk desk("one\n[00:02.00]two\n[00:03.00]three\n");
    EXPECT_EQ(editor::merge(desk.changes, {{0, 2}}), 0);
    EXPECT_EQ(desk.text(), "[00:02.00]one two three\n");
}

TEST(LineCommands, MergingPutsNoBlankBetweenHanAndNoneBesideNothing)
{
    Desk desk("走\n廊\n\nend\n");
    EXPECT_EQ(editor::merge(desk.changes, {{0, 0}}), 0);
    EXPECT_EQ(editor::merge(desk.changes, {{1, 1}}), 1);
    EXPECT_EQ(desk.text(), "走廊\nend\n");
}

TEST(LineCommands, SplittingKeepsTheTimesOnTheFirstPartAndEveryByte)
{
    Desk desk("[0:1.5] one\xFFtwo\r\nrest\r\n");
    EXPECT_TRUE(editor::split(desk.changes, 0, QStringLiteral("one\uFFFD"), QStringLiteral("two")));
    EXPECT_EQ(desk.text(), "[0:1.5] one\xFF\r\ntwo\r\nrest\r\n");
}

TEST(LineCommands, SplittingTellsBytesApartThatLookAlike)
{
    Desk desk("\xE0 moi \xE9tait\n");
    EXPECT_TRUE(editor::split(desk.changes, 0, QStringLiteral("\uFFFD moi "), QStringLiteral("\uFFFDtait")));
    EXPECT_EQ(desk.text(), "\xE0 moi\n\xE9tait\n");
}

TEST(LineCommands, SplittingTakesTheStampsOfTheWordsAlong)
{
    Desk desk("[00:01.00]<00:01.00>one <00:02.00>two <00:03.00>three\n");
    EXPECT_TRUE(editor::split(desk.changes, 0, QStringLiteral("one "), QStringLiteral("two three")));
    EXPECT_EQ(desk.text(), "[00:01.00]<00:01.00>one\n<00:02.00>two <00:03.00>three\n");
}

TEST(LineCommands, PastingIntoAStampedTextKeepsItsStamps)
{
    Desk desk("[00:01.00]<00:01.00>one <00:02.00>two\n");
    ASSERT_TRUE(editor::pasteIntoText(
        desk.changes, 0, QStringLiteral("one "), QStringLiteral("two"), QStringLiteral("x\ny ")));
    EXPECT_EQ(desk.text(), "[00:01.00]<00:01.00>one x\ny<00:02.00>two\n");
}

TEST(LineCommands, WordsFromElsewhereBecomeLinesWithTheDocumentsLineEnds)
{
    Desk desk("[00:01.00]a\r\n[00:09.00]b\r\n");
    const auto rows = editor::pasteText(desk.changes, row(0), QStringLiteral("one\n\ntwo\n"));
    ASSERT_TRUE(rows);
    EXPECT_EQ(*rows, (kit::RowRange{1, 3}));
    EXPECT_EQ(desk.text(), "[00:01.00]a\r\none\r\n\r\ntwo\r\n[00:09.00]b\r\n");
}

TEST(LineCommands, LrcFromElsewhereKeepsItsTimesAndTags)
{
    Desk desk("");
    ASSERT_TRUE(editor::pasteText(desk.changes, {},
        QStringLiteral("\uFEFF[ti:T][ar:A]\r\n[00:01.25][01:00]x <00:02.00>y\r\n[offset:+5]\r\n")));
    EXPECT_EQ(desk.text(), "[ti:T]\n[ar:A]\n[00:01.25][01:00.00]x <00:02.00>y\n[offset:+5]\n");
}

TEST(LineCommands, PastedWordsTakeThePlaceOfAnEmptyLine)
{
    Desk desk("\n");
    ASSERT_TRUE(editor::pasteText(desk.changes, row(0), QStringLiteral("one\u2028two")));
    EXPECT_EQ(desk.text(), "one\ntwo\n");
}

TEST(LineCommands, WithNothingSelectedWordsGoToTheEnd)
{
    Desk desk("a\n");
    ASSERT_TRUE(editor::pasteText(desk.changes, {}, QStringLiteral("b")));
    EXPECT_EQ(desk.text(), "a\nb\n");
}

TEST(LineCommands, BlanksAreNoWords)
{
    Desk desk("a\n");
    EXPECT_FALSE(editor::pasteText(desk.changes, row(0), QStringLiteral(" \n\t\r\n")));
    EXPECT_FALSE(editor::pasteText(desk.changes, row(0), QString()));
    EXPECT_TRUE(desk.changes.isEmpty());
}

TEST(LineCommands, WordsPastedIntoATextContinueIt)
{
    Desk desk("[00:01.00]heend\nrest\n");
    const auto rows = editor::pasteIntoText(
        desk.changes, 0, QStringLiteral("he"), QStringLiteral("end"), QStringLiteral("llo\nmiddle\nthe "));
    ASSERT_TRUE(rows);
    EXPECT_EQ(*rows, (kit::RowRange{0, 2}));
    EXPECT_EQ(desk.text(), "[00:01.00]hello\nmiddle\ntheend\nrest\n");
}

TEST(LineCommands, LrcPastedIntoATextStandsBelowItOrInThePlaceOfAnEmptyLine)
{
    Desk desk("a\n\n");
    const QString lrc = QStringLiteral("[00:01.00]x\n[00:02.00]y\n");
    ASSERT_TRUE(editor::pasteIntoText(desk.changes, 0, QStringLiteral("a"), QString(), lrc));
    EXPECT_EQ(desk.text(), "a\n[00:01.00]x\n[00:02.00]y\n\n");
    ASSERT_TRUE(editor::pasteIntoText(desk.changes, 3, QString(), QString(), lrc));
    EXPECT_EQ(desk.text(), "a\n[00:01.00]x\n[00:02.00]y\n[00:01.00]x\n[00:02.00]y\n");
}

TEST(LineCommands, OtherProgramsGetCopiedLinesAsLrc)
{
    const auto song = built("[ti:T]\r\n[0:1.5]a\r\nb");
    EXPECT_EQ(editor::lrcTextOf(song.aryLines()).replace(QStringLiteral("\r\n"), QStringLiteral("\n")),
        QStringLiteral("[ti:T]\n[0:1.5]a\nb"));
}

} // namespace
