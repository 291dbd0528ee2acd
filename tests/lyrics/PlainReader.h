// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A second reader of LRC, told from docs/LRC.md: as slow and as obvious as it can be, with strings that are
/// cut to pieces. What the model reads is compared with it.
namespace plainreader {

/// Room for every sum of what fits into 64 bits.
__extension__ typedef __int128 Wide; // NOLINT(modernize-use-using)

struct Line
{
    std::vector<std::int64_t> times;
    std::string text;
    std::string key; ///< of one of the four tags, otherwise empty
    bool isOtherTag = false;

    friend bool operator==(const Line &, const Line &) = default;
};

inline bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// How many bytes the blank takes that `text` begins with.
inline std::size_t blankLength(std::string_view text)
{
    static constexpr std::array<std::string_view, 19> kBlanks
        = {" ", "\t", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005",
            "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000", "\uFEFF"};
    for (const std::string_view blank : kBlanks) {
        if (text.starts_with(blank))
            return blank.size();
    }
    return 0;
}

inline std::string_view withoutBlanksBefore(std::string_view text)
{
    while (blankLength(text) > 0)
        text.remove_prefix(blankLength(text));
    return text;
}

inline std::string_view withoutBlanks(std::string_view text)
{
    text = withoutBlanksBefore(text);
    for (std::size_t length = 1; length <= 3 && length <= text.size();) {
        if (blankLength(text.substr(text.size() - length)) == length) {
            text.remove_suffix(length);
            length = 1;
        } else {
            ++length;
        }
    }
    return text;
}

/// A number of at most 19 digits that count, which leaves room for sums.
inline std::optional<Wide> number(std::string_view digits)
{
    while (digits.size() > 1 && digits.front() == '0')
        digits.remove_prefix(1);
    if (digits.size() > 19)
        return std::nullopt;
    Wide value = 0;
    for (const char c : digits)
        value = value * 10 + (c - '0');
    return value;
}

/// ".5" is 500, ".1239" is 123.
inline Wide millisOfFraction(std::string digits)
{
    digits.resize(3, '0');
    return *number(digits);
}

struct Time
{
    std::int64_t millis = 0;
    bool hasColon = false;
    bool isColonForm = false;
    bool canBeHours = false;
};

inline std::vector<std::string> split(std::string_view text, char at)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == at)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

/// Seconds with or without a point, `minDigits` to `maxDigits` of them: milliseconds.
inline std::optional<Wide> seconds(const std::string &field, std::size_t minDigits, std::size_t maxDigits)
{
    const std::vector<std::string> parts = split(field, '.');
    if (parts.size() > 2 || !isDigits(parts[0]) || parts[0].size() < minDigits || parts[0].size() > maxDigits)
        return std::nullopt;
    if (parts.size() == 2 && !isDigits(parts[1]))
        return std::nullopt;
    const std::optional<Wide> whole = number(parts[0]);
    if (!whole)
        return std::nullopt;
    return *whole * 1000 + (parts.size() == 2 ? millisOfFraction(parts[1]) : 0);
}

/// A time without brackets. The first two fields may have a sign.
inline std::optional<Time> time(std::string_view text, bool inHours)
{
    std::vector<std::string> fields = split(text, ':');
    bool isNegative = false;
    for (std::size_t i = 0; i < fields.size() && i < 2 && fields.size() > 1; ++i) {
        if (fields[i].starts_with('-')) {
            isNegative = true;
            fields[i].erase(0, 1);
        }
    }
    Time read;
    std::optional<Wide> rest;
    Wide first = 0;
    const bool hasPoint = fields.back().find('.') != std::string::npos;
    if (fields.size() == 1) {
        constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();
        rest = seconds(fields[0], 1, hasPoint ? kAny : 3);
    } else if (fields.size() == 2) {
        rest = seconds(fields[1], hasPoint ? 1 : 2, 2);
        first = 60'000;
    } else if (fields.size() == 3 && isDigits(fields[1]) && fields[1].size() == 2) {
        const Wide second = *number(fields[1]);
        const bool isTwoDigits = split(fields[2], '.')[0].size() == 2;
        if (hasPoint) {
            rest = second <= 59 ? seconds(fields[2], 2, 2) : std::nullopt;
            rest = rest ? std::optional(second * 60'000 + *rest) : std::nullopt;
            first = 3'600'000;
        } else if (isDigits(fields[2]) && fields[2].size() <= 3) {
            read.isColonForm = true;
            read.canBeHours = isTwoDigits && second <= 59 && *number(fields[2]) <= 59
                && (!number(fields[0])
                    || *number(fields[0]) * 3'600'000 + second * 60'000 + *number(fields[2]) * 1000
                        <= std::numeric_limits<std::int64_t>::max());
            const bool isHours = inHours && isTwoDigits && second <= 59;
            first = isHours ? 3'600'000 : 60'000;
            rest = isHours ? second * 60'000 + *number(fields[2]) * 1000
                           : second * 1000 + millisOfFraction(fields[2]);
        }
    }
    if (!rest || (fields.size() > 1 && !isDigits(fields[0])))
        return std::nullopt;
    const std::optional<Wide> leading = fields.size() > 1 ? number(fields[0]) : 0;
    if (!leading || *leading * first + *rest > std::numeric_limits<std::int64_t>::max())
        return std::nullopt;
    read.hasColon = fields.size() > 1;
    read.millis = static_cast<std::int64_t>(*leading * first + *rest);
    read.millis = isNegative ? -read.millis : read.millis;
    return read;
}

/// What stands in the brackets of a time tag: a time, or a range of two.
inline std::optional<Time> timeOrRange(std::string_view text, bool inHours)
{
    if (const std::optional<Time> whole = time(text, inHours))
        return whole;
    const auto isEnd = [](const std::optional<Time> &end) {
        return end && end->hasColon && !end->isColonForm && end->millis >= 0;
    };
    for (std::size_t dash = 1; dash < text.size(); ++dash) {
        if (text[dash] != '-')
            continue;
        const std::optional<Time> from = time(text.substr(0, dash), inHours);
        if (isEnd(from) && isEnd(time(text.substr(dash + 1), inHours)))
            return from;
    }
    return std::nullopt;
}

struct Document
{
    std::vector<Line> lines;
    bool hasColonForm = false;
    bool canBeHours = true;
};

/// The time tag that `rest` begins with; takes it off.
inline std::optional<Time> takeTime(std::string_view &rest, bool inHours)
{
    const std::size_t closing = rest.find(']');
    if (!rest.starts_with('[') || closing == std::string_view::npos)
        return std::nullopt;
    const std::optional<Time> read = timeOrRange(withoutBlanks(rest.substr(1, closing - 1)), inHours);
    if (read)
        rest.remove_prefix(closing + 1);
    return read;
}

inline std::string lowered(std::string_view word)
{
    std::string lower(word);
    for (char &c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return lower;
}

template <std::size_t Count>
bool isOneOf(const std::string &word, const std::array<std::string_view, Count> &words)
{
    for (const std::string_view one : words) {
        if (word == one)
            return true;
    }
    return false;
}

/// The ID tag that `rest` begins with, as a line; takes it off.
inline std::optional<Line> takeIdTag(std::string_view &rest, bool lyricSeen)
{
    static constexpr std::array<std::string_view, 4> kFour = {"ti", "ar", "al", "by"};
    static constexpr std::array<std::string_view, 16> kKnown = {"au", "re", "ve", "length", "offset", "id",
        "tool", "lr", "#", "la", "t_time", "hash", "title", "artist", "album", "type"};
    static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    if (!rest.starts_with('['))
        return std::nullopt;
    const std::string_view inner = withoutBlanksBefore(rest.substr(1));
    const std::size_t colon = inner.find(':');
    if (colon == std::string_view::npos || colon < 1 || colon > 16)
        return std::nullopt;
    const std::string_view word = inner.substr(0, colon);
    if (word.find_first_not_of(std::string(kLetters) + "0123456789_-#") != std::string_view::npos
        || (std::string(kLetters) + "#").find(word[0]) == std::string::npos)
        return std::nullopt;
    int depth = 1;
    std::size_t closing = colon + 1;
    for (; closing < inner.size(); ++closing) {
        depth += inner[closing] == '[' ? 1 : inner[closing] == ']' ? -1 : 0;
        if (depth == 0)
            break;
    }
    if (depth != 0)
        return std::nullopt;
    const std::string_view after = inner.substr(closing + 1);
    const std::string key = lowered(word);
    const bool isFour = isOneOf(key, kFour);
    const std::string_view next = withoutBlanksBefore(after);
    const bool isKnown = isFour || isOneOf(key, kKnown);
    if (!isKnown && (lyricSeen || !(next.empty() || next.starts_with('['))))
        return std::nullopt;
    Line line;
    line.isOtherTag = !isFour;
    line.key = isFour ? key : "";
    const std::string_view value = inner.substr(colon + 1, closing - colon - 1);
    line.text = isFour ? withoutBlanks(value) : rest.substr(0, rest.size() - after.size());
    rest = after;
    return line;
}

inline void readPhysicalLine(std::string_view rest, bool inHours, bool &lyricSeen, Document &document)
{
    for (bool isFirst = true;; isFirst = false) {
        rest = withoutBlanksBefore(rest);
        if (rest.empty() && !isFirst)
            return;
        Line line;
        while (const std::optional<Time> read = takeTime(rest, inHours)) {
            line.times.push_back(read->millis);
            document.hasColonForm = document.hasColonForm || read->isColonForm;
            document.canBeHours = document.canBeHours && (!read->isColonForm || read->canBeHours);
            rest = withoutBlanksBefore(rest);
        }
        const std::optional<Line> tag = line.times.empty() ? takeIdTag(rest, lyricSeen) : std::nullopt;
        if (tag) {
            document.lines.push_back(*tag);
            continue;
        }
        line.text = withoutBlanks(rest);
        lyricSeen = lyricSeen || !line.times.empty() || !line.text.empty();
        document.lines.push_back(line);
        return;
    }
}

inline Document readAs(std::string_view text, bool inHours)
{
    Document document;
    bool lyricSeen = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        readPhysicalLine(text.substr(0, end), inHours, lyricSeen, document);
        text.remove_prefix(end);
        if (text.starts_with("\r\n"))
            text.remove_prefix(2);
        else if (!text.empty())
            text.remove_prefix(1);
    }
    return document;
}

inline bool doTimesRise(const std::vector<Line> &lines)
{
    std::optional<std::int64_t> last;
    for (const Line &line : lines) {
        if (line.times.empty())
            continue;
        if (last && line.times[0] < *last)
            return false;
        last = line.times[0];
    }
    return true;
}

inline std::vector<Line> read(std::string_view text)
{
    if (text.starts_with("\uFEFF"))
        text.remove_prefix(3);
    Document plain = readAs(text, false);
    if (!plain.hasColonForm || !plain.canBeHours || doTimesRise(plain.lines))
        return plain.lines;
    Document inHours = readAs(text, true);
    return doTimesRise(inHours.lines) ? inHours.lines : plain.lines;
}

} // namespace plainreader
