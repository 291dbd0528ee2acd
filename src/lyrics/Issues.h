// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lyrics {

enum class IssueSeverity : std::uint8_t {
    Error, ///< something is not what its writer meant: a broken tag, broken characters
    Warning, ///< probably wrong, or read differently by different programs
    Hint ///< worth knowing, and often meant so
};

/// "error", "warning", "hint".
[[nodiscard]] std::string_view severityName(IssueSeverity severity);

/// Something about a text that a person should look at. It never kept the text from being read.
struct Issue
{
    IssueSeverity severity = IssueSeverity::Hint;
    /// The physical line, from 1; LF, CRLF and CR end one.
    std::size_t line = 1;
    /// The character (Unicode code point) in the line, from 1. Bytes that are no UTF-8 are one character for
    /// each maximal wrong part; the byte-order mark at the beginning of the text is none.
    std::size_t column = 1;
    /// One kebab-case word for one kind of issue; it does not change. docs/LRC.md lists them.
    std::string_view code;
    /// One or two English sentences.
    std::string text;

    friend bool operator==(const Issue &, const Issue &) = default;
};

/// So many issues of one code are told; the last of them says how many more there are.
inline constexpr std::size_t kMostIssuesOfOneCode = 100;

/// What is to be said about `text` (LRC, UTF-8), ordered by place; at one place errors come first. Empty for
/// a text in which nothing was found. Every text may be asked about, whatever its bytes.
///
/// Cost: linear in the bytes, n log n in the times of one line. Throws std::length_error for a text of 4 GiB
/// or more.
[[nodiscard]] std::vector<Issue> issuesOf(std::string_view text);

} // namespace lyrics
