// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/Issues.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lyrics {

/// Collects issues by where they stand in a text, and puts them in order at the end.
class IssueList
{
public:
    /// \param text  without a byte-order mark at its beginning.
    explicit IssueList(std::string_view text) : m_text(text) { }

    /// \param at  in the text. \param code  a literal.
    void add(IssueSeverity severity, std::string_view code, const char *at, std::string_view text);
    /// The issues; the list is of no use afterwards.
    [[nodiscard]] std::vector<Issue> take();

private:
    struct Found
    {
        std::size_t at;
        Issue issue;
    };
    struct Count
    {
        std::string_view code;
        std::size_t count;
    };

    void place();
    void tellHowManyMore();

    std::string_view m_text;
    std::vector<Found> m_found;
    std::vector<Count> m_counts;
};

/// `text` between quotation marks, its beginning if it is long, with what cannot be printed as a question
/// mark.
[[nodiscard]] std::string quoted(std::string_view text);

/// What is to be said about characters and line ends.
void addCharacterIssues(IssueList &issues, std::string_view text);
/// What is to be said about tags and times. \param text  without the byte-order mark.
void addTagIssues(IssueList &issues, std::string_view text);

} // namespace lyrics
