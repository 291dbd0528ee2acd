// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tags {

/// The largest time that is read or written here, in milliseconds: what 32 bits hold, 49 days.
inline constexpr std::uint64_t kMaxLrcTime = 0xFFFFFFFF;

/// A time between brackets, and where it ends.
struct LrcTime
{
    std::uint64_t time = 0; ///< milliseconds, at most kMaxLrcTime
    std::size_t end = 0; ///< behind the closing bracket
};

/// The time whose opening bracket stands at `open`: `[m:ss]` or `[m:ss.fff]`, any number of digits of
/// minutes and of the fraction, one or two of seconds, closed by `close`. Digits behind the milliseconds are
/// cut off. Null for every other shape. Cost: linear in the length of what is looked at.
[[nodiscard]] std::optional<LrcTime> lrcTimeAt(std::string_view text, std::size_t open, char close);

/// `mm:ss.xx`; three digits behind the point where the time is no whole hundredth.
[[nodiscard]] std::string lrcTimeText(std::uint64_t milliseconds);

} // namespace tags
