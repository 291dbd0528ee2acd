// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Id3v2Tag.h"
#include "media/tags/LyricFields.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// A lyric frame of a tag: where it stands, and what it says.
struct Id3v2Lyric
{
    std::size_t frame = 0; ///< index into the tag's frames
    LyricField field;
};

/// The lyric frames of `tag` in the order of preference: `USLT` (`ULT` in 2.2), `SYLT` (`SLT`) that holds
/// lyrics, then `TXXX` whose description is the name of a lyric. Deflated and encrypted ones are left out,
/// and so is what counts in frames of sound where `frameLength`, that of the sound behind the tag, is not
/// known.
[[nodiscard]] std::vector<Id3v2Lyric> lyricsOf(
    const Id3v2Tag &tag, const std::optional<FrameLength> &frameLength);

/// The names that a new lyric frame can have, the usual one first.
[[nodiscard]] std::vector<std::string> newId3v2Names();

/// Gives the frame at `place`, one of `lyrics` or a new one of no language and no description, the text
/// `text`, or takes it out when `text` is empty. A `SYLT` frame gets what it can hold of it, see
/// holdableText(), and goes when that is nothing. Null when done.
[[nodiscard]] std::optional<Failure> setLyric(Id3v2Tag &tag, const std::vector<Id3v2Lyric> &lyrics,
    const LyricPlace &place, std::string_view text, const std::optional<FrameLength> &frameLength);

} // namespace tags
