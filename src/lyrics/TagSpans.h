// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace lyrics {

enum class TagKind : std::uint8_t {
    Time, ///< one of the times of the line
    Word, ///< a word stamp, which belongs to the text; see WordStamps.h
    Id ///< an ID tag, of the four or another
};

/// Where one tag stands in its physical line: bytes from `begin` to before `end`, brackets included.
struct TagSpan
{
    std::size_t begin;
    std::size_t end;
    TagKind kind;

    friend bool operator==(const TagSpan &, const TagSpan &) = default;
};

/// The tags of one physical line, as the document reads it.
struct TagSpans
{
    /// From left to right.
    std::vector<TagSpan> spans;
    /// The lyric has begun with this line or before it.
    bool lyricSeen = false;
};

/// Finds the tags of `line`, a physical line without its line end.
///
/// \param lyricSeen  a lyric line stands before it, so that an unknown word is no key any more.
/// Cost: linear in the bytes.
[[nodiscard]] TagSpans tagSpans(std::string_view line, bool lyricSeen);

} // namespace lyrics
