// SPDX-License-Identifier: MIT
#include "lyrics/DisplayText.h"

namespace lyrics {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char16_t kEllipsis = 0x2026;

/// How many bytes follow a lead byte, and the range of the first of them: the well-formed sequences of
/// Unicode, table 3-7, which leave out overlong forms and surrogates.
struct Lead
{
    int following;
    unsigned char low;
    unsigned char high;
};

Lead leadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

/// The character at `p`, which moves behind it.
char32_t nextCharacter(const char *&p, const char *end)
{
    const auto byte = static_cast<unsigned char>(*p++);
    if (byte < 0x80)
        return byte;
    Lead lead = leadOf(byte);
    if (lead.following == 0)
        return kReplacement;
    char32_t character = byte & (0x3FU >> lead.following);
    for (; lead.following > 0; --lead.following) {
        const auto next = p < end ? static_cast<unsigned char>(*p) : static_cast<unsigned char>(0);
        if (next < lead.low || next > lead.high)
            return kReplacement;
        character = (character << 6) | (next & 0x3FU);
        lead.low = 0x80;
        lead.high = 0xBF;
        ++p;
    }
    return character;
}

char32_t fitForView(char32_t c)
{
    if (c == '\t')
        return c;
    if (c == 0x2028 || c == 0x2029)
        return ' ';
    const bool isControl = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool isNoncharacter = (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE;
    const bool isObjectMark = c == 0xFFFC;
    return isControl || isNoncharacter || isObjectMark ? kReplacement : c;
}

} // namespace

void appendDisplayText(std::u16string &out, std::string_view text, std::size_t limit)
{
    const char *end = text.data() + text.size();
    std::size_t units = 0;
    for (const char *p = text.data(); p < end;) {
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

DisplayExtent displayExtent(std::string_view text, std::size_t units)
{
    const char *const end = text.data() + text.size();
    const char *p = text.data();
    DisplayExtent extent;
    while (p < end && extent.units < units)
        extent.units += fitForView(nextCharacter(p, end)) > 0xFFFF ? 2 : 1;
    extent.bytes = static_cast<std::size_t>(p - text.data());
    return extent;
}

} // namespace lyrics
