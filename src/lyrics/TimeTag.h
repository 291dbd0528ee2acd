// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
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
    /// The colon form may be read as hours: no field above 59 speaks against it.
    bool canBeHours = false;
};

/// One time tag, brackets included.
struct TimeTag : TimeSpelling
{
    /// `[from-to]`: where the dash stands, and the time of the end. Null for all others.
    const char *rangeDash = nullptr;
    std::int64_t rangeEndMillis = 0;
};

/// Two digits at `p`, or something above 999.
[[nodiscard]] inline unsigned twoDigits(const char *p)
{
    const auto tens = static_cast<unsigned char>(p[0] - '0');
    const auto ones = static_cast<unsigned char>(p[1] - '0');
    return tens <= 9 && ones <= 9 ? tens * 10U + ones : 1024U;
}

/// `[mm:ss.xx]` and `[mm:ss.xxx]`, which is nearly all there is.
[[nodiscard]] inline bool readCommonTimeTag(const char *p, const char *end, TimeTag &tag)
{
    if (end - p < 10 || p[3] != ':' || p[6] != '.')
        return false;
    const unsigned minutes = twoDigits(p + 1);
    const unsigned seconds = twoDigits(p + 4);
    const unsigned hundredths = twoDigits(p + 7);
    if ((minutes | seconds | hundredths) >= 1024U)
        return false;
    unsigned millis = minutes * 60'000 + seconds * 1'000 + hundredths * 10;
    const char *last = p + 9;
    if (const auto digit = static_cast<unsigned char>(*last - '0'); digit <= 9) {
        millis += digit;
        ++last;
    }
    if (last == end || *last != ']')
        return false;
    tag.millis = millis;
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
