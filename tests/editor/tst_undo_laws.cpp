// SPDX-License-Identifier: MIT
//
// Random scripts of all that changes a document, undone and redone, against plain lists of what was there.
#include "editor/EditHistory.h"
#include "editor/LineClipboard.h"
#include "editor/LineCommands.h"
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using generate::Random;
using songs::built;
using songs::PlainLine;

constexpr int kRounds = 20'000;

/// What there is to see of a document.
struct Snapshot
{
    std::vector<PlainLine> lines;
    std::string text;

    friend bool operator==(const Snapshot &, const Snapshot &) = default;
};

Snapshot snapshotOf(const RBEditSong &song)
{
    RBEditSong copy = song;
    return {songs::plain(song), songs::written(copy)};
}

kit::RowRanges anyRows(Random &random, std::size_t lineCount)
{
    kit::RowRanges rows;
    for (std::size_t row = 0; row < lineCount; ++row) {
        if (!random.oneIn(3)) {
            continue;
        }
        const auto at = static_cast<int>(row);
        if (!rows.empty() && rows.back().last == at - 1) {
            rows.back().last = at;
        } else {
            rows.push_back({at, at});
        }
    }
    return rows;
}

editor::LineSelection anySelection(Random &random, std::size_t lineCount)
{
    editor::LineSelection selection{-1, anyRows(random, lineCount)};
    if (!selection.rows.empty()) {
        const auto &range = selection.rows[random.below(selection.rows.size())];
        selection.selectedRow = random.oneIn(2) ? range.first : range.last;
    }
    return selection;
}

/// A line editor without a screen: a document, its history, and lines that were copied.
struct Desk
{
    explicit Desk(const std::string &text) : song(built(text)), copied(built(text)) { }

    RBEditSong song;
    RBEditSong copied;
    editor::EditHistory history{song};
};

void changeSomeLine(Desk &desk, Random &random, const editor::LineSelection &selection)
{
    editor::SongChanges &changes = desk.history.changes();
    const auto row = static_cast<std::size_t>(std::max(selection.selectedRow, 0));
    const auto millis = static_cast<std::int64_t>(random.below(700'000));
    const std::string typed(random.oneOf(generate::kTypedTexts));
    switch (random.below(6)) {
    case 0:
        changes.change(row, [millis](RBSongLine &line) { editor::stamp(line, millis); });
        break;
    case 1:
        changes.change(row, [](RBSongLine &line) { editor::makeTagLine(line, "ar"); });
        break;
    case 2:
        changes.change(row, [&typed](RBSongLine &line) { line.updateWithText(typed); });
        break;
    case 3:
        changes.change(row, [](RBSongLine &line) { line.updateWithTimeStr_atIndex("12:34.56", 1); });
        break;
    case 4:
        changes.changeEach(selection.rows, editor::untag);
        break;
    default:
        static_cast<void>(changes.shift(
            random.oneIn(2) ? selection.rows : changes.allRows(), millis - (random.oneIn(2) ? 0 : 350'000)));
    }
}

void changeSomething(Desk &desk, Random &random, std::uint64_t seed)
{
    editor::SongChanges &changes = desk.history.changes();
    const auto selection = anySelection(random, desk.song.aryLines().size());
    switch (random.below(16)) {
    case 0:
        editor::insertBefore(changes, selection);
        break;
    case 1:
        editor::insertAfter(changes, selection);
        break;
    case 2:
        editor::duplicate(changes, selection);
        break;
    case 3:
        editor::paste(changes, selection, desk.copied.aryLines());
        break;
    case 4:
        changes.remove(selection.rows);
        break;
    case 5:
        static_cast<void>(editor::moveUp(changes, selection.rows));
        break;
    case 6:
        static_cast<void>(editor::moveDown(changes, selection.rows));
        break;
    case 7:
        static_cast<void>(editor::merge(changes, selection.rows));
        break;
    case 8:
        editor::split(changes, selection.selectedRow, QStringLiteral("he"), QStringLiteral("o"));
        break;
    case 9:
        static_cast<void>(
            editor::pasteText(changes, selection, QStringLiteral("[00:01.00]one\n\n[ti:two]\nthree")));
        break;
    case 10:
        if (random.oneIn(4)) {
            changes.removeAll();
        }
        break;
    case 11:
        if (random.oneIn(3)) {
            Random other(seed);
            changes.replace(built(generate::anyText(other, 6, true)));
        }
        break;
    default:
        changeSomeLine(desk, random, selection);
    }
}

TEST(UndoLaws, EveryStepGoesBackAndForthToWhatWasThere)
{
    Random random(41);
    for (int round = 0; round < kRounds; ++round) {
        Desk desk(generate::anyText(random, 8, true));
        std::vector<Snapshot> states{snapshotOf(desk.song)};
        for (std::size_t step = random.below(12); step > 0; --step) {
            const int before = desk.history.stack().index();
            desk.history.begin(QStringLiteral("step"), {});
            for (std::size_t change = 1 + random.below(3); change > 0; --change) {
                changeSomething(desk, random, random.next());
            }
            desk.history.end({});
            if (desk.history.stack().index() > before) {
                states.push_back(snapshotOf(desk.song));
            } else {
                ASSERT_EQ(snapshotOf(desk.song), states.back()) << round;
            }
        }
        std::size_t at = states.size() - 1;
        for (std::size_t walk = 0; walk < 3 * states.size(); ++walk) {
            if (random.oneIn(3)) {
                ASSERT_EQ(desk.history.redo().has_value(), at + 1 < states.size());
                at = std::min(at + 1, states.size() - 1);
            } else {
                ASSERT_EQ(desk.history.undo().has_value(), at > 0);
                at -= at > 0 ? 1 : 0;
            }
            ASSERT_EQ(snapshotOf(desk.song), states[at]) << round << ' ' << at;
        }
    }
}

TEST(UndoLaws, UndoneToTheStartTheBytesAreThoseThatWereOpened)
{
    Random random(43);
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = generate::anyText(random, 8, true);
        Desk desk(text);
        for (std::size_t step = random.below(12); step > 0; --step) {
            desk.history.begin(QStringLiteral("step"), {});
            changeSomething(desk, random, random.next());
            desk.history.end({});
        }
        while (desk.history.undo()) { }
        ASSERT_EQ(songs::written(desk.song), text) << round;
        ASSERT_EQ(desk.song, built(text)) << round;
    }
}

TEST(UndoLaws, AReplacedDocumentIsMovedIntoItsStep)
{
    Desk desk("[00:01.00]a\n");
    const RBSongLine *first = desk.song.aryLines().data();
    desk.history.begin(QStringLiteral("load"), {});
    desk.history.changes().replace(built("b\n"));
    desk.history.end({});
    ASSERT_TRUE(desk.history.undo());
    EXPECT_EQ(desk.song.aryLines().data(), first);
}

TEST(UndoLaws, AStepThatNoLongerFitsChangesNothingAndEndsTheHistory)
{
    Desk desk("a\nb\nc\n");
    desk.history.begin(QStringLiteral("delete"), {});
    desk.history.changes().remove({{1, 2}});
    desk.history.end({});
    desk.song.aryLines().clear();
    EXPECT_FALSE(desk.history.undo());
    EXPECT_TRUE(desk.song.aryLines().empty());
    EXPECT_FALSE(desk.history.stack().canUndo());
    EXPECT_FALSE(desk.history.stack().canRedo());
}

TEST(UndoLaws, WhatIsBegunWithinAStepBelongsToIt)
{
    Desk desk("a\n");
    desk.history.begin(QStringLiteral("outer"), {});
    desk.history.changes().insert(1, RBSongLine::emptyLine());
    desk.history.begin(QStringLiteral("inner"), {});
    desk.history.changes().insert(2, RBSongLine::emptyLine());
    desk.history.end({});
    EXPECT_FALSE(desk.history.undo()) << "while a step is being made nothing is undone";
    desk.history.end({});
    EXPECT_EQ(desk.history.stack().count(), 1);
    EXPECT_EQ(desk.history.stack().undoText(), QStringLiteral("outer"));
    ASSERT_TRUE(desk.history.undo());
    EXPECT_EQ(desk.song.aryLines().size(), 1U);
}

TEST(UndoLaws, TypingIsOneStepUntilSomethingElseIsDone)
{
    Desk desk("a\n");
    const auto type = [&desk](std::string_view text) {
        desk.history.begin(QStringLiteral("typing"), {});
        desk.history.changes().replace(built(text));
        desk.history.end({}, editor::EditHistory::Kind::Typing);
    };
    type("ab\n");
    type("abc\n");
    EXPECT_EQ(desk.history.stack().count(), 1);
    desk.history.closeTyping();
    type("abcd\n");
    type("abcde\n");
    EXPECT_EQ(desk.history.stack().count(), 2);
    ASSERT_TRUE(desk.history.undo());
    EXPECT_EQ(songs::written(desk.song), "abc\n");
    ASSERT_TRUE(desk.history.redo());
    EXPECT_EQ(songs::written(desk.song), "abcde\n");
    type("x\n");
    EXPECT_EQ(desk.history.stack().count(), 3) << "what comes after an undo is a step of its own";
    ASSERT_TRUE(desk.history.undo());
    ASSERT_TRUE(desk.history.undo());
    ASSERT_TRUE(desk.history.undo());
    EXPECT_EQ(songs::written(desk.song), "a\n");
}

TEST(UndoLaws, AChangeThatChangesNothingIsNoStep)
{
    Desk desk("[0:1.5]  a \r\n");
    desk.history.begin(QStringLiteral("nothing"), {});
    desk.history.changes().change(0, [](RBSongLine &line) { line.updateWithText("a"); });
    EXPECT_EQ(desk.history.changes().shift({{0, 0}}, 0), 0U);
    desk.history.changes().remove({{5, 9}});
    desk.history.end({});
    EXPECT_EQ(desk.history.stack().count(), 0);
    EXPECT_EQ(songs::written(desk.song), "[0:1.5]  a \r\n");
}

TEST(UndoLaws, TimesThatWereCutComeBack)
{
    Desk desk("[00:00.50][00:02.00]a\n[ti:t]\n[00:00.00]b\n");
    desk.history.begin(QStringLiteral("shift"), {});
    EXPECT_EQ(desk.history.changes().shift({{0, 2}}, -1000), 2U);
    desk.history.end({});
    EXPECT_EQ(songs::written(desk.song), "[00:00.00][00:01.00]a\n[ti:t]\n[00:00.00]b\n");
    ASSERT_TRUE(desk.history.undo());
    EXPECT_EQ(songs::written(desk.song), "[00:00.50][00:02.00]a\n[ti:t]\n[00:00.00]b\n");
    ASSERT_TRUE(desk.history.redo());
    EXPECT_EQ(songs::written(desk.song), "[00:00.00][00:01.00]a\n[ti:t]\n[00:00.00]b\n");
}

} // namespace
