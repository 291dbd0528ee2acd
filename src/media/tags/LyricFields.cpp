// SPDX-License-Identifier: MIT
#include "media/tags/LyricFields.h"

#include <algorithm>

namespace tags {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t digitsAt(std::string_view text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - from;
}

/// Whether a time tag begins at the bracket at `open`: digits, a colon, at least one digit.
bool timeTagAt(std::string_view text, std::size_t open)
{
    std::size_t at = open + 1;
    while (at < text.size() && (text[at] == ' ' || text[at] == '-'))
        ++at;
    const std::size_t minutes = digitsAt(text, at);
    const std::size_t colon = at + minutes;
    return minutes > 0 && colon < text.size() && text[colon] == ':' && digitsAt(text, colon + 1) > 0;
}

std::size_t lineEnd(std::string_view text, std::size_t from)
{
    return std::min(text.find_first_of("\r\n", from), text.size());
}

} // namespace

bool holdsTimeTags(std::string_view lyric)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::size_t at = lyric.substr(0, 3) == byteOrderMark ? 3 : 0;
    while (at < lyric.size()) {
        const std::size_t end = lineEnd(lyric, at);
        while (at < end && (lyric[at] == ' ' || lyric[at] == '\t'))
            ++at;
        if (at < end && lyric[at] == '[' && timeTagAt(lyric.substr(0, end), at))
            return true;
        at = end + 1;
    }
    return false;
}

bool isSynchronisedName(std::string_view name)
{
    return name == "SYLT" || name == "WM/Lyrics_Synchronised";
}

Failure nothingTimed()
{
    return {
        Reason::NotText, "The lyric has no line with a time, so it cannot be kept as a synchronised one."};
}

std::optional<Failure> tooMuchLyric(const std::vector<LyricField> &fields)
{
    std::size_t bytes = 0;
    for (const LyricField &field : fields)
        bytes += field.text.size();
    if (bytes > kMaxLyricBytes)
        return Failure{Reason::TooLarge,
            "The lyrics of the file would have more than 6 MiB together, which is more than can be kept."};
    if (fields.size() > kMaxLyricFields)
        return Failure{Reason::Hostile,
            "The file has more than 1,000 lyrics, which no program writes: it cannot be read safely."};
    return std::nullopt;
}

std::optional<std::size_t> lyricFieldIndex(const std::vector<LyricField> &fields)
{
    std::optional<std::size_t> firstText;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (holdsTimeTags(fields[i].text))
            return i;
        if (!firstText && !fields[i].text.empty())
            firstText = i;
    }
    return firstText;
}

} // namespace tags
