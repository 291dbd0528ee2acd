// SPDX-License-Identifier: MIT
#pragma once

#include "cli/formats/Sheet.h"

namespace cli {

/// So long is a last line shown whose end nothing tells, in formats that want one.
inline constexpr std::int64_t kLastLineMillis = 5000;

/// Sorts the lines by their starts, those of one time in their order; an untimed line stays behind the one
/// that it follows.
void sortLines(Sheet &sheet);

/// What formats show that know nothing but lines from a start to an end: each timed line with words, and an
/// end for each: its own, or the next start behind it. Says what has no place there: tags, untimed lines.
[[nodiscard]] std::vector<SheetLine> shownLines(const Sheet &sheet, Losses &losses);

/// Says for every tag but `kept` that `format` has no place for it.
void noteTags(const Sheet &sheet, std::string_view kept, std::string_view format, Losses &losses);

/// Says for every line with word times that `format` has no place for them.
void noteWordTimes(const std::vector<SheetLine> &lines, std::string_view format, Losses &losses);

/// The value of the first tag of that key; empty without one.
[[nodiscard]] std::string tagValue(const Sheet &sheet, std::string_view key);

} // namespace cli
