// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

/// Where in the music a stretch of sound comes from.
struct Alignment
{
    /// In samples: how much later in `music` it stands than where it was looked for.
    int lag = 0;
    /// 1 is the same sound, 0 has nothing to do with it.
    double likeness = 0;
};

/// Looks for `heard` in `music` around sample `expected`, up to `reach` samples to either side.
[[nodiscard]] Alignment align(
    std::span<const float> music, std::span<const float> heard, long expected, int reach);
