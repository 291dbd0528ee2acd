// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace lyrics {

/// Seconds as the player has them, in the whole milliseconds of the model: the product is truncated
/// toward zero, so 1.001 s is 1000 ms. Saturates at the ends of the range; 0 for what is not a number.
[[nodiscard]] inline std::int64_t millisFromSeconds(double seconds)
{
    const double millis = seconds * 1000.0;
    if (std::isnan(millis))
        return 0;
    // 2^63 is the first double above the range.
    if (millis >= 0x1p63)
        return std::numeric_limits<std::int64_t>::max();
    if (millis < -0x1p63)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(millis);
}

} // namespace lyrics
