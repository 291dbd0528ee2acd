// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace cli {

/// What stands at one place of a text.
struct Utf8Step
{
    int bytes = 1; ///< of the character, or of the maximal wrong part
    bool valid = false;
    char32_t code = 0xFFFD; ///< U+FFFD when it is wrong
};

inline constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// The character at `p`, by RFC 3629. `p` < `end`.
[[nodiscard]] Utf8Step utf8At(const char *p, const char *end);

[[nodiscard]] bool isUtf8(std::string_view text);

/// Appends the character `code`, which must be one, in UTF-8.
void appendUtf8(std::string &out, char32_t code);

/// Appends `text` so that a terminal only shows it: control characters, which could move the cursor or rename
/// the window, and bytes that are no UTF-8 are U+FFFD, and marks that turn the direction of a line are
/// spelled out (`<U+202E>`). A tab stays.
void appendShown(std::string &out, std::string_view text);
[[nodiscard]] std::string shown(std::string_view text);

} // namespace cli
