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

/// Reads the time tag that begins at `p`, a `[`. False when there is none: what looks like one but does
/// not follow the shapes of docs/LRC.md, or does not fit into 64 bits of milliseconds.
/// Cost: linear in the bytes of the tag.
[[nodiscard]] bool readTimeTag(const char *p, const char *end, ColonReading reading, TimeTag &tag);

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
