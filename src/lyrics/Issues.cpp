// SPDX-License-Identifier: MIT
#include "lyrics/Issues.h"

#include "lyrics/IssueList.h"
#include "lyrics/SongWriter.h"

namespace lyrics {

std::string_view severityName(IssueSeverity severity)
{
    switch (severity) {
    case IssueSeverity::Error:
        return "error";
    case IssueSeverity::Warning:
        return "warning";
    case IssueSeverity::Hint:
        break;
    }
    return "hint";
}

std::vector<Issue> issuesOf(std::string_view text)
{
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    IssueList issues(text);
    addCharacterIssues(issues, text);
    addTagIssues(issues, text);
    return issues.take();
}

} // namespace lyrics
