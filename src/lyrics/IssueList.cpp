// SPDX-License-Identifier: MIT
#include "lyrics/IssueList.h"

#include "lyrics/LineEnds.h"
#include "lyrics/Utf8.h"

#include <algorithm>
#include <utility>

namespace lyrics {

void IssueList::add(IssueSeverity severity, std::string_view code, const char *at, std::string_view text)
{
    auto count = std::find_if(
        m_counts.begin(), m_counts.end(), [code](const Count &one) { return one.code == code; });
    if (count == m_counts.end())
        count = m_counts.insert(count, {code, 0});
    if (++count->count > kMostIssuesOfOneCode)
        return;
    m_found.push_back(
        {static_cast<std::size_t>(at - m_text.data()), {severity, 1, 1, code, std::string(text)}});
}

std::vector<Issue> IssueList::take()
{
    std::stable_sort(m_found.begin(), m_found.end(), [](const Found &a, const Found &b) {
        return a.at != b.at ? a.at < b.at : a.issue.severity < b.issue.severity;
    });
    place();
    tellHowManyMore();
    std::vector<Issue> issues;
    issues.reserve(m_found.size());
    for (Found &found : m_found)
        issues.push_back(std::move(found.issue));
    return issues;
}

/// Finds line and column of each, in one pass over the text.
void IssueList::place()
{
    const char *const end = m_text.data() + m_text.size();
    const char *p = m_text.data();
    LineEndFinder finder(p, end);
    const char *textEnd = finder.textEnd(p);
    std::size_t line = 1;
    std::size_t column = 1;
    for (Found &found : m_found) {
        const char *at = m_text.data() + found.at;
        for (const char *next = finder.lineEnd(textEnd); at >= next && next > textEnd;
             next = finder.lineEnd(textEnd)) {
            p = next;
            textEnd = finder.textEnd(p);
            ++line;
            column = 1;
        }
        for (; p < at && p < textEnd; ++column)
            static_cast<void>(nextCharacter(p, textEnd));
        found.issue.line = line;
        found.issue.column = column;
    }
}

void IssueList::tellHowManyMore()
{
    for (const Count &one : m_counts) {
        if (one.count <= kMostIssuesOfOneCode)
            continue;
        const auto last = std::find_if(m_found.rbegin(), m_found.rend(),
            [&one](const Found &found) { return found.issue.code == one.code; });
        last->issue.text
            += " There are " + std::to_string(one.count - kMostIssuesOfOneCode) + " more like this.";
    }
}

std::string quoted(std::string_view text)
{
    constexpr std::size_t kLongest = 32;
    std::string quote = "\"";
    const char *const end = text.data() + text.size();
    const char *p = text.data();
    for (std::size_t count = 0; p < end; ++count) {
        if (count == kLongest) {
            quote += "…";
            break;
        }
        const char *const begin = p;
        const char32_t c = nextCharacter(p, end);
        if (c == kWrongCharacter || c < 0x20 || (c >= 0x7F && c <= 0x9F) || (c >= 0x2028 && c <= 0x202E)
            || (c >= 0x2066 && c <= 0x2069))
            quote += '?';
        else
            quote.append(begin, p);
    }
    return quote + '"';
}

} // namespace lyrics
