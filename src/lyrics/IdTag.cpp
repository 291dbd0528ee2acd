// SPDX-License-Identifier: MIT
#include "lyrics/IdTag.h"

#include "lyrics/Blanks.h"

#include <algorithm>
#include <array>

namespace lyrics {
namespace {

using Kind = LineAccess::Kind;
using namespace std::string_view_literals;

constexpr std::size_t kLongestWord = 16;
constexpr std::array kPropertyKeys = {""sv, "ti"sv, "ar"sv, "al"sv, "by"sv};
constexpr std::array kOtherKeys = {"au"sv, "re"sv, "ve"sv, "length"sv, "offset"sv, "id"sv, "tool"sv, "lr"sv,
    "#"sv, "la"sv, "t_time"sv, "hash"sv, "title"sv, "artist"sv, "album"sv, "type"sv};

// Not those of <cctype>: nothing here depends on the locale.
char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool isLetter(char c)
{
    return lowered(c) >= 'a' && lowered(c) <= 'z';
}
bool isWordCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '#';
}

bool equalsLowered(std::string_view word, std::string_view lower)
{
    return std::equal(
        word.begin(), word.end(), lower.begin(), lower.end(), [](char a, char b) { return lowered(a) == b; });
}

bool isOtherKey(std::string_view word)
{
    return std::any_of(kOtherKeys.begin(), kOtherKeys.end(),
        [word](std::string_view key) { return equalsLowered(word, key); });
}

/// The `]` that closes what was opened before `p`; null when brackets do not balance.
const char *closingBracket(const char *p, const char *end)
{
    for (std::size_t depth = 1; p < end; ++p) {
        if (*p == '[')
            ++depth;
        else if (*p == ']' && --depth == 0)
            return p;
    }
    return nullptr;
}

} // namespace

LineAccess::Kind propertyKey(std::string_view word)
{
    for (std::size_t i = 1; i < kPropertyKeys.size(); ++i) {
        if (equalsLowered(word, kPropertyKeys[i]))
            return static_cast<Kind>(i);
    }
    return Kind::Text;
}

std::string_view propertyName(LineAccess::Kind key)
{
    const auto index = static_cast<std::size_t>(key);
    return index < kPropertyKeys.size() ? kPropertyKeys[index] : std::string_view();
}

bool isKnownOtherTag(std::string_view text)
{
    IdTag tag;
    const char *end = text.data() + text.size();
    return !text.empty() && text.front() == '[' && readIdTag(text.data(), end, tag) && tag.end == end
        && tag.isKnown && tag.kind == Kind::OtherTag;
}

bool readIdTag(const char *p, const char *end, IdTag &tag)
{
    const char *word = skipBlanks(p + 1, end);
    if (word == end || !(isLetter(*word) || *word == '#'))
        return false;
    const char *colon = word;
    while (colon < end && colon <= word + kLongestWord && isWordCharacter(*colon))
        ++colon;
    if (colon == end || *colon != ':' || colon > word + kLongestWord)
        return false;
    const char *closing = closingBracket(colon + 1, end);
    if (!closing)
        return false;
    tag.key = {word, static_cast<std::size_t>(colon - word)};
    tag.value = {colon + 1, static_cast<std::size_t>(closing - colon - 1)};
    tag.end = closing + 1;
    const Kind property = propertyKey(tag.key);
    tag.kind = property == Kind::Text ? Kind::OtherTag : property;
    tag.isKnown = property != Kind::Text || isOtherKey(tag.key);
    return true;
}

} // namespace lyrics
