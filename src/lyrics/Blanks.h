// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace lyrics {

/// How many bytes the blank that begins at `p` takes; 0 when none begins there. `p` < `end`.
///
/// Blanks are the space, the tab, the spaces of Unicode that stand in a line (the ideographic one is
/// common), and a byte-order mark that was left inside by joining files. What breaks lines is no blank.
[[nodiscard]] inline int blankAt(const char *p, const char *end)
{
    const auto first = static_cast<unsigned char>(*p);
    if (first == ' ' || first == '\t')
        return 1;
    if (first < 0xC2 || end - p < 2)
        return 0;
    const auto second = static_cast<unsigned char>(p[1]);
    if (first == 0xC2)
        return second == 0xA0 ? 2 : 0;
    if (first < 0xE1 || end - p < 3)
        return 0;
    const auto third = static_cast<unsigned char>(p[2]);
    switch (first) {
    case 0xE1:
        return second == 0x9A && third == 0x80 ? 3 : 0;
    case 0xE2:
        return (second == 0x80 && ((third >= 0x80 && third <= 0x8A) || third == 0xAF))
                || (second == 0x81 && third == 0x9F)
            ? 3
            : 0;
    case 0xE3:
        return second == 0x80 && third == 0x80 ? 3 : 0;
    case 0xEF:
        return second == 0xBB && third == 0xBF ? 3 : 0;
    default:
        return 0;
    }
}

/// The first place from `p` on where no blank begins.
[[nodiscard]] inline const char *skipBlanks(const char *p, const char *end)
{
    while (p < end) {
        const int length = blankAt(p, end);
        if (length == 0)
            break;
        p += length;
    }
    return p;
}

/// The end of what is left when the blanks at the end of `begin`..`end` are taken off.
[[nodiscard]] inline const char *skipBlanksBack(const char *begin, const char *end)
{
    while (begin < end) {
        const auto last = static_cast<unsigned char>(end[-1]);
        if (last == ' ' || last == '\t')
            end -= 1;
        else if (last < 0x80)
            break;
        else if (end - begin >= 3 && blankAt(end - 3, end) == 3)
            end -= 3;
        else if (end - begin >= 2 && blankAt(end - 2, end) == 2)
            end -= 2;
        else
            break;
    }
    return end;
}

/// `text` without the blanks round it.
[[nodiscard]] inline std::string_view trimmed(std::string_view text)
{
    const char *end = text.data() + text.size();
    const char *begin = skipBlanks(text.data(), end);
    end = skipBlanksBack(begin, end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

} // namespace lyrics
