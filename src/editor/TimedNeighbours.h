// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

class RBEditSong;
class RBSongLine;

namespace editor {

/// So far is looked, in rows.
inline constexpr std::size_t kNearRows = 100;
/// So many times of a line are looked at.
inline constexpr std::size_t kMostTimes = 16;

/// A line that is sung: it has times and is no tag. Valid until the lines change.
struct TimedLine
{
    std::size_t row = 0;
    std::span<const std::int64_t> times;
    std::string_view text;
    std::int64_t earliest = 0;
    std::int64_t latest = 0;

    [[nodiscard]] bool isEmpty() const { return text.empty(); }
    /// Whether nothing is sung: no text, notes or marks alone, or a word in brackets.
    [[nodiscard]] bool isPause() const;
    [[nodiscard]] bool has(std::int64_t time) const;
    /// Index of the earliest, and of the latest of its times.
    [[nodiscard]] std::size_t indexOfEarliest() const;
    [[nodiscard]] std::size_t indexOfLatest() const;
};

/// The line at `row` as one that is sung; nothing when it is none.
[[nodiscard]] std::optional<TimedLine> timedLineAt(const RBEditSong &song, std::size_t row);

/// The nearest lines above or below a row that are sung, nearest first.
class TimedNeighbours
{
public:
    enum class Direction { Up, Down };

    TimedNeighbours(const RBEditSong &song, std::size_t row, Direction direction);

    /// The one at `distance` from 0; null when there is none within `kNearRows`.
    [[nodiscard]] const TimedLine *at(std::size_t distance) const
    {
        return distance < m_count ? &m_lines[distance] : nullptr;
    }
    /// The first one that does not stand at `time`, and the one beyond it.
    [[nodiscard]] std::array<const TimedLine *, 2> twoNotAt(std::int64_t time) const;
    /// Whether text without a time stands before the nearest.
    [[nodiscard]] bool hasUntimedTextBefore() const { return m_untimedText; }

private:
    static constexpr std::size_t kMost = 5;

    std::array<TimedLine, kMost> m_lines;
    std::size_t m_count = 0;
    bool m_untimedText = false;
};

/// The rows from `kNearRows` above `row` to `kNearRows` below it, as far as there are rows.
struct RowRange
{
    std::size_t begin;
    std::size_t end;
};
[[nodiscard]] RowRange rowsNear(const RBEditSong &song, std::size_t row);

/// `a` − `b`, at most the largest time: lyrics may hold any.
[[nodiscard]] std::int64_t distance(std::int64_t a, std::int64_t b);

} // namespace editor
