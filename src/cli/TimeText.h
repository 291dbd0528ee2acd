// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cli {

/// The largest time on a clock that is read here: some thirty thousand years, so that sums of such times are
/// numbers.
inline constexpr std::int64_t kLargestClockMillis = 1'000'000'000'000'000;

/// Reads an amount of time as it is typed: `500ms`, `-0.5s`, `+2s`, `0:01.50`, `-1:02.3`. In milliseconds;
/// what is finer is cut off. Absent for everything else, a number without a unit among it: it could mean
/// either.
[[nodiscard]] std::optional<std::int64_t> parseAmount(std::string_view text);

/// Reads a time on a clock, from 0: the same forms without a sign.
[[nodiscard]] std::optional<std::int64_t> parsePosition(std::string_view text);

/// `mm:ss.xx`, with three digits of fraction where two would not say it; a sign when it is negative.
[[nodiscard]] std::string exactTime(std::int64_t millis);

/// An amount for people: "+0.5 s", "-12 ms".
[[nodiscard]] std::string amountInWords(std::int64_t millis);

/// `millis` as h:mm:ss with `digits` of fraction behind `point`, cut off; hours with `hourDigits` digits at
/// least. A negative time is 0. For formats that write it so.
struct ClockForm
{
    int hourDigits = 2;
    int fractionDigits = 3;
    char point = '.';
};
[[nodiscard]] std::string clockTime(std::int64_t millis, ClockForm form);

/// Reads `h:mm:ss` or `mm:ss`, with a fraction behind a point or a comma, from the beginning of `text`, and
/// takes it off there. Absent, with `text` as it was, for everything else and for what is
/// later than `kLargestClockMillis`.
[[nodiscard]] std::optional<std::int64_t> takeClockTime(std::string_view &text);

} // namespace cli
