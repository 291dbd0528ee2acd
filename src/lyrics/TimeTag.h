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

/// The bytes of `[mm:ss.xx]`.
inline constexpr std::size_t kPlainTag = 10;

/// One time tag, brackets included.
struct TimeTag : TimeSpelling
{
    /// Spelled as `writeTag` would spell it, in `kPlainTag` bytes.
    bool isPlain = false;
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
    const std::uint64_t seconds = pairs >> 24 & 0xFF;
    std::uint64_t millis = (pairs & 0xFF) * 60'000 + seconds * 1'000 + (pairs >> 48 & 0xFF) * 10;
    const char *last = p + 9;
    tag.isPlain = seconds < 60;
    if (const auto digit = static_cast<unsigned char>(*last - '0'); digit <= 9) {
        millis += digit;
        ++last;
        tag.isPlain = false;
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

/// `writeTime` with `Fraction::Exact`. What is below a hundred minutes, which is nearly all there is, becomes
/// eight bytes at once.
[[nodiscard]] inline char *writeExactTime(char *out, std::int64_t millis)
{
    constexpr std::uint32_t kHundredMinutes = 6'000'000;
    if (std::endian::native != std::endian::little || static_cast<std::uint64_t>(millis) >= kHundredMinutes)
        return writeTime(out, millis, Fraction::Exact);
    const auto amount = static_cast<std::uint32_t>(millis);
    const std::uint32_t hundredths = amount / 10;
    const std::uint32_t seconds = hundredths / 100;
    // The three numbers where their digits will stand, and of each the tens: 103 / 1024 is a tenth of what is
    // below 100.
    const std::uint64_t numbers
        = seconds / 60 | std::uint64_t(seconds % 60) << 24 | std::uint64_t(hundredths % 100) << 48;
    const std::uint64_t tens = numbers * 103 >> 10 & 0x000F00000F00000F;
    const std::uint64_t bytes = (tens | (numbers - tens * 10) << 8) + 0x30302E30303A3030;
    std::memcpy(out, &bytes, sizeof bytes);
    // The third digit of the fraction, which counts only if it is not 0.
    const std::uint32_t rest = amount % 10;
    out[8] = static_cast<char>('0' + rest);
    return out + 8 + (rest != 0 ? 1 : 0);
}

/// The most bytes that `writeTag` takes.
inline constexpr int kLongestTag = kLongestTime + 2;

/// Writes a new time tag.
[[nodiscard]] inline char *writeTag(char *out, std::int64_t millis)
{
    *out++ = '[';
    out = writeExactTime(out, millis);
    *out++ = ']';
    return out;
}

} // namespace lyrics
