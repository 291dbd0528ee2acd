// SPDX-License-Identifier: MIT
#include "lyrics/DisplayText.h"

#include "lyrics/Utf8.h"

#include <algorithm>

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

struct Appender
{
    std::u16string &out;

    void addPlain(const char *begin, std::size_t count)
    {
        out.resize(out.size() + count);
        std::copy(begin, begin + count, out.end() - static_cast<std::ptrdiff_t>(count));
    }
    void addUnit(char16_t unit) { out += unit; }
};

struct Counter
{
    std::size_t units = 0;

    void addPlain(const char * /*begin*/, std::size_t count) { units += count; }
    void addUnit(char16_t /*unit*/) { ++units; }
};

template <class Sink>
void show(Sink &sink, std::string_view text, std::size_t limit)
{
    const char *end = text.data() + text.size();
    std::size_t units = 0;
    for (const char *p = text.data(); p < end;) {
        const auto room = static_cast<std::ptrdiff_t>(std::min(limit - units, text.size()));
        const char *const plain = endOfPlain(p, p + std::min(room, end - p));
        const auto count = static_cast<std::size_t>(plain - p);
        sink.addPlain(p, count);
        units += count;
        p = plain;
        if (p == end)
            return;
        const char32_t c = fitForView(nextCharacter(p, end));
        const std::size_t needed = c > 0xFFFF ? 2 : 1;
        if (limit - units < needed) {
            sink.addUnit(kEllipsis);
            return;
        }
        units += needed;
        if (needed == 1) {
            sink.addUnit(static_cast<char16_t>(c));
            continue;
        }
        sink.addUnit(static_cast<char16_t>(0xD7C0 + (c >> 10)));
        sink.addUnit(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
    }
}

} // namespace

void appendDisplayText(std::u16string &out, std::string_view text, std::size_t limit)
{
    Appender appender{out};
    show(appender, text, limit);
}

std::size_t displayLength(std::string_view text, std::size_t limit)
{
    Counter counter;
    show(counter, text, limit);
    return counter.units;
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
