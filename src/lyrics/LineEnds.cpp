// SPDX-License-Identifier: MIT
#include "lyrics/LineEnds.h"

#include <algorithm>

namespace lyrics {

std::string_view LineEndCount::prevailing() const
{
    if (lf + crlf + cr == 0)
        return {};
    if (lf >= crlf && lf >= cr)
        return "\n";
    return crlf >= cr ? "\r\n" : "\r";
}

std::size_t countLineEndBytes(std::string_view text)
{
    // Counted in bytes, 240 at a time, so that the compiler can compare many at once.
    constexpr std::size_t kStep = 240;
    std::size_t total = 0;
    const char *p = text.data();
    for (std::size_t left = text.size(); left > 0;) {
        const std::size_t step = std::min(left, kStep);
        unsigned char count = 0;
        for (std::size_t i = 0; i < step; ++i)
            count = static_cast<unsigned char>(count + (p[i] == '\n' || p[i] == '\r' ? 1 : 0));
        total += count;
        p += step;
        left -= step;
    }
    return total;
}

std::string withoutLineBreaks(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        plain += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
        i += isPair ? 1 : 0;
    }
    return plain;
}

} // namespace lyrics
