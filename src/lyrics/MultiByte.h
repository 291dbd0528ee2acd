// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lyrics {

/// Both ends belong to it.
struct ByteRange
{
    std::uint16_t first;
    std::uint16_t last;

    [[nodiscard]] constexpr bool has(unsigned value) const { return first <= value && value <= last; }
};

/// An encoding whose characters have one or two bytes: what is well-formed, and what is frequent in lyrics.
struct MultiByteEncoding
{
    std::span<const ByteRange> leads;
    std::span<const ByteRange> trails;
    /// Bytes of 0x80 and more that are characters alone.
    std::span<const ByteRange> singles;
    /// Pairs of bytes that most texts are made of, as long as the second byte is one of `usualTrails`.
    std::span<const ByteRange> usual;
    ByteRange usualTrails;
    /// The most frequent characters, ascending.
    std::span<const std::uint16_t> frequent;
};

extern const MultiByteEncoding kGbk;
extern const MultiByteEncoding kBig5;
extern const MultiByteEncoding kShiftJis;

/// How much `bytes` look like a text in the encoding, from 0 to 1. Cost: linear in the bytes.
[[nodiscard]] double multiByteScore(std::string_view bytes, const MultiByteEncoding &encoding);

} // namespace lyrics
