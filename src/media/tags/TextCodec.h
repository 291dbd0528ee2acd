// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <string>
#include <string_view>

namespace tags {

/// Whether `text` is UTF-8 as RFC 3629 has it: no overlong forms, no surrogates, nothing past
/// U+10FFFF.
[[nodiscard]] bool isUtf8(std::string_view text);
[[nodiscard]] bool isAscii(std::string_view text);
/// Whether `text` is UTF-8 without NUL, as tags store it that know text alone.
[[nodiscard]] bool isTagText(std::string_view text);
/// The refusal of a text that is not, by `what`: "an ID3 tag".
[[nodiscard]] Failure notTagText(const std::string &what);

[[nodiscard]] std::string utf8FromLatin1(std::string_view text);
/// UTF-16 to UTF-8. A lone surrogate becomes U+FFFD; an odd last byte is dropped.
[[nodiscard]] std::string utf8FromUtf16(std::string_view text, bool bigEndian);
/// The same for text that says its byte order by a leading mark, which is taken off; big-endian
/// when it does not.
[[nodiscard]] std::string utf8FromMarkedUtf16(std::string_view text);
/// UTF-8 to little-endian UTF-16 with its mark. `text` must be UTF-8.
[[nodiscard]] std::string markedUtf16FromUtf8(std::string_view text);

} // namespace tags
