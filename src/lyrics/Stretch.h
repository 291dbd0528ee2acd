// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lyrics {

/// What stands at `from` is to stand at `to`; both in milliseconds.
struct Anchor
{
    std::int64_t from = 0;
    std::int64_t to = 0;

    friend bool operator==(const Anchor &, const Anchor &) = default;
};

enum class StretchResult : std::uint8_t {
    Done,
    NoAnchor,
    AnchorNegative, ///< an anchor below 0
    AnchorsCollide ///< two anchors from one time, or such that later times would come to stand first or equal
};

/// Whether `stretchTimes` takes these anchors. `Done` when it does.
[[nodiscard]] StretchResult checkAnchors(std::span<const Anchor> anchors);

/// Where `millis` comes to stand: by the straight line between the two anchors round it, before the first and
/// behind the last by that of the nearest two, with one anchor by its distance. To the nearest millisecond,
/// halves up; not below 0, and not past the largest time.
///
/// \param anchors  at least one, ascending by `from`, and accepted by `checkAnchors`.
[[nodiscard]] std::int64_t stretched(std::int64_t millis, std::span<const Anchor> anchors);

/// Moves all times and word stamps of the document so. Tag lines are left alone, and a time that does not
/// move keeps its spelling. Anything but `Done` leaves the document unchanged.
///
/// \param anchors  in any order.
StretchResult stretchTimes(RBEditSong &song, std::vector<Anchor> anchors);

} // namespace lyrics
