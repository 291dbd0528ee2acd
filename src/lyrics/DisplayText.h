// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace lyrics {

/// Appends `text` (UTF-8) to `out` in the form in which a text view can show it, as one line.
///
/// What a text widget would take for a line break (U+2028, U+2029) is a blank; control characters, NUL,
/// bytes that are no UTF-8, noncharacters and the object mark are U+FFFD, one for each maximal wrong part.
///
/// \param limit  UTF-16 units; a longer text ends there in an ellipsis. No surrogate pair is torn.
void appendDisplayText(
    std::u16string &out, std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

/// How many UTF-16 units `appendDisplayText` appends for the same text and limit.
[[nodiscard]] std::size_t displayLength(
    std::string_view text, std::size_t limit = std::numeric_limits<std::size_t>::max());

/// A beginning of a text, in its bytes and in the UTF-16 units of the form in which it is shown.
struct DisplayExtent
{
    std::size_t bytes = 0;
    std::size_t units = 0;
};

/// How far the shortest beginning of `text` reaches that is shown in at least `units` UTF-16 units; all of it
/// when it has no more. No character and no wrong part is torn.
///
/// Cost: linear in the bytes of the answer; nothing is written.
[[nodiscard]] DisplayExtent displayExtent(
    std::string_view text, std::size_t units = std::numeric_limits<std::size_t>::max());

} // namespace lyrics
