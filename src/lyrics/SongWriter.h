// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"
#include "lyrics/TextBlock.h"

#include <span>
#include <string_view>
#include <vector>

namespace lyrics {

/// U+FEFF, which is the mark of a document only where its text begins.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// What belongs to a document and to none of its lines.
struct SongFrame
{
    /// The text that the document was read from.
    BlockRef source;
    /// The byte-order mark, or empty.
    std::string_view byteOrderMark;
    /// What most lines end with; empty when the text had no line end.
    std::string_view lineEnd;
};

/// The text of `lines`. Runs of lines that are as they were read are copied as one; when all of them are,
/// the answer is the source itself.
///
/// Cost: one pass over the lines, and a copy of the text.
[[nodiscard]] BlockRef writeSong(std::span<const RBSongLine> lines, const SongFrame &frame);

/// For each physical line of what `writeSong` makes of `lines`, the index of its first line.
///
/// Cost: one pass over lines that are those of the source, otherwise that of `writeSong`.
[[nodiscard]] std::vector<std::size_t> physicalLineStarts(
    std::span<const RBSongLine> lines, const SongFrame &frame);

} // namespace lyrics
