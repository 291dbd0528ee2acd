// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Times as text, and back. Times are milliseconds from the start of the track.
class RBUtils
{
public:
    RBUtils() = delete;

    /// The text of a time cell, `mm:ss.xx`: at least two digits of minutes, growing past 99; rounded to the
    /// nearest hundredth (59996 is 01:00.00); a negative time is 00:00.00. `isTimeString` accepts it.
    [[nodiscard]] static std::string getTimeIntervalPeerStr(std::int64_t millis);
    /// The text of a clock label: the same form.
    [[nodiscard]] static std::string getTimeIntervalMMSSMSStr(std::int64_t millis);
    /// Reads a time, with or without square brackets and blanks round it, in every spelling that a time tag
    /// may have. 0 when it cannot be read.
    [[nodiscard]] static std::int64_t getTimeInterval(std::string_view text);
    /// Whether a user may type `text` as a time: two or more digits of minutes, seconds 00 to 59, exactly
    /// two digits of hundredths, nothing round it, and not too large.
    [[nodiscard]] static bool isTimeString(std::string_view text);
};
