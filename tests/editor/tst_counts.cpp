// SPDX-License-Identifier: MIT
//
// What an edit of one line costs, and taking it back: nothing of it may depend on how many lines there are.

#include "editor/EditHistory.h"
#include "editor/LineCommands.h"
#include "lyrics/CountedNew.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kRow = 30;
constexpr kit::RowRange kRows{kRow, kRow};

/// What each step allocates: a stamp, a nudge, both undone, both redone.
std::vector<std::size_t> allocationsByStep(RBEditSong &song)
{
    editor::EditHistory history(song);
    std::vector<std::size_t> allocations;
    const auto count = [&](auto step) { allocations.push_back(counted::by(step).allocations); };
    const auto step = [&](auto change) {
        count([&] {
            history.begin(QString(), {});
            change(history.changes());
            history.end({});
        });
    };
    step([](editor::SongChanges &changes) {
        changes.change(kRow, [](RBSongLine &line) { editor::stamp(line, 5'000); });
    });
    step([](editor::SongChanges &changes) { static_cast<void>(changes.shift({kRows}, 200)); });
    for (int i = 0; i < 2; ++i)
        count([&] { EXPECT_TRUE(history.undo()); });
    for (int i = 0; i < 2; ++i)
        count([&] { EXPECT_TRUE(history.redo()); });
    return allocations;
}

RBEditSong songOf(std::size_t lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines; ++i)
        text += "[00:12.34]hello\n";
    return songs::built(text);
}

std::ptrdiff_t touchedLines(const RBEditSong &song)
{
    return std::count_if(song.aryLines().begin(), song.aryLines().end(),
        [](const RBSongLine &line) { return line.aryTimes().isTouched(); });
}

TEST(EditCounts, AllocateTheSameWhateverTheSize)
{
    RBEditSong small = songOf(60);
    RBEditSong large = songOf(20'000);
    EXPECT_EQ(allocationsByStep(small), allocationsByStep(large));
}

TEST(EditCounts, TouchTheLineThatIsEditedAndNoOther)
{
    RBEditSong song = songOf(2'000);
    const RBSongLine *lines = song.aryLines().data();
    static_cast<void>(allocationsByStep(song));
    EXPECT_EQ(touchedLines(song), 1);
    EXPECT_EQ(song.aryLines()[kRow].aryTimes().count(), 2U);
    EXPECT_EQ(song.aryLines().data(), lines);
}

} // namespace
