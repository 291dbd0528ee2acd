// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FoundLyrics.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/Outcome.h"

#include <optional>
#include <string>
#include <vector>

namespace tags {

/// The lyric frames of `tag` in the order of preference: `USLT` (`ULT` in 2.2), `SYLT` (`SLT`) that holds
/// lyrics, then `TXXX` whose description is the name of a lyric. Encrypted ones are left out,
/// and so is what counts in frames of sound where `frameLength`, that of the sound behind the tag, is not
/// known.
[[nodiscard]] std::vector<FoundLyric> lyricsOf(
    const Id3v2Tag &tag, const std::optional<FrameLength> &frameLength);

/// The names that a new lyric frame can have, the usual one first.
[[nodiscard]] std::vector<std::string> newId3v2Names();

/// What Container::withLyrics() makes of the tag with these `lyrics`. A new frame has no language and no
/// description. A `SYLT` frame gets what it can hold of its text, see holdableText(), and goes when that is
/// nothing. Null when done.
[[nodiscard]] std::optional<Failure> setLyrics(Id3v2Tag &tag, const std::vector<FoundLyric> &lyrics,
    const std::vector<FieldEdit> &edits, const std::optional<FrameLength> &frameLength);

} // namespace tags
