// SPDX-License-Identifier: MIT
#pragma once

namespace lyrics {

/// Stands for a maximal part of bytes that are no UTF-8.
inline constexpr char32_t kWrongCharacter = 0xFFFFFFFF;

/// How many bytes follow a lead byte, and the range of the first of them: the well-formed sequences of
/// Unicode, table 3-7, which leave out overlong forms and surrogates.
struct Utf8Lead
{
    int following;
    unsigned char low;
    unsigned char high;
};

[[nodiscard]] inline Utf8Lead utf8LeadOf(unsigned char byte)
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

/// The character at `p`, which moves behind it. `p` < `end`.
[[nodiscard]] inline char32_t nextCharacter(const char *&p, const char *end)
{
    const auto byte = static_cast<unsigned char>(*p++);
    if (byte < 0x80)
        return byte;
    Utf8Lead lead = utf8LeadOf(byte);
    if (lead.following == 0)
        return kWrongCharacter;
    char32_t character = byte & (0x3FU >> lead.following);
    for (; lead.following > 0; --lead.following) {
        const auto next = p < end ? static_cast<unsigned char>(*p) : static_cast<unsigned char>(0);
        if (next < lead.low || next > lead.high)
            return kWrongCharacter;
        character = (character << 6) | (next & 0x3FU);
        lead.low = 0x80;
        lead.high = 0xBF;
        ++p;
    }
    return character;
}

} // namespace lyrics
