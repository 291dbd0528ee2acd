// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FoundLyrics.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// A Vorbis comment, entry by entry, each kept as it is spelled.
///
/// Source: "Ogg Vorbis I format specification: comment field and header specification".
struct VorbisComment
{
    std::string vendor;
    std::vector<std::string> entries; ///< "KEY=value", in file order
    std::string rest; ///< what follows the last entry (framing bit, padding)

    /// Null when the counts in `bytes` do not fit into it, or exceed 100,000 entries.
    [[nodiscard]] static std::optional<VorbisComment> parse(std::string_view bytes);
    [[nodiscard]] std::string render() const;
};

/// The lyric entries in the order of preference: `LYRICS`, `SYNCEDLYRICS`, `UNSYNCEDLYRICS`,
/// `UNSYNCED LYRICS`, keys in any case, and in file order among equals.
[[nodiscard]] std::vector<FoundLyric> lyricsOf(const VorbisComment &comment);

/// The keys that a new lyric entry can have, the usual one first.
[[nodiscard]] std::vector<std::string> newVorbisNames();

/// What Container::withLyrics() makes of the comment with these `lyrics`. Keys stay as they are spelled.
void setLyrics(
    VorbisComment &comment, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits);

/// The entries that are no lyric, and the vendor.
[[nodiscard]] std::vector<std::string> otherEntries(const VorbisComment &comment);

} // namespace tags
