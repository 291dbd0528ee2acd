// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AsfHeader.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// A lyric attribute of a header: where it stands, and what it says.
struct AsfLyric
{
    std::size_t object
        = 0; ///< which of the objects that hold attributes, nested ones included, in file order
    std::size_t attribute = 0; ///< index into that object's attributes
    LyricField field;
};

/// The attributes `WM/Lyrics`, then `WM/Lyrics_Synchronised`, that are text, in file order among equals.
[[nodiscard]] std::vector<AsfLyric> lyricsOf(const AsfHeader &header);

/// The names that a new lyric attribute can have, the usual one first.
[[nodiscard]] std::vector<std::string> newAsfNames();

/// Gives the attribute at `place`, one of `lyrics` or a new one, the text `text`, or takes it out when `text`
/// is empty; an object that is empty then goes with it. A text that is too long for the object that it
/// stands in goes to the metadata library. Null when done.
[[nodiscard]] std::optional<Failure> setLyric(
    AsfHeader &header, const std::vector<AsfLyric> &lyrics, const LyricPlace &place, std::string_view text);

/// Everything in the header that is no lyric, in file order: each object, of those that hold attributes each
/// attribute. Of `fileSize`, the size that the file really has, only whether it is named rightly.
[[nodiscard]] std::vector<std::string> otherParts(const AsfHeader &header, std::uint64_t fileSize);

} // namespace tags
