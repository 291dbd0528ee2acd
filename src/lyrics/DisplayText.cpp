// SPDX-License-Identifier: MIT
#include "lyrics/DisplayText.h"

#include "lyrics/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace lyrics {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char16_t kEllipsis = 0x2026;

char32_t fitForView(char32_t c)
{
    if (c == '\t')
        return c;
    if (c == kWrongCharacter)
        return kReplacement;
    if (c == 0x2028 || c == 0x2029)
        return ' ';
    const bool isControl = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool isNoncharacter = (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE;
    const bool isObjectMark = c == 0xFFFC;
    return isControl || isNoncharacter || isObjectMark ? kReplacement : c;
}

/// Where the letters end that are shown as they are, one unit for one byte.
const char *endOfPlain(const char *p, const char *end)
{
    return std::find_if(p, end, [](char c) { return c < 0x20 || c >= 0x7F; });
}

constexpr std::size_t kWord = 8;

/// Eight bytes that are each shown as one unit.
bool isAsciiWord(const char *p)
{
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    return (word & 0x8080'8080'8080'8080) == 0;
}

bool isFollowing(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// How many units show the character at `p`, which moves behind it. `p` < `end`.
std::size_t passCharacter(const char *&p, const char *end)
{
    const auto lead = static_cast<unsigned char>(*p);
    if (lead < 0x80) {
        ++p;
        return 1;
    }
    // Most of Chinese, Japanese and Korean.
    if (lead >= 0xE1 && lead <= 0xEC && end - p >= 3 && isFollowing(p[1]) && isFollowing(p[2])) {
        p += 3;
        return 1;
    }
    return fitForView(nextCharacter(p, end)) > 0xFFFF ? 2 : 1;
}

} // namespace

void appendDisplayText(std::u16string &out, std::string_view text, std::size_t limit)
{
    const char *end = text.data() + text.size();
    std::size_t units = 0;
    for (const char *p = text.data(); p < end;) {
        const auto room = static_cast<std::ptrdiff_t>(std::min(limit - units, text.size()));
        const char *const plain = endOfPlain(p, p + std::min(room, end - p));
        const auto count = static_cast<std::size_t>(plain - p);
        out.resize(out.size() + count);
        std::copy(p, plain, out.end() - (plain - p));
        units += count;
        p = plain;
        if (p == end)
            return;
        const char32_t c = fitForView(nextCharacter(p, end));
        const std::size_t needed = c > 0xFFFF ? 2 : 1;
        if (limit - units < needed) {
            out += kEllipsis;
            return;
        }
        units += needed;
        if (needed == 1) {
            out += static_cast<char16_t>(c);
            continue;
        }
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

std::size_t displayLength(std::string_view text, std::size_t limit)
{
    // No text has more units than bytes.
    if (text.size() <= limit)
        return displayExtent(text).units;
    std::u16string shown;
    appendDisplayText(shown, text, limit);
    return shown.size();
}

DisplayExtent displayExtent(std::string_view text, std::size_t units)
{
    const char *const end = text.data() + text.size();
    const char *p = text.data();
    DisplayExtent extent;
    while (p < end && extent.units < units) {
        if (static_cast<std::size_t>(end - p) >= kWord && units - extent.units >= kWord && isAsciiWord(p)) {
            p += kWord;
            extent.units += kWord;
        } else {
            extent.units += passCharacter(p, end);
        }
    }
    extent.bytes = static_cast<std::size_t>(p - text.data());
    return extent;
}

} // namespace lyrics
