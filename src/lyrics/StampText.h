// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/TimeTag.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Word stamps as they are spelled; WordStamps.h says what they are.
namespace lyrics {

/// One stamp in a text.
struct StampSpelling
{
    /// The opening bracket.
    const char *begin = nullptr;
    /// Behind the closing one.
    const char *end = nullptr;
    /// Between the blanks inside the brackets.
    std::string_view time;
    std::int64_t millis = 0;
};

/// Reads the stamp that begins at `p`, a `<` or `[`. Cost: linear in the bytes of the stamp.
[[nodiscard]] bool readStamp(const char *p, const char *end, ColonReading reading, StampSpelling &stamp);

/// The first stamp from `p` on; false when there is none.
[[nodiscard]] bool findStamp(const char *p, const char *end, ColonReading reading, StampSpelling &stamp);

/// Appends the stamp with another time, spelled alike: its brackets and blanks, its fields, at least as many
/// digits as it had, and more of the fraction when the time needs them. Digits behind the milliseconds stay.
void appendRespelled(std::string &out, const StampSpelling &stamp, std::int64_t millis, ColonReading reading);

/// `text` with each stamp at the time that `map` answers for its time. Stamps that do not move stay as they
/// are.
template <typename Map>
[[nodiscard]] std::string withStampsMapped(std::string_view text, ColonReading reading, Map map)
{
    std::string mapped;
    mapped.reserve(text.size() + 16);
    const char *p = text.data();
    const char *const end = p + text.size();
    for (StampSpelling stamp; findStamp(p, end, reading, stamp); p = stamp.end) {
        mapped.append(p, stamp.begin);
        appendRespelled(mapped, stamp, map(stamp.millis), reading);
    }
    mapped.append(p, end);
    return mapped;
}

} // namespace lyrics
