// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

/// How long something takes when nothing else runs.
namespace measure {

using Clock = std::chrono::steady_clock;

/// The shortest of several runs, in nanoseconds: what the work costs when nothing else runs. `prepare` is not
/// timed.
template <typename Prepare, typename Work>
double shortest(std::size_t bytes, Prepare prepare, Work work)
{
    const int rounds = bytes > 1'000'000 ? 25 : 200;
    const int repeats = bytes > 100'000 ? 1 : static_cast<int>(200'000 / (bytes + 1)) + 1;
    double best = 1e300;
    for (int round = 0; round < rounds; ++round) {
        auto state = prepare();
        const auto begin = Clock::now();
        for (int repeat = 0; repeat < repeats; ++repeat)
            work(state);
        const std::chrono::duration<double, std::nano> taken = Clock::now() - begin;
        best = std::min(best, taken.count() / repeats);
    }
    return best;
}

inline double shortest(std::size_t bytes, auto work)
{
    return shortest(
        bytes, [] { return 0; }, [&work](int) { work(); });
}

} // namespace measure
