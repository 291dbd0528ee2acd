// SPDX-License-Identifier: MIT
#include "lyrics/IssueList.h"
#include "lyrics/LineEnds.h"
#include "lyrics/Utf8.h"

#include <array>
#include <cstdint>

namespace lyrics {
namespace {

/// Characters that are worth a word, and the order in which their issues are told.
enum class Oddity : std::uint8_t { Wrong, Nul, Control, Mark, Bidi, Separator, Replacement, None };

struct Told
{
    IssueSeverity severity;
    std::string_view code;
    std::string_view one;
    std::string_view many;
};

constexpr std::array<Told, 7> kTold = {{
    {IssueSeverity::Error, "invalid-utf8", "This is no UTF-8: the file is damaged or in another encoding.",
        " places of this line are no UTF-8: the file is damaged or in another encoding."},
    {IssueSeverity::Error, "nul-character", "A NUL character. Many programs stop reading here.",
        " NUL characters in this line. Many programs stop reading at the first."},
    {IssueSeverity::Warning, "control-character", "A control character, which is not shown.",
        " control characters in this line, which are not shown."},
    {IssueSeverity::Warning, "byte-order-mark-inside",
        "A byte-order mark inside the text, as joining files leaves it.",
        " byte-order marks inside this line, as joining files leaves them."},
    {IssueSeverity::Warning, "bidi-control", "An invisible character that changes the direction of writing.",
        " invisible characters in this line change the direction of writing."},
    {IssueSeverity::Warning, "line-separator",
        "A character that some programs take for the end of a line. It is none here.",
        " characters in this line that some programs take for the end of a line. They are none here."},
    {IssueSeverity::Warning, "replacement-character",
        "A replacement mark: what stood here was lost when the text was converted.",
        " replacement marks in this line: what stood there was lost when the text was converted."},
}};

Oddity oddityOf(char32_t c)
{
    if (c == kWrongCharacter)
        return Oddity::Wrong;
    if (c == 0)
        return Oddity::Nul;
    if (c == 0x0B || c == 0x0C || c == 0x85 || c == 0x2028 || c == 0x2029)
        return Oddity::Separator;
    if ((c < 0x20 && c != '\t') || (c >= 0x7F && c <= 0x9F))
        return Oddity::Control;
    if (c == 0xFEFF)
        return Oddity::Mark;
    if (c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E)
        || (c >= 0x2066 && c <= 0x2069))
        return Oddity::Bidi;
    return c == 0xFFFD ? Oddity::Replacement : Oddity::None;
}

/// One issue for each oddity that the line has, at the first place where it has it.
void addIssuesOfLine(IssueList &issues, const char *p, const char *end)
{
    std::array<const char *, kTold.size()> first{};
    std::array<std::size_t, kTold.size()> count{};
    while (p < end) {
        if (static_cast<unsigned char>(*p - 0x20) < 0x5F) {
            ++p;
            continue;
        }
        const char *const at = p;
        const auto oddity = static_cast<std::size_t>(oddityOf(nextCharacter(p, end)));
        if (oddity < kTold.size() && ++count[oddity] == 1)
            first[oddity] = at;
    }
    for (std::size_t i = 0; i < kTold.size(); ++i) {
        const Told &told = kTold[i];
        if (count[i] == 1)
            issues.add(told.severity, told.code, first[i], told.one);
        else if (count[i] > 1)
            issues.add(told.severity, told.code, first[i], std::to_string(count[i]) + std::string(told.many));
    }
}

std::string_view nameOf(std::string_view lineEnd)
{
    return lineEnd.size() == 2 ? "CRLF" : lineEnd == "\n" ? "LF" : "CR";
}

} // namespace

void addCharacterIssues(IssueList &issues, std::string_view text)
{
    const char *const end = text.data() + text.size();
    LineEndFinder finder(text.data(), end);
    std::string_view firstEnd;
    bool isMixed = false;
    std::string_view lineEnd;
    for (const char *p = text.data(); p < end;) {
        const char *const textEnd = finder.textEnd(p);
        const char *const next = finder.lineEnd(textEnd);
        addIssuesOfLine(issues, p, textEnd);
        lineEnd = {textEnd, static_cast<std::size_t>(next - textEnd)};
        firstEnd = firstEnd.empty() ? lineEnd : firstEnd;
        if (!isMixed && !lineEnd.empty() && lineEnd != firstEnd) {
            isMixed = true;
            issues.add(IssueSeverity::Warning, "mixed-line-ends", textEnd,
                "This line ends with " + std::string(nameOf(lineEnd)) + ", the lines before it with "
                    + std::string(nameOf(firstEnd)) + ".");
        }
        p = next;
    }
    if (!text.empty() && lineEnd.empty())
        issues.add(IssueSeverity::Hint, "no-last-line-end", end,
            "The last line has no line end. Some programs lose such a line.");
}

} // namespace lyrics
