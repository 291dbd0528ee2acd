// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

namespace lyrics {

/// The last of the `starts`, which only rise, that is not after `position`; nothing before all of them, and
/// for what is not a number. Cost: at most log2(n) + 1 comparisons, no allocation.
template <typename Start>
[[nodiscard]] std::optional<std::size_t> lastNotAfter(std::span<const Start> starts, double position)
{
    const auto after = std::partition_point(
        starts.begin(), starts.end(), [position](const Start &start) { return start <= position; });
    if (after == starts.begin())
        return std::nullopt;
    return static_cast<std::size_t>(after - starts.begin()) - 1;
}

} // namespace lyrics
