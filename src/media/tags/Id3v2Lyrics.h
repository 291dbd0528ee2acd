// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Id3v2Tag.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tags {

/// A lyric frame of a tag: where it stands, and what it says.
struct Id3v2Lyric
{
    std::size_t frame = 0; ///< index into the tag's frames
    LyricField field;
};

/// The lyric frames of `tag` in the order of preference: `USLT` (`ULT` in 2.2), then `TXXX`
/// whose description is the name of a lyric. Deflated and encrypted ones are left out.
[[nodiscard]] std::vector<Id3v2Lyric> lyricsOf(const Id3v2Tag &tag);

/// The names that a new lyric frame can have, the usual one first.
[[nodiscard]] std::vector<std::string> newId3v2Names();

/// Gives the frame at `place`, one of `lyrics` or a new one of no language and no description, the text
/// `text`, or takes it out when `text` is empty. Null when done.
[[nodiscard]] std::optional<Failure> setLyric(
    Id3v2Tag &tag, const std::vector<Id3v2Lyric> &lyrics, const LyricPlace &place, std::string_view text);

} // namespace tags
