// SPDX-License-Identifier: MIT
#include "lyrics/Stretch.h"

#include "lyrics/LineAccess.h"
#include "lyrics/StampText.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lyrics {
namespace {

// Products of two times do not fit into 64 bits.
__extension__ using Wide = __int128;

bool isEarlier(const Anchor &a, const Anchor &b)
{
    return a.from < b.from;
}

std::int64_t limited(Wide millis)
{
    constexpr Wide kLargest = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(std::clamp<Wide>(millis, 0, kLargest));
}

/// To the nearest whole number, halves up. `divisor` > 0.
Wide rounded(Wide dividend, Wide divisor)
{
    const Wide cut = dividend / divisor;
    const Wide rest = dividend % divisor;
    const Wide floor = rest < 0 ? cut - 1 : cut;
    const Wide above = rest < 0 ? rest + divisor : rest;
    return 2 * above >= divisor ? floor + 1 : floor;
}

void stretchLine(RBSongLine &line, std::span<const Anchor> anchors)
{
    const TimeList &times = std::as_const(line).aryTimes();
    for (std::size_t i = 0; i < times.size(); ++i) {
        const std::int64_t to = stretched(times[i], anchors);
        if (to != times[i])
            line.aryTimes()[i] = to;
    }
    if (!hasWordStamps(line))
        return;
    line.updateWithText(withStampsMapped(line.lineText(), LineAccess::colonReading(line),
        [anchors](std::int64_t millis) { return stretched(millis, anchors); }));
}

} // namespace

StretchResult checkAnchors(std::span<const Anchor> anchors)
{
    if (anchors.empty())
        return StretchResult::NoAnchor;
    std::vector<Anchor> sorted(anchors.begin(), anchors.end());
    std::sort(sorted.begin(), sorted.end(), isEarlier);
    const auto isNegative = [](const Anchor &anchor) { return anchor.from < 0 || anchor.to < 0; };
    if (std::any_of(sorted.begin(), sorted.end(), isNegative))
        return StretchResult::AnchorNegative;
    const auto collide = [](const Anchor &a, const Anchor &b) { return a.from == b.from || a.to >= b.to; };
    const bool anyCollide = std::adjacent_find(sorted.begin(), sorted.end(), collide) != sorted.end();
    return anyCollide ? StretchResult::AnchorsCollide : StretchResult::Done;
}

std::int64_t stretched(std::int64_t millis, std::span<const Anchor> anchors)
{
    if (anchors.size() == 1)
        return limited(Wide(millis) - anchors[0].from + anchors[0].to);
    // The anchor behind which the line ends that holds here.
    const auto next = std::upper_bound(anchors.begin() + 1, anchors.end() - 1, millis,
        [](std::int64_t time, const Anchor &anchor) { return time < anchor.from; });
    const Anchor &a = *(next - 1);
    const Anchor &b = *next;
    const Wide product = (Wide(millis) - a.from) * (Wide(b.to) - a.to);
    return limited(a.to + rounded(product, Wide(b.from) - a.from));
}

StretchResult stretchTimes(RBEditSong &song, std::vector<Anchor> anchors)
{
    const StretchResult result = checkAnchors(anchors);
    if (result != StretchResult::Done)
        return result;
    std::sort(anchors.begin(), anchors.end(), isEarlier);
    for (RBSongLine &line : song.aryLines()) {
        if (!LineAccess::isTagLine(line))
            stretchLine(line, anchors);
    }
    return result;
}

} // namespace lyrics
