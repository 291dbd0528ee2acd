// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"
#include "lyrics/Stretch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

using generate::Random;
using lyrics::Anchor;
using lyrics::stretched;
using lyrics::StretchResult;

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

std::string stretchedText(std::string_view text, std::vector<Anchor> anchors)
{
    RBEditSong song = songs::built(text);
    EXPECT_EQ(lyrics::stretchTimes(song, std::move(anchors)), StretchResult::Done);
    return songs::written(song);
}

TEST(Stretch, OneAnchorIsAShift)
{
    EXPECT_EQ(stretchedText("[ti:x]\n[00:12.00][0:20.5]a<00:13.0>\nb", {{12'000, 12'500}}),
        "[ti:x]\n[00:12.50][00:21.00]a<00:13.5>\nb");
    EXPECT_EQ(stretchedText("[00:01.00]a\n", {{5'000, 1'000}}), "[00:00.00]a\n");
}

TEST(Stretch, BetweenAnchorsIsALineAndOutsideItGoesOn)
{
    const std::vector<Anchor> anchors = {{10'000, 10'000}, {20'000, 30'000}, {40'000, 40'000}};
    EXPECT_EQ(stretched(10'000, anchors), 10'000);
    EXPECT_EQ(stretched(15'000, anchors), 20'000);
    EXPECT_EQ(stretched(20'000, anchors), 30'000);
    EXPECT_EQ(stretched(30'000, anchors), 35'000);
    EXPECT_EQ(stretched(40'000, anchors), 40'000);
    EXPECT_EQ(stretched(9'000, anchors), 8'000);
    EXPECT_EQ(stretched(5'000, anchors), 0);
    EXPECT_EQ(stretched(1'000, anchors), 0);
    EXPECT_EQ(stretched(60'000, anchors), 50'000);
}

TEST(Stretch, RoundsToTheNearestHalvesUp)
{
    EXPECT_EQ(stretched(1, std::vector<Anchor>{{0, 0}, {2, 3}}), 2);
    EXPECT_EQ(stretched(1, std::vector<Anchor>{{0, 0}, {3, 4}}), 1);
    EXPECT_EQ(stretched(2, std::vector<Anchor>{{0, 0}, {3, 4}}), 3);
    EXPECT_EQ(stretched(1, std::vector<Anchor>{{4, 10}, {6, 15}}), 3);
    EXPECT_EQ(stretched(3, std::vector<Anchor>{{4, 10}, {6, 15}}), 8);
}

TEST(Stretch, AnchorsMayComeInAnyOrder)
{
    EXPECT_EQ(stretchedText("[00:15.00]a\n", {{20'000, 40'000}, {10'000, 20'000}}), "[00:30.00]a\n");
}

TEST(Stretch, WhatDoesNotMoveKeepsItsSpelling)
{
    const std::string text = "\uFEFF[0:10]a<0:10.0>\r\n [00:10.000] \n[offset:5]\r[length: 02:00]x";
    EXPECT_EQ(stretchedText(text, {{10'000, 10'000}, {20'000, 30'000}}), text);
    EXPECT_EQ(stretchedText(text, {{5, 5}}), text);
}

TEST(Stretch, RefusesAnchorsThatSayNothing)
{
    const std::string text = "[00:10.00]a\n";
    for (const auto &[anchors, result] :
        {std::pair<std::vector<Anchor>, StretchResult>({}, StretchResult::NoAnchor),
            {{{-1, 5}}, StretchResult::AnchorNegative}, {{{1, -5}}, StretchResult::AnchorNegative},
            {{{1, 5}, {1, 6}}, StretchResult::AnchorsCollide},
            {{{1, 5}, {2, 5}}, StretchResult::AnchorsCollide},
            {{{1, 5}, {2, 4}}, StretchResult::AnchorsCollide},
            {{{3, 5}, {1, 6}, {2, 7}}, StretchResult::AnchorsCollide}}) {
        RBEditSong song = songs::built(text);
        EXPECT_EQ(lyrics::checkAnchors(anchors), result);
        EXPECT_EQ(lyrics::stretchTimes(song, anchors), result);
        EXPECT_EQ(songs::written(song), text);
    }
}

TEST(Stretch, StaysInTheRange)
{
    EXPECT_EQ(stretched(kLargest, std::vector<Anchor>{{0, 0}, {1, 2}}), kLargest);
    EXPECT_EQ(stretched(kLargest, std::vector<Anchor>{{0, 0}, {1, kLargest}}), kLargest);
    EXPECT_EQ(stretched(-kLargest, std::vector<Anchor>{{0, 5}, {1, kLargest}}), 0);
    EXPECT_EQ(stretched(kLargest, std::vector<Anchor>{{0, 0}, {kLargest, kLargest}}), kLargest);
    EXPECT_EQ(stretched(kLargest, std::vector<Anchor>{{0, kLargest}}), kLargest);
}

/// The straight line in floating point; and what stood in order stands in order.
TEST(Stretch, EqualsTheStraightLineAndRises)
{
    Random random(95);
    for (int round = 0; round < 5'000; ++round) {
        std::vector<Anchor> anchors;
        Anchor anchor{
            static_cast<std::int64_t>(random.below(5'000)), static_cast<std::int64_t>(random.below(5'000))};
        for (std::size_t count = 2 + random.below(4); count > 0; --count) {
            anchors.push_back(anchor);
            anchor.from += 1 + static_cast<std::int64_t>(random.below(50'000));
            anchor.to += 1 + static_cast<std::int64_t>(random.below(50'000));
        }
        ASSERT_EQ(lyrics::checkAnchors(anchors), StretchResult::Done);
        std::int64_t last = 0;
        for (std::int64_t millis = 0; millis < 250'000;
             millis += 1 + static_cast<std::int64_t>(random.below(9'000))) {
            std::size_t i = 0;
            while (i + 2 < anchors.size() && millis >= anchors[i + 1].from)
                ++i;
            const double slope = static_cast<double>(anchors[i + 1].to - anchors[i].to)
                / static_cast<double>(anchors[i + 1].from - anchors[i].from);
            const double expected
                = static_cast<double>(anchors[i].to) + static_cast<double>(millis - anchors[i].from) * slope;
            const std::int64_t now = stretched(millis, anchors);
            ASSERT_NEAR(static_cast<double>(now), std::max(expected, 0.0), 0.51);
            ASSERT_GE(now, last);
            last = now;
        }
        for (const Anchor &one : anchors)
            ASSERT_EQ(stretched(one.from, anchors), one.to);
    }
}

} // namespace
