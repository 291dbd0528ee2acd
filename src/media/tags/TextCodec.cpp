// SPDX-License-Identifier: MIT
#include "media/tags/TextCodec.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tags {

namespace {

unsigned byteAt(std::string_view text, std::size_t i)
{
    return static_cast<unsigned char>(text[i]);
}

bool isContinuation(std::string_view text, std::size_t i)
{
    return i < text.size() && (byteAt(text, i) & 0xC0U) == 0x80U;
}

/// Length of the character at `i`, 0 when it is not UTF-8. RFC 3629, section 4.
std::size_t characterLength(std::string_view text, std::size_t i)
{
    const unsigned first = byteAt(text, i);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    for (std::size_t k = 1; k < length; ++k) {
        if (!isContinuation(text, i + k))
            return 0;
    }
    const unsigned second = byteAt(text, i + 1);
    const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool outside = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
    return overlong || outside ? 0 : length;
}

void appendUtf8(std::string &out, std::uint32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        out += static_cast<char>(0xC0U | (c >> 6));
    } else {
        if (c < 0x10000) {
            out += static_cast<char>(0xE0U | (c >> 12));
        } else {
            out += static_cast<char>(0xF0U | (c >> 18));
            out += static_cast<char>(0x80U | ((c >> 12) & 0x3FU));
        }
        out += static_cast<char>(0x80U | ((c >> 6) & 0x3FU));
    }
    out += static_cast<char>(0x80U | (c & 0x3FU));
}

void appendUnit(std::string &out, std::uint32_t unit)
{
    out += static_cast<char>(unit & 0xFFU);
    out += static_cast<char>(unit >> 8);
}

std::uint32_t decode(std::string_view text, std::size_t i, std::size_t length)
{
    constexpr unsigned leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    std::uint32_t c = byteAt(text, i) & leadBits[length];
    for (std::size_t k = 1; k < length; ++k)
        c = (c << 6) | (byteAt(text, i + k) & 0x3FU);
    return c;
}

} // namespace

bool isUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = characterLength(text, i);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isTagText(std::string_view text)
{
    return isUtf8(text) && text.find('\0') == std::string_view::npos;
}

Failure notTagText(const std::string &what)
{
    return {Reason::NotText,
        {"The lyric holds bytes that are no text in UTF-8, which %1 cannot store. They show as replacement "
         "marks.",
            {what}}};
}

std::string utf8FromLatin1(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (const char c : text)
        appendUtf8(out, static_cast<unsigned char>(c));
    return out;
}

std::string utf8FromUtf16(std::string_view text, bool bigEndian)
{
    const auto unitAt = [text, bigEndian](std::size_t i) -> std::uint32_t {
        const unsigned a = byteAt(text, i);
        const unsigned b = byteAt(text, i + 1);
        return bigEndian ? (a << 8) | b : (b << 8) | a;
    };
    std::string out;
    out.reserve(text.size());
    const std::size_t end = text.size() - text.size() % 2;
    for (std::size_t i = 0; i < end; i += 2) {
        std::uint32_t c = unitAt(i);
        const bool high = c >= 0xD800 && c < 0xDC00;
        const std::uint32_t next = high && i + 2 < end ? unitAt(i + 2) : 0;
        if (high && next >= 0xDC00 && next < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
            i += 2;
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD;
        }
        appendUtf8(out, c);
    }
    return out;
}

std::string utf8FromMarkedUtf16(std::string_view text)
{
    const std::string_view mark = text.substr(0, 2);
    if (mark == "\xFF\xFE")
        return utf8FromUtf16(text.substr(2), false);
    return utf8FromUtf16(mark == "\xFE\xFF" ? text.substr(2) : text, true);
}

std::string markedUtf16FromUtf8(std::string_view text)
{
    std::string out = "\xFF\xFE";
    out.reserve(2 + text.size() * 2);
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = std::max<std::size_t>(1, characterLength(text, i));
        const std::uint32_t c = decode(text, i, length);
        if (c >= 0x10000) {
            appendUnit(out, 0xD800 + ((c - 0x10000) >> 10));
            appendUnit(out, 0xDC00 + ((c - 0x10000) & 0x3FFU));
        } else {
            appendUnit(out, c);
        }
        i += length;
    }
    return out;
}

} // namespace tags
