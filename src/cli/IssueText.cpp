// SPDX-License-Identifier: MIT
#include "cli/IssueText.h"

#include "cli/Utf8.h"

namespace cli {
namespace {

std::string_view colorOf(lyrics::IssueSeverity severity)
{
    switch (severity) {
    case lyrics::IssueSeverity::Error:
        return "\x1B[31m";
    case lyrics::IssueSeverity::Warning:
        return "\x1B[33m";
    case lyrics::IssueSeverity::Hint:
        break;
    }
    return "\x1B[36m";
}

} // namespace

void addIssues(JsonWriter &json, std::span<const lyrics::Issue> issues)
{
    json.beginArray();
    for (const lyrics::Issue &issue : issues) {
        json.beginObject().key("severity").string(lyrics::severityName(issue.severity));
        json.key("line").number(static_cast<std::int64_t>(issue.line));
        json.key("column").number(static_cast<std::int64_t>(issue.column));
        json.key("code").string(issue.code).key("text").string(issue.text).endObject();
    }
    json.endArray();
}

std::string issueShown(const lyrics::Issue &issue, std::string_view label, bool inColor)
{
    std::string out;
    appendShown(out, label);
    out += ':' + std::to_string(issue.line) + ':' + std::to_string(issue.column) + ": ";
    if (inColor)
        out += colorOf(issue.severity);
    out.append(lyrics::severityName(issue.severity)).append(inColor ? "\x1B[m: " : ": ");
    appendShown(out, issue.text);
    return out.append(" [").append(issue.code).append("]\n");
}

} // namespace cli
