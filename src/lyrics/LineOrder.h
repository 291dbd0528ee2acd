// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstddef>

/// What rearranges the lines of a document. All of it happens only on a user's command, and leaves the bytes
/// of every line that is not concerned as they are.
namespace lyrics {

/// What `expandRepeats` adds at most, lines and their texts counted.
inline constexpr std::size_t kMostBytesExpanded = std::size_t(256) << 20;

/// Makes each line of several times as many lines of one time.
///
/// A line stays where it stands with its earliest time. Each further time becomes a line of its own before
/// the first later line that starts after it, at the end if none does; of several that come to one place the
/// earlier time stands first, then what stood first. This is the order of the preview. Every time keeps its
/// spelling. Word stamps hold for one of the times: the latest that is not after the first stamp, or the
/// earliest; at the others they are moved along.
///
/// \return how many lines were added; 0 leaves the document unchanged.
/// Cost: n log n in the number of times, and linear in the bytes that are added. Throws std::length_error
/// when those would be more than `kMostBytesExpanded`, and leaves the document unchanged: a text of 2 MiB can
/// hold a line that would be a terabyte.
std::size_t expandRepeats(RBEditSong &song);

/// Makes lines of equal text one line that has the times of all of them, in the order in which they stood. It
/// stands where the first of them stood.
///
/// Only timed lines with a text take part. Texts with word stamps are equal when the words are and the stamps
/// follow the line's time at the same distances; the stamps of the first line stay, and a line of several
/// times with word stamps takes no part. A line that untimed text follows is taken nowhere, since that text
/// belongs to it; blank lines stay where they stand.
///
/// \return how many lines were taken out; 0 leaves the document unchanged.
/// Cost: linear in the bytes, on average.
std::size_t collapseRepeats(RBEditSong &song);

/// Sorts the lines by their earliest times. Lines of one time keep their order.
///
/// Untimed text and blank lines stay with the timed line that they follow, and before all others if they
/// follow none. Tag lines keep their rows: what is sorted goes round them.
///
/// \return whether a line moved.
/// Cost: n log n in the number of lines.
bool sortByTime(RBEditSong &song);

} // namespace lyrics
