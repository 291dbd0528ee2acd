// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineAccess.h"
#include "lyrics/LineEnds.h"
#include "lyrics/TextBlock.h"

#include <cstddef>
#include <vector>

namespace lyrics {

/// What was read from a text.
struct ReadSong
{
    std::vector<RBSongLine> lines;
    LineEndCount lineEnds;
    /// What the time tags `a:b:c` were taken to mean; `Fraction` when there are none.
    ColonReading colonReading = ColonReading::Fraction;
};

/// Reads the lines of `text`, from the byte `from` on. Every line refers to the block.
///
/// Cost: linear in the bytes; one allocation for all lines where a physical line is one line.
/// Throws std::length_error for a text of 4 GiB or more: lines count bytes in 32 bits.
[[nodiscard]] ReadSong readSong(const BlockRef &text, std::size_t from);

/// What a line's reading depends on besides its own bytes.
struct ReadingContext
{
    ColonReading reading = ColonReading::Fraction;
    /// A lyric line stands before it, so that an unknown word is no key any more.
    bool lyricSeen = false;
};

/// Reads `text` as a part of a document, where the rest of it has settled the context.
[[nodiscard]] ReadSong readPart(const BlockRef &text, ReadingContext context);

/// Whether the lyric has begun with `line` once it is written: it has a time, or a text that will be read as
/// no tag.
[[nodiscard]] bool isLyric(const RBSongLine &line);

} // namespace lyrics
