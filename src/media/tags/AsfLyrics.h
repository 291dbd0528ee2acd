// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AsfHeader.h"
#include "media/tags/FoundLyrics.h"
#include "media/tags/Outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tags {

/// The attributes `WM/Lyrics`, then `WM/Lyrics_Synchronised`, be they text or binary, in file order among
/// equals. They stand among all attributes of the header, nested ones included, in file order.
[[nodiscard]] std::vector<FoundLyric> lyricsOf(const AsfHeader &header);

/// The names that a new lyric attribute can have, the usual one first.
[[nodiscard]] std::vector<std::string> newAsfNames();

/// What Container::withLyrics() makes of the header with these `lyrics`. An object that an edit leaves empty
/// goes; a binary synchronised one gets what it can hold of its text, see holdableText(); a text that is too
/// long for the object that it stands in goes to the metadata library. Null when done.
[[nodiscard]] std::optional<Failure> setLyrics(
    AsfHeader &header, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits);

/// Everything in the header that is no lyric, in file order: each object, of those that hold attributes each
/// attribute. Of `fileSize`, the size that the file really has, only whether it is named rightly.
[[nodiscard]] std::vector<std::string> otherParts(const AsfHeader &header, std::uint64_t fileSize);

} // namespace tags
