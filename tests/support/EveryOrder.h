// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace support {

/// Calls `run` with `those` in each order that there is.
template <typename Run>
void inEveryOrder(std::vector<int> those, Run run)
{
    std::sort(those.begin(), those.end());
    do {
        run(std::as_const(those));
    } while (std::next_permutation(those.begin(), those.end()));
}

} // namespace support
