// SPDX-License-Identifier: MIT
//
// Random scripts of every operation on any text; the same laws as the fuzzer's.

#include "lyrics/Generator.h"
#include "lyrics/OperationLaws.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using generate::Random;

TEST(Operations, KeepTheLawsInAnyOrder)
{
    Random random(111);
    for (int round = 0; round < 40'000; ++round) {
        const std::string text = generate::anyText(random, 8, true);
        std::vector<std::uint8_t> choices(random.below(60));
        for (std::uint8_t &choice : choices)
            choice = static_cast<std::uint8_t>(random.below(256));
        ASSERT_EQ(laws::Script(text, choices).brokenLaw(), "")
            << testing::PrintToString(text) << testing::PrintToString(choices);
    }
}

} // namespace
