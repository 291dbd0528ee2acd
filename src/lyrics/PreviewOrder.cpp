// SPDX-License-Identifier: MIT
#include "lyrics/PreviewOrder.h"

#include <queue>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace lyrics {
namespace {

/// The further times of the lines so far that have not found their place: each stands before the first later
/// line that starts after it.
class Repeats
{
public:
    void add(std::int64_t millis, std::uint32_t songLine) { m_waiting.emplace(millis, songLine); }
    /// Puts those before `start` into `order`, the earliest first.
    void placeBefore(std::int64_t start, std::vector<PreviewEntry> &order)
    {
        while (!m_waiting.empty() && m_waiting.top().first < start)
            placeNext(order);
    }
    void placeAll(std::vector<PreviewEntry> &order)
    {
        while (!m_waiting.empty())
            placeNext(order);
    }

private:
    using Repeat = std::pair<std::int64_t, std::uint32_t>;

    void placeNext(std::vector<PreviewEntry> &order)
    {
        order.push_back({m_waiting.top().second, true, m_waiting.top().first});
        m_waiting.pop();
    }

    std::priority_queue<Repeat, std::vector<Repeat>, std::greater<>> m_waiting;
};

} // namespace

bool isPreviewTag(const RBSongLine &line)
{
    return (line.isProperty() && !line.propertyStr().empty()) || line.isOtherTag();
}

std::vector<PreviewEntry> previewOrder(std::span<const RBSongLine> lines, PreviewPart part)
{
    std::vector<PreviewEntry> order;
    order.reserve(std::accumulate(
        lines.begin(), lines.end(), std::size_t(0), [](std::size_t sum, const RBSongLine &line) {
            return sum + std::max<std::size_t>(1, line.aryTimes().count());
        }));
    Repeats repeats;
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        const TimeList &times = lines[i].aryTimes();
        if (times.empty() || isPreviewTag(lines[i])) {
            order.push_back({i, false, 0});
            continue;
        }
        const auto *const earliest = std::min_element(times.begin(), times.end());
        repeats.placeBefore(*earliest, order);
        order.push_back({i, true, *earliest});
        for (const auto *time = times.begin(); time != times.end(); ++time) {
            if (time != earliest)
                repeats.add(*time, i);
        }
    }
    if (part == PreviewPart::Whole)
        repeats.placeAll(order);
    return order;
}

} // namespace lyrics
