// SPDX-License-Identifier: MIT
#include "media/player/PeakCollector.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using media::PeakCollector;
using testing::Each;
using testing::FloatEq;
using testing::Le;

namespace {

// 200 levels a second of five frames each.
constexpr std::uint32_t kRate = 1000;

} // namespace

TEST(PeakCollector, KeepsTheLargestSampleOfEachStretch)
{
    PeakCollector collector(kRate);
    const std::vector<float> samples{0.1F, -0.6F, 0.2F, 0, 0, 0, 0, 0.3F, 0, -0.1F};
    collector.add(0, samples, 1);
    EXPECT_DOUBLE_EQ(collector.peaks().secondsPerLevel, 0.005);
    EXPECT_THAT(collector.peaks().levels, testing::ElementsAre(FloatEq(0.6F), FloatEq(0.3F)));
}

TEST(PeakCollector, ChannelsShareALevel)
{
    PeakCollector collector(kRate);
    const std::vector<float> samples{0.1F, 0.2F, 0, -0.9F, 0, 0};
    collector.add(4, samples, 2);
    EXPECT_THAT(collector.peaks().levels, testing::ElementsAre(FloatEq(0.2F), FloatEq(0.9F)));
}

TEST(PeakCollector, WhatIsBeforeTheBeginningIsLeftOut)
{
    PeakCollector collector(kRate);
    const std::vector<float> samples{1, 1, 1, 0.25F, 0};
    collector.add(-3, samples, 1);
    EXPECT_THAT(collector.peaks().levels, testing::ElementsAre(FloatEq(0.25F)));
    collector.add(std::numeric_limits<std::int64_t>::min(), samples, 1);
    collector.add(std::numeric_limits<std::int64_t>::max() - 10, samples, 1);
    EXPECT_EQ(collector.peaks().levels.size(), 1U);
}

TEST(PeakCollector, GapsAreSilent)
{
    PeakCollector collector(kRate);
    const std::vector<float> one{1.0F};
    collector.add(0, one, 1);
    collector.add(17, one, 1);
    EXPECT_THAT(
        collector.peaks().levels, testing::ElementsAre(FloatEq(1), FloatEq(0), FloatEq(0), FloatEq(1)));
}

TEST(PeakCollector, NeverHasMoreLevelsAndStaysInTime)
{
    PeakCollector collector(kRate);
    const std::vector<float> silence(1000, 0.0F);
    const std::vector<float> click{0.5F};
    std::int64_t second = 0;
    for (; second < 3600; ++second) {
        collector.add(second * kRate, silence, 1);
        if (second == 1234)
            collector.add(second * kRate + 500, click, 1);
        ASSERT_LE(collector.peaks().levels.size(), PeakCollector::kMostLevels);
    }
    const auto &[step, levels] = collector.peaks();
    EXPECT_GE(levels.size(), PeakCollector::kMostLevels / 2);
    EXPECT_NEAR(step * static_cast<double>(levels.size()), 3600.0, step);
    const auto loudest = std::max_element(levels.begin(), levels.end());
    EXPECT_EQ(loudest - levels.begin(), static_cast<std::ptrdiff_t>(1234.5 / step));
}

TEST(PeakCollector, ADayIsTheEnd)
{
    PeakCollector collector(kRate);
    const std::vector<float> one{1.0F};
    collector.add(std::int64_t{86400} * kRate, one, 1);
    EXPECT_TRUE(collector.peaks().levels.empty());
    collector.add(std::int64_t{86400} * kRate - 1, one, 1);
    EXPECT_LE(collector.peaks().levels.size(), PeakCollector::kMostLevels);
    EXPECT_FLOAT_EQ(collector.peaks().levels.back(), 1.0F);
}

TEST(PeakCollector, WildSamples)
{
    PeakCollector collector(0);
    const std::vector<float> samples{std::nanf(""), std::numeric_limits<float>::infinity(), -7.0F, 0.0F};
    collector.add(0, samples, 1);
    collector.add(0, samples, 0);
    collector.add(10, {}, 2);
    EXPECT_THAT(collector.peaks().levels, Each(Le(1.0F)));
    EXPECT_EQ(collector.peaks().levels.size(), 4U);
}
