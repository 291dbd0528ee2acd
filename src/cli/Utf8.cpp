// SPDX-License-Identifier: MIT
#include "cli/Utf8.h"

#include <cstddef>

namespace cli {
namespace {

/// What may follow a first byte: how many bytes there are, and the range of the second one.
struct Lead
{
    int bytes = 0; ///< 0: no character begins so
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
};

Lead leadOf(unsigned char first)
{
    if (first >= 0xC2 && first <= 0xDF)
        return {2};
    if (first >= 0xE0 && first <= 0xEF) {
        // No overlong forms, no surrogates.
        return {3, static_cast<unsigned char>(first == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(first == 0xED ? 0x9F : 0xBF)};
    }
    if (first >= 0xF0 && first <= 0xF4) {
        return {4, static_cast<unsigned char>(first == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(first == 0xF4 ? 0x8F : 0xBF)};
    }
    return {};
}

bool turnsDirection(char32_t code)
{
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

bool isControl(char32_t code)
{
    return (code < 0x20 && code != '\t') || (code >= 0x7F && code < 0xA0);
}

bool breaksLine(char32_t code)
{
    return code == 0x2028 || code == 0x2029;
}

void appendSpelledOut(std::string &out, char32_t code)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out += "<U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out += kDigits[code >> shift & 0xFU];
    out += '>';
}

} // namespace

Utf8Step utf8At(const char *p, const char *end)
{
    const auto first = static_cast<unsigned char>(*p);
    if (first < 0x80)
        return {1, true, first};
    const Lead lead = leadOf(first);
    if (lead.bytes == 0)
        return {};
    char32_t code = first & (0x7FU >> lead.bytes);
    for (int i = 1; i < lead.bytes; ++i) {
        const auto next = p + i < end ? static_cast<unsigned char>(p[i]) : 0U;
        const bool fits = i == 1 ? next >= lead.low && next <= lead.high : (next & 0xC0U) == 0x80U;
        if (!fits)
            return {i, false, 0xFFFD};
        code = code << 6 | (next & 0x3FU);
    }
    return {lead.bytes, true, code};
}

bool isUtf8(std::string_view text)
{
    const char *end = text.data() + text.size();
    for (const char *p = text.data(); p < end;) {
        const Utf8Step step = utf8At(p, end);
        if (!step.valid)
            return false;
        p += step.bytes;
    }
    return true;
}

void appendUtf8(std::string &out, char32_t code)
{
    const auto tail = [code](int shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | code >> 6);
        out += tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0U | code >> 12);
        out += tail(6);
        out += tail(0);
    } else {
        out += static_cast<char>(0xF0U | code >> 18);
        out += tail(12);
        out += tail(6);
        out += tail(0);
    }
}

void appendShown(std::string &out, std::string_view text)
{
    const char *end = text.data() + text.size();
    for (const char *p = text.data(); p < end;) {
        const Utf8Step step = utf8At(p, end);
        if (!step.valid || isControl(step.code) || breaksLine(step.code))
            out += kReplacement;
        else if (turnsDirection(step.code))
            appendSpelledOut(out, step.code);
        else
            out.append(p, static_cast<std::size_t>(step.bytes));
        p += step.bytes;
    }
}

std::string shown(std::string_view text)
{
    std::string out;
    appendShown(out, text);
    return out;
}

} // namespace cli
