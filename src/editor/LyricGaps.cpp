// SPDX-License-Identifier: MIT
#include "editor/LyricGaps.h"

#include "editor/TimedNeighbours.h"

#include <algorithm>
#include <vector>

namespace editor {

namespace {

constexpr std::int64_t kGapMillis = 10'000;
// Before it the title stands, and then the song begins.
constexpr std::int64_t kOpeningMillis = 10'000;
// So much of the song tells its pace.
constexpr std::int64_t kPaceMillis = 60'000;
constexpr std::size_t kFewestDistances = 3;

bool isSungSoonAfter(const TimedLine &line, std::int64_t time)
{
    return std::ranges::any_of(
        line.times, [time](auto other) { return other > time && distance(other, time) <= kGapMillis; });
}

// Most lines are followed by the next one.
bool isFollowedAtOnce(const RBEditSong &song, std::size_t row, std::int64_t time)
{
    const auto next = timedLineAt(song, row + 1);
    return next && isSungSoonAfter(*next, time);
}

// The next time at which a line is sung, and whether one that stands at it has a text.
struct Next
{
    std::int64_t time = 0;
    bool isText = false;
};

std::optional<Next> nextAfter(const RBEditSong &song, std::size_t row, std::int64_t time)
{
    std::optional<Next> next;
    const auto [begin, end] = rowsNear(song, row);
    for (std::size_t at = begin; at < end; ++at) {
        const auto line = timedLineAt(song, at);
        if (!line) {
            continue;
        }
        for (const std::int64_t other : line->times) {
            if (other <= time || (next && other > next->time)) {
                continue;
            }
            const bool isOneMore = next && other == next->time;
            next = Next{other, !line->isPause() || (isOneMore && next->isText)};
        }
    }
    return next;
}

// The usual distance from line to line near the gap from `time` to `next`; 0 when there is none.
std::int64_t paceAround(const RBEditSong &song, std::size_t row, std::int64_t time, std::int64_t next)
{
    std::vector<std::int64_t> sung;
    const auto [begin, end] = rowsNear(song, row);
    for (std::size_t at = begin; at < end; ++at) {
        const auto line = timedLineAt(song, at);
        if (!line || line->isPause()) {
            continue;
        }
        std::ranges::copy_if(line->times, std::back_inserter(sung), [time, next](auto other) {
            return (other <= time && distance(time, other) <= kPaceMillis)
                || (other >= next && distance(other, next) <= kPaceMillis);
        });
    }
    std::ranges::sort(sung);
    sung.erase(std::unique(sung.begin(), sung.end()), sung.end());
    std::vector<std::int64_t> distances;
    for (std::size_t at = 1; at < sung.size(); ++at) {
        if (sung[at - 1] != time) {
            distances.push_back(sung[at] - sung[at - 1]);
        }
    }
    if (distances.size() < kFewestDistances) {
        return 0;
    }
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::ranges::nth_element(distances, middle);
    return *middle;
}

} // namespace

std::optional<std::int64_t> gapAfter(const RBEditSong &song, std::size_t row, std::int64_t time)
{
    if (time < kOpeningMillis || isFollowedAtOnce(song, row, time)) {
        return std::nullopt;
    }
    const auto next = nextAfter(song, row, time);
    if (!next || !next->isText) {
        return std::nullopt;
    }
    const std::int64_t gap = distance(next->time, time);
    const bool isLong = gap > kGapMillis && gap / 2 > paceAround(song, row, time, next->time);
    return isLong ? std::optional(gap) : std::nullopt;
}

} // namespace editor
