// SPDX-License-Identifier: MIT
#include "editor/SungLine.h"
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

namespace {

/// The same, asked of every line.
int rowByLooking(const RBEditSong &song, std::int64_t millis)
{
    int found = -1;
    std::int64_t latest = 0;
    int row = 0;
    for (const RBSongLine &line : song.aryLines()) {
        for (const std::int64_t time : line.aryTimes()) {
            if (!line.isProperty() && time <= millis && (found < 0 || time >= latest)) {
                found = row;
                latest = time;
            }
        }
        ++row;
    }
    return found;
}

TEST(SungLine, IsTheOneWhoseTimeCameLast)
{
    const auto song = songs::built("[ti:x]\n[00:02.00]a\n[00:01.00][00:09.00]b\nc\n[00:02.00]d\n");
    editor::SungLine sung(song);
    EXPECT_EQ(sung.rowAt(999), -1);
    EXPECT_EQ(sung.rowAt(1000), 2);
    EXPECT_EQ(sung.rowAt(1999), 2);
    EXPECT_EQ(sung.rowAt(2000), 4) << "of lines sung at once the lower";
    EXPECT_EQ(sung.rowAt(100'000), 2);
}

TEST(SungLine, WithoutTimesThereIsNone)
{
    const auto song = songs::built("a\nb\n");
    EXPECT_EQ(editor::SungLine(song).rowAt(5), -1);
}

TEST(SungLine, FollowsTheDocumentOnceItIsToldOfAChange)
{
    auto song = songs::built("[00:01.00]a\n");
    editor::SungLine sung(song);
    EXPECT_EQ(sung.rowAt(5000), 0);
    song.buildWithLrcText("b\n[00:04.00]c\n");
    sung.invalidate();
    EXPECT_EQ(sung.rowAt(5000), 1);
}

TEST(SungLine, AgreesWithLookingAtEveryLine)
{
    generate::Random random(5);
    for (int round = 0; round < 2000; ++round) {
        const auto song = songs::built(generate::anyText(random, 8, false));
        editor::SungLine sung(song);
        for (const std::int64_t millis : {-2000, 0, 12'340, 12'345, 35'000, 5'000'000}) {
            ASSERT_EQ(sung.rowAt(millis), rowByLooking(song, millis)) << round << ' ' << millis;
        }
    }
}

} // namespace
