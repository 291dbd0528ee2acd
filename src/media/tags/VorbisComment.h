// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/LyricFields.h"

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

/// A lyric entry of a comment: where it stands, and what it says.
struct VorbisLyric
{
    std::size_t entry = 0; ///< index into the comment's entries
    LyricField field;
};

/// The lyric entries in the order of preference: `LYRICS`, `SYNCEDLYRICS`, `UNSYNCEDLYRICS`,
/// `UNSYNCED LYRICS`, keys in any case, and in file order among equals.
[[nodiscard]] std::vector<VorbisLyric> lyricsOf(const VorbisComment &comment);

/// The keys that a new lyric entry can have, the usual one first.
[[nodiscard]] std::vector<std::string> newVorbisNames();

/// Gives the entry at `place`, one of `lyrics` or a new one, the text `text` (its key stays as spelled), or
/// takes it out when `text` is empty.
void setLyric(VorbisComment &comment, const std::vector<VorbisLyric> &lyrics, const LyricPlace &place,
    std::string_view text);

/// The entries that are no lyric, and the vendor.
[[nodiscard]] std::vector<std::string> otherEntries(const VorbisComment &comment);

} // namespace tags
