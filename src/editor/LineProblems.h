// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

class RBEditSong;

namespace editor {

/// What is probably wrong with one line of a lyric, as it may be shown while it is edited.
struct LineProblem
{
    enum class Kind {
        EarlierThanAbove, ///< sung before the line above is; `millis` by how much
        LaterThanBelow, ///< the one line that its neighbours go on without; `millis` by how much
        SameAsAbove, ///< the line above has the same text at the same time
        TwiceOnLine, ///< the same time stands before it on the same line
        ManyAtOnce, ///< three lines above stand at this time already
        GapAfter, ///< nothing comes for `millis` after this time
        PastEnd, ///< the audio ends before; `millis` where it ends
        EmptyAfterEmpty, ///< an empty line follows an empty one
        EmptyAtOnce, ///< an empty line takes the text above away `millis` after it came
        EmptyBeforeNext ///< an empty line stands only `millis` before the next text
    };
    static constexpr std::size_t kText = std::numeric_limits<std::size_t>::max();

    Kind kind;
    /// Index from 0 of the time that it is about; `kText` when it is about the text.
    std::size_t timeIndex;
    /// See the kinds; 0 where they say nothing.
    std::int64_t millis = 0;

    friend bool operator==(const LineProblem &, const LineProblem &) = default;
};

/// What is probably wrong with the line at `row`, in the order of the columns; mostly nothing.
///
/// Made to be quiet: lyrics that are as they are on purpose raise no mark.
/// - A line fits its neighbour when any time of the one fits any time of the other, so that
///   repeats may stand in any order. A second block that goes over the same times again (a
///   translation) and a group of repeated lines above the verses begin anew and are no fault.
///   Of three lines of which the middle one is out of order, only that one is marked.
/// - Equal times are voices and translations: no fault up to three lines with different texts,
///   none where lines stand in such pairs, and none for different texts at 0, where the makers are named.
/// - A gap is more than ten seconds, more than twice the pace of the lines around it, and ends with a
///   text that is known: an empty line that clears the screen is none, and neither is the opening,
///   the end, or what is not stamped yet; a note or a word in brackets stands for
///   such a line. Times of other lines count, so that a repeated chorus is found wherever it stands.
/// - An empty timed line after a text is right before a pause, at the very time of the next line, and
///   where the lyric parts stanzas or ends lines that way in another place, too.
/// Tag lines, other ID tags and untimed lines have no problems and are passed over; word stamps are text.
///
/// \param row  from 0; past the end answers nothing.
/// \param audioMillis  the length of the audio; 0 when it is not known.
/// Cost: bounded, whatever the length of the lyric: at most a hundred rows up, down and from the top
/// are looked at, and 16 times of each; mostly it is the next few rows.
[[nodiscard]] std::vector<LineProblem> problemsOf(
    const RBEditSong &song, std::size_t row, std::int64_t audioMillis);

} // namespace editor
