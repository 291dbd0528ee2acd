// SPDX-License-Identifier: MIT
#include "editor/LineProblems.h"

#include "editor/LyricGaps.h"
#include "editor/TimedNeighbours.h"
#include "lyrics/RBEditSong.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace editor {

namespace {

using Kind = LineProblem::Kind;
using Direction = TimedNeighbours::Direction;

constexpr std::size_t kText = LineProblem::kText;
// Durations are told and measured in different ways; so much past the end is none.
constexpr std::int64_t kEndTolerance = 100;
// A text that is taken away so soon was not read.
constexpr std::int64_t kSeenMillis = 500;
// An empty screen that is shorter than this only flickers.
constexpr std::int64_t kPauseMillis = 2000;
// Original, romanised and translated text, or voices.
constexpr std::size_t kLinesAtOnce = 3;

// One line with what stands around it.
struct Place
{
    Place(const RBEditSong &lyric, const TimedLine &timedLine)
        : song(lyric), line(timedLine), up(lyric, timedLine.row, Direction::Up),
          down(lyric, timedLine.row, Direction::Down)
    { }

    const RBEditSong &song;
    const TimedLine &line;
    TimedNeighbours up;
    TimedNeighbours down;
};

// Whether `next` may stand behind `line`: some time of it is not before all times of the other.
bool follows(const TimedLine &next, const TimedLine &line)
{
    return next.latest >= line.earliest;
}

bool standsIn(const RBEditSong &song, std::size_t begin, std::size_t end, std::int64_t time)
{
    for (std::size_t row = begin; row < end; ++row) {
        if (const auto line = timedLineAt(song, row); line && line->has(time)) {
            return true;
        }
    }
    return false;
}

// Whether a line above stands at `time`, near it or at the top of the lyric.
bool standsAbove(const RBEditSong &song, std::size_t row, std::int64_t time)
{
    return standsIn(song, rowsNear(song, row).begin, row, time)
        || standsIn(song, 0, std::min(row, kNearRows), time);
}

// Whether the lyric begins anew at `next`, which does not follow `line`: it goes on from there.
bool beginsAnew(
    const RBEditSong &song, const TimedLine &line, const TimedLine &next, const TimedLine *afterNext)
{
    if (afterNext == nullptr || !follows(*afterNext, next)) {
        return false;
    }
    const bool isRepeatGroup = line.times.size() > 1 || next.times.size() > 1;
    if (isRepeatGroup && !follows(*afterNext, line)) {
        return true;
    }
    return afterNext->earliest <= line.latest && standsAbove(song, next.row, next.earliest);
}

// Whether `odd` alone is out of order: the lyric goes on from `before` to `next` and `after`.
bool isAlone(const TimedLine *before, const TimedLine &odd, const TimedLine &next, const TimedLine *after)
{
    return (before == nullptr || follows(next, *before)) && after != nullptr && !follows(*after, odd)
        && follows(*after, next);
}

std::optional<LineProblem> orderProblem(const Place &place)
{
    const TimedLine &line = place.line;
    const TimedLine *above = place.up.at(0);
    const TimedLine *below = place.down.at(0);
    if (above != nullptr && !follows(line, *above) && !beginsAnew(place.song, *above, line, below)
        && !isAlone(place.up.at(1), *above, line, below)) {
        return LineProblem{
            Kind::EarlierThanAbove, line.indexOfLatest(), distance(above->earliest, line.latest)};
    }
    const TimedLine *next = place.down.at(1);
    if (below != nullptr && !follows(*below, line) && !beginsAnew(place.song, line, *below, next)
        && isAlone(above, line, *below, next)) {
        return LineProblem{
            Kind::LaterThanBelow, line.indexOfEarliest(), distance(line.earliest, below->latest)};
    }
    return std::nullopt;
}

bool isPair(const std::array<const TimedLine *, 2> &lines)
{
    return lines[0] != nullptr && lines[1] != nullptr && lines[0]->text != lines[1]->text
        && std::ranges::any_of(lines[0]->times, [&lines](auto time) { return lines[1]->has(time); });
}

// Whether the lines around those at `time` stand in pairs of a text and its translation.
bool isAmongPairs(const Place &place, std::int64_t time)
{
    return isPair(place.up.twoNotAt(time)) || isPair(place.down.twoNotAt(time));
}

bool isOneOfMany(const Place &place, std::int64_t time)
{
    for (std::size_t away = 0; away < kLinesAtOnce; ++away) {
        const TimedLine *above = place.up.at(away);
        if (above == nullptr || !above->has(time)) {
            return false;
        }
    }
    // At 0 stand the makers of the song, and every line that was not synchronised.
    return time > 0;
}

std::optional<LineProblem> equalTimeProblem(const Place &place, std::size_t index)
{
    const TimedLine &line = place.line;
    const std::int64_t time = line.times[index];
    if (std::ranges::find(line.times.first(index), time) != line.times.begin() + std::ptrdiff_t(index)) {
        return LineProblem{Kind::TwiceOnLine, index};
    }
    const TimedLine *above = place.up.at(0);
    if (above == nullptr || !above->has(time) || line.isEmpty()) {
        return std::nullopt;
    }
    if (above->text == line.text && !isAmongPairs(place, time)) {
        return LineProblem{Kind::SameAsAbove, index};
    }
    return isOneOfMany(place, time) ? std::optional(LineProblem{Kind::ManyAtOnce, index}) : std::nullopt;
}

// How long after the text above the line empties the screen; nothing when no text stands above.
std::optional<std::int64_t> sinceTextAbove(const Place &place, std::int64_t time)
{
    const TimedLine *above = place.up.at(0);
    std::optional<std::int64_t> shortest;
    if (above == nullptr || above->isEmpty()) {
        return shortest;
    }
    for (const std::int64_t other : above->times) {
        if (other <= time) {
            shortest = std::min(shortest.value_or(distance(time, other)), distance(time, other));
        }
    }
    return shortest;
}

std::optional<std::int64_t> untilTextBelow(const Place &place, std::int64_t time)
{
    const TimedLine *below = place.down.at(0);
    std::optional<std::int64_t> shortest;
    if (below == nullptr || below->isEmpty()) {
        return shortest;
    }
    for (const std::int64_t other : below->times) {
        if (other > time) {
            shortest = std::min(shortest.value_or(distance(other, time)), distance(other, time));
        }
    }
    return shortest;
}

// Whether another empty line near stands so shortly before the next text: some lyrics part their
// stanzas that way, or end every line.
bool isUsualBeforeText(const Place &place)
{
    const auto [begin, end] = rowsNear(place.song, place.line.row);
    std::optional<TimedLine> last;
    for (std::size_t row = begin; row < end; ++row) {
        const auto line = timedLineAt(place.song, row);
        if (!line) {
            continue;
        }
        const bool isEnd = last && last->row != place.line.row && last->isEmpty() && !line->isEmpty();
        if (isEnd && std::abs(distance(line->earliest, last->earliest)) < kPauseMillis) {
            return true;
        }
        last = line;
    }
    return false;
}

std::optional<LineProblem> emptyLineProblem(const Place &place)
{
    const TimedLine &line = place.line;
    const TimedLine *above = place.up.at(0);
    if (!line.isEmpty() || above == nullptr) {
        return std::nullopt;
    }
    const bool isTranslation = above->has(line.earliest) && isAmongPairs(place, line.earliest);
    if (isTranslation) {
        return std::nullopt;
    }
    if (above->isEmpty()) {
        if (place.up.hasUntimedTextBefore()) {
            return std::nullopt;
        }
        return LineProblem{Kind::EmptyAfterEmpty, kText, distance(line.earliest, above->earliest)};
    }
    for (const std::int64_t time : line.times) {
        const auto since = sinceTextAbove(place, time);
        if (since && *since < kSeenMillis) {
            return LineProblem{Kind::EmptyAtOnce, kText, *since};
        }
        const auto until = untilTextBelow(place, time);
        if (since && until && *until < kPauseMillis && !isUsualBeforeText(place)) {
            return LineProblem{Kind::EmptyBeforeNext, kText, *until};
        }
    }
    return std::nullopt;
}

std::optional<LineProblem> gapProblem(const Place &place, std::size_t index)
{
    const TimedLine *below = place.down.at(0);
    const std::int64_t time = place.line.times[index];
    if (place.line.isPause() || place.down.hasUntimedTextBefore() || (below != nullptr && below->has(time))) {
        return std::nullopt;
    }
    const auto gap = gapAfter(place.song, place.line.row, time);
    return gap ? std::optional(LineProblem{Kind::GapAfter, index, *gap}) : std::nullopt;
}

bool isPastEnd(const TimedLine &line, std::size_t index, std::int64_t audioMillis)
{
    return audioMillis > 0 && !line.isEmpty() && distance(line.times[index], audioMillis) > kEndTolerance;
}

} // namespace

std::vector<LineProblem> problemsOf(const RBEditSong &song, std::size_t row, std::int64_t audioMillis)
{
    std::vector<LineProblem> problems;
    const auto add = [&problems](const std::optional<LineProblem> &problem) {
        if (problem) {
            problems.push_back(*problem);
        }
    };
    const auto line = timedLineAt(song, row);
    if (!line) {
        return problems;
    }
    const Place place(song, *line);
    add(orderProblem(place));
    for (std::size_t index = 0; index < line->times.size(); ++index) {
        add(equalTimeProblem(place, index));
        if (isPastEnd(*line, index, audioMillis)) {
            problems.push_back({Kind::PastEnd, index, audioMillis});
        }
        add(gapProblem(place, index));
    }
    add(emptyLineProblem(place));
    std::ranges::stable_sort(problems, {}, &LineProblem::timeIndex);
    return problems;
}

} // namespace editor
