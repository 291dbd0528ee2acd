// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tags {

class ByteSource;

inline constexpr std::uint64_t kApeFooterBytes = 32;

/// What stands at the end of a file, from the back: an ID3v1 tag, a Lyrics3 block, an APE tag; each may be
/// missing.
struct TagsAtEnd
{
    std::uint64_t id3v1 = 0; ///< where it begins; the size of the file when there is none
    std::uint64_t lyrics3 = 0; ///< where it begins; `id3v1` when there is none between APE tag and ID3v1
    bool hasApe = false; ///< whether the footer of an APE tag ends at `lyrics3`
};

/// Sources: "ID3v1" and "Lyrics3 v2.00", id3.org; "APEv2 specification", Hydrogenaudio Knowledgebase.
[[nodiscard]] TagsAtEnd tagsAtEnd(const ByteSource &source);

} // namespace tags
