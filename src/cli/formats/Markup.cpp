// SPDX-License-Identifier: MIT
#include "cli/formats/Markup.h"

#include "cli/TimeText.h"
#include "cli/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace cli {
namespace {

// What is longer is no mark, so that each place is looked at a bounded number of times.
constexpr std::size_t kLongestMark = 256;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// What is inside `<…>` at the beginning of `text`; absent when that is no mark.
std::optional<std::string_view> markAt(std::string_view text)
{
    const std::size_t end = text.substr(0, kLongestMark).find('>');
    if (end == std::string_view::npos || end < 2)
        return std::nullopt;
    const std::string_view inner = text.substr(1, end - 1);
    const char first = inner[0] == '/' && inner.size() > 1 ? inner[1] : inner[0];
    const bool isTime = first >= '0' && first <= '9';
    return isLetter(first) || isTime ? std::optional(inner) : std::nullopt;
}

std::optional<char32_t> numbered(std::string_view name)
{
    const bool isHex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
    const char *begin = name.data() + (isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(begin, name.data() + name.size(), code, isHex ? 16 : 10);
    const bool isWhole = error == std::errc() && end == name.data() + name.size();
    const bool isCharacter = code > 0 && code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
    return isWhole && isCharacter ? std::optional(static_cast<char32_t>(code)) : std::nullopt;
}

std::optional<char32_t> character(std::string_view name)
{
    constexpr std::array<std::pair<std::string_view, char32_t>, 8> kNames = {{{"amp", '&'}, {"lt", '<'},
        {"gt", '>'}, {"quot", '"'}, {"apos", '\''}, {"nbsp", 0xA0}, {"lrm", 0x200E}, {"rlm", 0x200F}}};
    if (name.starts_with('#'))
        return numbered(name);
    const auto *found = std::ranges::find(kNames, name, &std::pair<std::string_view, char32_t>::first);
    return found == kNames.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

MarkedLine readSrtText(std::string_view line)
{
    MarkedLine read;
    std::string text;
    while (!line.empty()) {
        const auto mark = line.front() == '<' ? markAt(line) : std::nullopt;
        const std::size_t brace
            = line.starts_with("{\\") ? line.substr(0, kLongestMark).find('}') : std::string_view::npos;
        read.hadMarkup = read.hadMarkup || mark || brace != std::string_view::npos;
        if (!mark && brace == std::string_view::npos)
            text += line.front();
        line.remove_prefix(mark ? mark->size() + 2 : brace != std::string_view::npos ? brace + 1 : 1);
    }
    read.words.push_back({std::nullopt, std::move(text)});
    return read;
}

MarkedLine readVttText(std::string_view line)
{
    MarkedLine read;
    read.words.emplace_back();
    while (!line.empty()) {
        if (const auto mark = line.front() == '<' ? markAt(line) : std::nullopt) {
            std::string_view inner = *mark;
            const auto time = takeClockTime(inner);
            if (time && inner.empty())
                read.words.push_back({time, {}});
            else
                read.hadMarkup = true;
            line.remove_prefix(mark->size() + 2);
            continue;
        }
        const std::size_t plain = std::min(line.find('<', 1), line.size());
        appendUnescaped(read.words.back().text, line.substr(0, plain));
        line.remove_prefix(plain);
    }
    if (read.words.size() > 1 && read.words.front().text.empty())
        read.words.erase(read.words.begin());
    return read;
}

void appendEscapedMarkup(std::string &out, std::string_view text)
{
    for (const char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
}

void appendUnescaped(std::string &out, std::string_view text)
{
    constexpr std::size_t kLongestName = 12;
    while (!text.empty()) {
        const std::size_t end
            = text.front() == '&' ? text.substr(0, kLongestName).find(';') : std::string_view::npos;
        const auto code = end != std::string_view::npos ? character(text.substr(1, end - 1)) : std::nullopt;
        if (code)
            appendUtf8(out, *code);
        else
            out += text.front();
        text.remove_prefix(code ? end + 1 : 1);
    }
}

} // namespace cli
