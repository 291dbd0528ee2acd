// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace lyrics {

/// What `[a:b:c]` without a point means in one document.
enum class ColonReading : std::uint8_t {
    Fraction, ///< minutes, seconds, fraction of a second
    Hours ///< hours, minutes, seconds
};

/// One time as it is spelled.
struct TimeSpelling
{
    std::int64_t millis = 0;
    /// Behind the last byte that belongs to it.
    const char *end = nullptr;
    bool hasColon = false;
    /// Spelled `a:b:c`, so that the document decides what it means.
    bool colonForm = false;
    /// The colon form may be read as hours: no field above 59 speaks against it, and it fits.
    bool canBeHours = false;
};

/// One time tag, brackets included.
struct TimeTag : TimeSpelling
{
    /// `[from-to]`: where the dash stands, and the time of the end. Null for all others.
    const char *rangeDash = nullptr;
    std::int64_t rangeEndMillis = 0;
};

/// `[mm:ss.xx]` and `[mm:ss.xxx]`, which is nearly all there is: eight bytes are looked at at once. Elsewhere
/// than on little-endian machines the general reader does it all.
[[nodiscard]] inline bool readCommonTimeTag(const char *p, const char *end, TimeTag &tag)
{
    if (std::endian::native != std::endian::little || end - p < 10)
        return false;
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, p + 1, sizeof bytes);
    // What is left of "mm:ss.xx" without "00:00.00": nothing of the colon and the point, and a digit's value
    // in each other byte, which is one if neither it nor it and six reach into the upper half of the byte.
    constexpr std::uint64_t kZero = 0x30302E30303A3030;
    constexpr std::uint64_t kUpper = 0xF0F0FFF0F0FFF0F0;
    constexpr std::uint64_t kSix = 0x0606000606000606;
    const std::uint64_t digits = bytes ^ kZero;
    if (((digits | (digits + kSix)) & kUpper) != 0)
        return false;
    // Each byte times ten, and the next: of two digits what they say.
    const std::uint64_t pairs = digits * 10 + (digits >> 8);
    std::uint64_t millis = (pairs & 0xFF) * 60'000 + (pairs >> 24 & 0xFF) * 1'000 + (pairs >> 48 & 0xFF) * 10;
    const char *last = p + 9;
    if (const auto digit = static_cast<unsigned char>(*last - '0'); digit <= 9) {
        millis += digit;
        ++last;
    }
    if (last == end || *last != ']')
        return false;
    tag.millis = static_cast<std::int64_t>(millis);
    tag.end = last + 1;
    tag.rangeDash = nullptr;
    tag.colonForm = false;
    return true;
}

/// `readTimeTag` for every other shape.
[[nodiscard]] bool readUncommonTimeTag(const char *p, const char *end, ColonReading reading, TimeTag &tag);

/// Reads the time tag that begins at `p`, a `[`. False when there is none: what looks like one but does
/// not follow the shapes of docs/LRC.md, or does not fit into 64 bits of milliseconds.
/// Cost: linear in the bytes of the tag.
[[nodiscard]] inline bool readTimeTag(const char *p, const char *end, ColonReading reading, TimeTag &tag)
{
    return readCommonTimeTag(p, end, tag) || readUncommonTimeTag(p, end, reading, tag);
}

/// Reads the time that begins at `p`, without brackets and blanks round it.
[[nodiscard]] bool readTime(const char *p, const char *end, ColonReading reading, TimeSpelling &time);

/// The most bytes that `writeTime` takes.
inline constexpr int kLongestTime = 32;

/// How many digits of fraction a time is written with.
enum class Fraction : std::uint8_t {
    Rounded, ///< two, to the nearest hundredth; a negative time is zero
    Exact ///< two, or three when the time is no whole hundredth; a negative time has a sign
};

/// Writes `mm:ss.xx` to `out`, which has room for `kLongestTime` bytes. Answers the end.
[[nodiscard]] char *writeTime(char *out, std::int64_t millis, Fraction fraction);

} // namespace lyrics
