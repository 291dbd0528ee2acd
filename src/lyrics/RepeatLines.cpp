// SPDX-License-Identifier: MIT
//
// Of LineOrder.h, what makes lines of one time of a line of several.

#include "lyrics/Blanks.h"
#include "lyrics/LineAccess.h"
#include "lyrics/LineOrder.h"
#include "lyrics/LineReader.h"
#include "lyrics/PreviewOrder.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lyrics {
namespace {

/// One line of several times, taken apart.
class RepeatedLine
{
public:
    explicit RepeatedLine(const RBSongLine &line);

    /// The line at one of its times alone.
    [[nodiscard]] RBSongLine at(std::int64_t millis) const;

private:
    [[nodiscard]] std::size_t indexOf(std::int64_t millis) const;
    [[nodiscard]] RBSongLine readAt(std::size_t index) const;
    [[nodiscard]] RBSongLine copiedAt(std::size_t index) const;

    RBSongLine m_line;
    /// The times, each with its index, in ascending order.
    std::vector<std::pair<std::int64_t, std::size_t>> m_times;
    /// The tags as they are spelled; none when they no longer say what the times are.
    std::vector<std::string_view> m_tags;
    std::string_view m_before;
    std::string_view m_behind;
    /// That of the times for which the words are stamped, if they are.
    std::optional<std::int64_t> m_stampedTime;
};

RepeatedLine::RepeatedLine(const RBSongLine &line) : m_line(line)
{
    const TimeList &times = std::as_const(m_line).aryTimes();
    for (std::size_t i = 0; i < times.size(); ++i)
        m_times.emplace_back(times[i], i);
    std::sort(m_times.begin(), m_times.end());
    if (const std::vector<WordStamp> stamps = wordStamps(m_line); !stamps.empty()) {
        const auto later = std::upper_bound(m_times.begin(), m_times.end(),
            std::pair(stamps.front().millis, std::numeric_limits<std::size_t>::max()));
        m_stampedTime = later == m_times.begin() ? later->first : std::prev(later)->first;
    }
    const std::string_view spelling = LineAccess::spelling(m_line);
    const char *const end = spelling.data() + LineAccess::textOffset(m_line);
    const char *p = skipBlanks(spelling.data(), end);
    m_before = {spelling.data(), static_cast<std::size_t>(p - spelling.data())};
    TimeTag tag;
    while (m_tags.size() < times.size() && p < end && *p == '['
        && readTimeTag(p, end, LineAccess::colonReading(m_line), tag) && tag.millis == times[m_tags.size()]) {
        m_tags.emplace_back(p, static_cast<std::size_t>(tag.end - p));
        p = skipBlanks(tag.end, end);
    }
    if (m_tags.size() != times.size() || p != end)
        m_tags.clear();
    else
        m_behind = spelling.substr(
            static_cast<std::size_t>(m_tags.back().data() - spelling.data()) + m_tags.back().size());
}

std::size_t RepeatedLine::indexOf(std::int64_t millis) const
{
    return std::lower_bound(m_times.begin(), m_times.end(), std::pair(millis, std::size_t(0)))->second;
}

RBSongLine RepeatedLine::at(std::int64_t millis) const
{
    const std::size_t index = indexOf(millis);
    RBSongLine one = m_tags.empty() ? copiedAt(index) : readAt(index);
    if (!m_stampedTime || *m_stampedTime == millis)
        return one;
    std::int64_t distance = 0;
    if (!__builtin_sub_overflow(millis, *m_stampedTime, &distance))
        one.shiftAllTime(distance);
    one.aryTimes()[0] = millis;
    return one;
}

/// With the bytes of the line and of this tag alone, so that a line of a million times does not stay with
/// each.
RBSongLine RepeatedLine::readAt(std::size_t index) const
{
    std::string text(m_before);
    text += m_tags[index];
    text += m_behind;
    ReadSong song = readPart(BlockRef::copyOf(text), {LineAccess::colonReading(m_line), true});
    const bool isSame = song.lines.size() == 1 && song.lines[0].aryTimes().size() == 1
        && song.lines[0].lineText() == m_line.lineText();
    return isSame ? std::move(song.lines[0]) : copiedAt(index);
}

RBSongLine RepeatedLine::copiedAt(std::size_t index) const
{
    RBSongLine one = m_line.copy();
    const std::int64_t millis = std::as_const(m_line).aryTimes()[index];
    one.aryTimes().clear();
    one.appendTime(millis);
    LineAccess::setJoins(one, false, false);
    return one;
}

bool isRepeated(const RBSongLine &line)
{
    return !isPreviewTag(line) && line.aryTimes().size() > 1;
}

void checkSize(const std::vector<RBSongLine> &lines)
{
    std::size_t left = kMostBytesExpanded;
    for (const RBSongLine &line : lines) {
        if (!isRepeated(line))
            continue;
        const std::size_t each = line.lineText().size() + sizeof(RBSongLine);
        if (each > left / line.aryTimes().size())
            throw std::length_error("expanding the repeats of this lyric would make it too large");
        left -= each * line.aryTimes().size();
    }
}

} // namespace

std::size_t expandRepeats(RBEditSong &song)
{
    auto &lines = song.aryLines();
    if (std::none_of(lines.begin(), lines.end(), isRepeated))
        return 0;
    checkSize(lines);
    const std::vector<PreviewEntry> order = previewOrder(lines);
    std::unordered_map<std::size_t, RepeatedLine> repeated;
    std::vector<RBSongLine> expanded;
    expanded.reserve(order.size());
    std::size_t next = 0;
    for (const PreviewEntry &entry : order) {
        const RBSongLine &line = lines[entry.songLine];
        const bool isInPlace = entry.songLine == next;
        next += isInPlace ? 1 : 0;
        if (!isRepeated(line)) {
            expanded.push_back(line);
            continue;
        }
        const RepeatedLine &parts = repeated.try_emplace(entry.songLine, line).first->second;
        expanded.push_back(parts.at(entry.millis));
        // A repeat comes to share no physical line with a tag that happens to stand before it.
        LineAccess::setJoins(expanded.back(), isInPlace && LineAccess::joinsPrevious(line), false);
    }
    const std::size_t added = expanded.size() - lines.size();
    lines = std::move(expanded);
    return added;
}

} // namespace lyrics
