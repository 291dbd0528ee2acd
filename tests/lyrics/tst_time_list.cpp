// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/TimeList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace {

using lyrics::TimeList;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(TimeList, DoesWhatAVectorDoes)
{
    generate::Random random(3);
    TimeList list;
    std::vector<std::int64_t> expected;
    for (int step = 0; step < 20'000; ++step) {
        const auto value = static_cast<std::int64_t>(random.next());
        switch (random.below(8)) {
        case 0:
        case 1: {
            const std::size_t at = random.below(6);
            list.erase(at);
            if (at < expected.size())
                expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        }
        case 2:
            if (!expected.empty()) {
                const std::size_t at = random.below(expected.size());
                list[at] = value;
                expected[at] = value;
            }
            break;
        case 3: {
            TimeList copy = list;
            TimeList moved = std::move(list);
            list = random.oneIn(2) ? std::move(moved) : copy;
            break;
        }
        case 4:
            if (random.oneIn(10)) {
                list.removeAllObjects();
                expected.clear();
            }
            break;
        default:
            list.push_back(value);
            expected.push_back(value);
        }
        ASSERT_EQ(list.count(), list.size());
        ASSERT_THAT(std::as_const(list), ElementsAreArray(expected));
    }
}

TEST(TimeList, FirstObjectIsTheFirstStampedOrNothing)
{
    EXPECT_EQ(TimeList().firstObject(), std::nullopt);
    EXPECT_EQ((TimeList{5, 3}).firstObject(), 5);
}

TEST(TimeList, RemembersThatItWasOpenedForWriting)
{
    const TimeList fresh{1, 2, 3};
    EXPECT_FALSE(fresh.isTouched());
    const auto isTouchedBy = [&fresh](auto access) {
        TimeList list = fresh;
        access(list);
        return list.isTouched();
    };
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { static_cast<void>(l[0]); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { static_cast<void>(l.begin()); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { static_cast<void>(l.end()); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { l.push_back(1); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { l.erase(1); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { l.clear(); }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { l = TimeList{4}; }));
    EXPECT_TRUE(isTouchedBy([&fresh](TimeList &l) { l = fresh; }));
    EXPECT_TRUE(isTouchedBy([](TimeList &l) { static_cast<void>(TimeList(std::move(l))); }));
    EXPECT_FALSE(isTouchedBy([](TimeList &l) { static_cast<void>(l.count() + l.size()); }));
    EXPECT_FALSE(isTouchedBy([](TimeList &l) { static_cast<void>(l.firstObject()); }));
    EXPECT_FALSE(isTouchedBy([](TimeList &l) { l.erase(3); }));
}

TEST(TimeList, SwappedListsAreBothTouched)
{
    TimeList a{1};
    TimeList b{2, 3, 4};
    std::swap(a, b);
    EXPECT_THAT(a, ElementsAre(2, 3, 4));
    EXPECT_TRUE(a.isTouched() && b.isTouched());
}

} // namespace
