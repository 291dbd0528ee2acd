// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FoundLyrics.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// One item of an APE tag, kept as it stands in the file.
struct ApeItem
{
    std::string raw; ///< length of the value, flags, key, its NUL, value
    std::size_t keyBytes = 0;

    [[nodiscard]] std::string_view key() const { return std::string_view(raw).substr(8, keyBytes); }
    [[nodiscard]] std::string_view value() const { return std::string_view(raw).substr(8 + keyBytes + 1); }
    [[nodiscard]] std::uint32_t flags() const;
    /// Whether the value is text, and not binary or the address of something elsewhere.
    [[nodiscard]] bool isText() const { return (flags() & 6U) == 0; }
};

/// An APE tag (APEv2; APEv1 to be read) at the end of a file, to be edited item by item.
///
/// Items that are not edited are written back byte for byte and in their order, header and footer with
/// nothing changed but size and count. Source: "APEv2 specification", Hydrogenaudio Knowledgebase.
struct ApeTag
{
    std::uint64_t offset = 0; ///< in the file; where a new tag is to stand when there is none
    std::uint64_t bytes = 0; ///< of the whole tag in the file; 0 when there is none
    std::string header; ///< as it stands; empty where there is none
    std::string footer;
    std::vector<ApeItem> items;
    std::string tail; ///< what follows the last item

    /// The tag at the end of `source`, before an ID3v1 tag and a Lyrics3 block; one of 0 bytes when there
    /// is none. A tag of more than 16 MiB or 100,000 values is refused.
    [[nodiscard]] static Outcome<ApeTag> parse(const ByteSource &source);

    /// 1 or 2.
    [[nodiscard]] unsigned version() const;
    /// The bytes of the tag; none when nothing is left in it.
    [[nodiscard]] Outcome<std::string> render() const;
};

/// The lyric items in the order of preference: `Lyrics`, `UNSYNCEDLYRICS`, `SYNCEDLYRICS`,
/// `UNSYNCED LYRICS`, keys in any case, and in file order among equals. Binary and external items are
/// none. Several values of one item are one text, with the NUL that separates them.
[[nodiscard]] std::vector<FoundLyric> lyricsOf(const ApeTag &tag);

/// The keys that a new lyric item can have, the usual one first.
[[nodiscard]] std::vector<std::string> newApeNames();

/// What Container::withLyrics() makes of the tag with these `lyrics`; keys and flags stay. Null when done;
/// refused in APEv1, and where tag or item say that they are not to be written.
[[nodiscard]] std::optional<Failure> setLyrics(
    ApeTag &tag, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits);

/// Everything in the tag that is no lyric: its version and flags, if there is anything else, and each item.
[[nodiscard]] std::vector<std::string> otherItems(const ApeTag &tag);

} // namespace tags
