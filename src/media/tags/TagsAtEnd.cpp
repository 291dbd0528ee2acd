// SPDX-License-Identifier: MIT
#include "media/tags/TagsAtEnd.h"

#include "media/tags/ByteSource.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tags {

namespace {

constexpr std::uint64_t kId3v1Bytes = 128;
constexpr std::size_t kMarkBytes = 9; ///< of "LYRICS200" and "LYRICSEND"
constexpr std::size_t kLengthDigits = 6;
constexpr std::string_view kLyrics3Begin = "LYRICSBEGIN";
constexpr std::uint64_t kLongestLyrics3v1 = 5100 + kLyrics3Begin.size() + kMarkBytes;

bool hasApeFooter(const ByteSource &source, std::uint64_t end)
{
    return end >= kApeFooterBytes && source.read(end - kApeFooterBytes, 8) == "APETAGEX";
}

/// Bytes of a block of version 2 that ends at `end`; its length, in digits, stands before its mark.
std::uint64_t lyrics3v2Size(const ByteSource &source, std::uint64_t end)
{
    const std::string digits = source.read(end - kMarkBytes - kLengthDigits, kLengthDigits);
    std::uint64_t size = kMarkBytes + kLengthDigits;
    std::uint64_t length = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return 0;
        length = length * 10 + std::uint64_t(c - '0');
    }
    size += length;
    const bool begins = size <= end && source.read(end - size, kLyrics3Begin.size()) == kLyrics3Begin;
    return begins ? size : 0;
}

std::uint64_t lyrics3v1Size(const ByteSource &source, std::uint64_t end)
{
    const std::uint64_t from = end - std::min(end, kLongestLyrics3v1);
    const std::size_t begin = source.read(from, std::size_t(end - from)).rfind(kLyrics3Begin);
    return begin == std::string::npos ? 0 : end - from - begin;
}

/// Bytes of the Lyrics3 block that ends at `end`; 0 when there is none.
std::uint64_t lyrics3Size(const ByteSource &source, std::uint64_t end)
{
    if (end < kLyrics3Begin.size() + kLengthDigits + kMarkBytes)
        return 0;
    const std::string mark = source.read(end - kMarkBytes, kMarkBytes);
    if (mark == "LYRICS200")
        return lyrics3v2Size(source, end);
    return mark == "LYRICSEND" ? lyrics3v1Size(source, end) : 0;
}

} // namespace

TagsAtEnd tagsAtEnd(const ByteSource &source)
{
    const std::uint64_t size = source.size();
    TagsAtEnd tags = {size, size, hasApeFooter(source, size)};
    // An APE tag at the very end comes first: any of its texts may hold the letters of an ID3v1 tag.
    if (tags.hasApe)
        return tags;
    if (size >= kId3v1Bytes && source.read(size - kId3v1Bytes, 3) == "TAG")
        tags.id3v1 = tags.lyrics3 = size - kId3v1Bytes;
    tags.hasApe = hasApeFooter(source, tags.id3v1);
    if (!tags.hasApe) {
        tags.lyrics3 -= lyrics3Size(source, tags.id3v1);
        tags.hasApe = hasApeFooter(source, tags.lyrics3);
    }
    return tags;
}

} // namespace tags
