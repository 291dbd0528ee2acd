// SPDX-License-Identifier: MIT
#include "lyrics/PreviewOrder.h"

#include <algorithm>

namespace lyrics {
namespace {

bool isTimed(const RBSongLine &line)
{
    return !isPreviewTag(line) && !line.aryTimes().empty();
}

struct Start
{
    std::size_t line;
    std::int64_t millis;
};

/// A further time of a line: it stands before the line `before`.
struct Repeat
{
    std::size_t before;
    PreviewEntry entry;
};

/// The timed lines behind some line, those of them that start later than all between: the first of them that
/// starts after a given time is the first line at all that does.
class LaterStarts
{
public:
    void addInFront(Start start)
    {
        while (!m_starts.empty() && m_starts.back().millis <= start.millis)
            m_starts.pop_back();
        m_starts.push_back(start);
    }
    [[nodiscard]] std::size_t firstAfter(std::int64_t millis, std::size_t none) const
    {
        // From the back to the front the starts rise.
        const auto found = std::partition_point(
            m_starts.rbegin(), m_starts.rend(), [millis](const Start &s) { return s.millis <= millis; });
        return found == m_starts.rend() ? none : found->line;
    }

private:
    std::vector<Start> m_starts;
};

std::vector<Repeat> repeatsOf(std::span<const RBSongLine> lines)
{
    std::vector<Repeat> repeats;
    LaterStarts later;
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (!isTimed(lines[i]))
            continue;
        const TimeList &times = lines[i].aryTimes();
        const auto *const earliest = std::min_element(times.begin(), times.end());
        for (const auto *time = times.begin(); time != times.end(); ++time) {
            if (time != earliest)
                repeats.push_back({later.firstAfter(*time, lines.size()), {i, *time}});
        }
        later.addInFront({i, *earliest});
    }
    std::sort(repeats.begin(), repeats.end(), [](const Repeat &a, const Repeat &b) {
        if (a.before != b.before)
            return a.before < b.before;
        return a.entry.millis != b.entry.millis ? a.entry.millis < b.entry.millis
                                                : a.entry.songLine < b.entry.songLine;
    });
    return repeats;
}

} // namespace

bool isPreviewTag(const RBSongLine &line)
{
    return (line.isProperty() && !line.propertyStr().empty()) || line.isOtherTag();
}

std::vector<PreviewEntry> previewOrder(std::span<const RBSongLine> lines)
{
    const std::vector<Repeat> repeats = repeatsOf(lines);
    std::vector<PreviewEntry> order;
    order.reserve(lines.size() + repeats.size());
    auto next = repeats.begin();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (; next != repeats.end() && next->before == i; ++next)
            order.push_back(next->entry);
        const TimeList &times = lines[i].aryTimes();
        PreviewEntry entry{i, {}};
        if (isTimed(lines[i]))
            entry.millis = *std::min_element(times.begin(), times.end());
        order.push_back(entry);
    }
    for (; next != repeats.end(); ++next)
        order.push_back(next->entry);
    return order;
}

} // namespace lyrics
