// SPDX-License-Identifier: MIT
#include "editor/TimedNeighbours.h"

#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <utility>

namespace editor {

namespace {

using namespace std::string_view_literals;

// Notes, and what stands for silence besides the marks of ASCII.
constexpr std::array kPauseSigns{"\u2669"sv, "\u266a"sv, "\u266b"sv, "\u266c"sv, "\U0001f3b5"sv,
    "\U0001f3b6"sv, "\U0001f3bc"sv, "\u2026"sv, "\u2014"sv, "\u2013"sv, "\uff5e"sv, "\u00b7"sv, "\ufe0e"sv,
    "\ufe0f"sv};
constexpr std::array kBrackets{std::pair{"("sv, ")"sv}, std::pair{"["sv, "]"sv},
    std::pair{"\uff08"sv, "\uff09"sv}, std::pair{"\u3010"sv, "\u3011"sv}};

bool isMark(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x80 && std::isalnum(code) == 0;
}

bool hasOnlySigns(std::string_view text)
{
    while (!text.empty()) {
        const auto *const sign
            = std::ranges::find_if(kPauseSigns, [text](auto known) { return text.starts_with(known); });
        if (sign == kPauseSigns.end() && !isMark(text.front())) {
            return false;
        }
        text.remove_prefix(sign == kPauseSigns.end() ? 1 : sign->size());
    }
    return true;
}

} // namespace

bool TimedLine::isPause() const
{
    return hasOnlySigns(text) || std::ranges::any_of(kBrackets, [this](const auto &pair) {
        return text.starts_with(pair.first) && text.ends_with(pair.second);
    });
}

bool TimedLine::has(std::int64_t time) const
{
    return std::ranges::find(times, time) != times.end();
}

std::size_t TimedLine::indexOfEarliest() const
{
    return static_cast<std::size_t>(std::ranges::min_element(times) - times.begin());
}

std::size_t TimedLine::indexOfLatest() const
{
    return static_cast<std::size_t>(std::ranges::max_element(times) - times.begin());
}

std::optional<TimedLine> timedLineAt(const RBEditSong &song, std::size_t row)
{
    if (row >= song.aryLines().size()) {
        return std::nullopt;
    }
    const RBSongLine &line = song.aryLines()[row];
    const auto &times = line.aryTimes();
    if (line.isProperty() || times.empty()) {
        return std::nullopt;
    }
    const std::span<const std::int64_t> looked(times.begin(), std::min(times.size(), kMostTimes));
    const auto [earliest, latest] = std::ranges::minmax_element(looked);
    return TimedLine{row, looked, line.lineText(), *earliest, *latest};
}

TimedNeighbours::TimedNeighbours(const RBEditSong &song, std::size_t row, Direction direction)
{
    const auto [begin, end] = rowsNear(song, row);
    const std::size_t rows = direction == Direction::Up ? row - begin : end - row - 1;
    for (std::size_t away = 1; away <= rows && m_count < kMost; ++away) {
        const std::size_t at = direction == Direction::Up ? row - away : row + away;
        if (const auto line = timedLineAt(song, at)) {
            m_lines[m_count++] = *line;
        } else if (m_count == 0) {
            const RBSongLine &untimed = song.aryLines()[at];
            const bool isTag = untimed.isProperty() || untimed.isOtherTag();
            m_untimedText = m_untimedText || (!isTag && !untimed.lineText().empty());
        }
    }
}

std::array<const TimedLine *, 2> TimedNeighbours::twoNotAt(std::int64_t time) const
{
    std::size_t first = 0;
    while (first < m_count && m_lines[first].has(time)) {
        ++first;
    }
    return {at(first), at(first + 1)};
}

RowRange rowsNear(const RBEditSong &song, std::size_t row)
{
    const std::size_t rows = song.aryLines().size();
    return {row > kNearRows ? row - kNearRows : 0, std::min(rows, row + kNearRows + 1)};
}

std::int64_t distance(std::int64_t a, std::int64_t b)
{
    std::int64_t difference = 0;
    return __builtin_sub_overflow(a, b, &difference) ? std::numeric_limits<std::int64_t>::max() : difference;
}

} // namespace editor
