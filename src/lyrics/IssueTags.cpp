// SPDX-License-Identifier: MIT
//
// What is to be said about the tags of a text, line by line as the reader reads it.

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/IssueList.h"
#include "lyrics/IssueTimes.h"
#include "lyrics/LineAccess.h"
#include "lyrics/LineReader.h"
#include "lyrics/OffsetTag.h"

#include <unordered_set>

namespace lyrics {
namespace {

std::string lowered(std::string_view word)
{
    std::string lower(word);
    for (char &c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return lower;
}

/// Looks at the ID tags of a text, one after the other.
class TagIssues
{
public:
    explicit TagIssues(IssueList &issues) : m_issues(issues) { }

    void look(const char *at, const IdTag &tag, bool lyricSeen)
    {
        const std::string key = lowered(tag.key);
        if (lyricSeen)
            m_issues.add(IssueSeverity::Warning, "tag-after-lyric", at,
                "A tag behind the first lyric line. Many programs look for tags only before it.");
        if (!tag.isKnown)
            m_issues.add(IssueSeverity::Hint, "unknown-tag", at,
                "A tag of an unknown kind, " + quoted(tag.key) + ". It is kept.");
        if (key == "offset")
            lookAtOffset(at, tag.value);
        else if (!m_keys.insert(key).second)
            m_issues.add(IssueSeverity::Warning, "repeated-tag", at,
                "A second tag " + quoted(tag.key) + ". Programs differ in which of them they show.");
    }

private:
    void lookAtOffset(const char *at, std::string_view spelling)
    {
        if (m_hasOffset)
            m_issues.add(IssueSeverity::Warning, "several-offsets", at,
                "Another offset. Programs differ in which of them they apply.");
        m_hasOffset = true;
        const std::optional<OffsetValue> value = parseOffset(spelling);
        if (!value) {
            m_issues.add(IssueSeverity::Error, "offset-not-a-number", at,
                "The offset " + quoted(trimmed(spelling)) + " is no number of milliseconds.");
            return;
        }
        if (!value->isPlain)
            m_issues.add(IssueSeverity::Warning, "odd-offset", at,
                "The offset " + quoted(trimmed(spelling)) + " is read as " + std::to_string(value->millis)
                    + " milliseconds; other programs may not read it at all.");
        if (value->millis != 0)
            m_issues.add(IssueSeverity::Hint, "offset-sign", at,
                "Programs disagree on the sign of an offset: for most "
                    + offsetInWords(value->millis, OffsetSense::PositiveIsEarlier) + ", for others "
                    + offsetInWords(value->millis, OffsetSense::PositiveIsLater) + ".");
    }

    IssueList &m_issues;
    std::unordered_set<std::string> m_keys;
    bool m_hasOffset = false;
};

/// `[ti :x]`: a known word with blanks before the colon.
bool isNearlyKnownTag(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (!text.starts_with('[') || colon == std::string_view::npos || colon > 24)
        return false;
    const std::string_view word = trimmed(text.substr(1, colon - 1));
    // Not put together by +, in which g++ 12 sees a copy of half of the memory.
    const std::string asTag = std::string("[").append(word).append(":]");
    IdTag tag;
    return !word.empty() && word.data() + word.size() != text.data() + colon
        && readIdTag(asTag.data(), asTag.data() + asTag.size(), tag) && tag.isKnown;
}

/// The first bracket that nothing closes; null when there is none.
const char *unclosedBracket(std::string_view text)
{
    std::size_t closing = 0;
    const char *unclosed = nullptr;
    for (const char *p = text.data() + text.size(); p > text.data();) {
        --p;
        if (*p == ']')
            ++closing;
        else if (*p == '[' && closing > 0)
            --closing;
        else if (*p == '[')
            unclosed = p;
    }
    return unclosed;
}

void lookAtBrackets(IssueList &issues, std::string_view text)
{
    if (isNearlyKnownTag(text))
        issues.add(IssueSeverity::Warning, "malformed-tag", text.data(),
            "This looks like a tag, but blanks before the colon make it a text.");
    const char *const unclosed = unclosedBracket(text);
    if (unclosed && !looksLikeTime(unclosed, text.data() + text.size()))
        issues.add(IssueSeverity::Warning, "unclosed-bracket", unclosed,
            "A bracket that is opened and never closed.");
}

} // namespace

void addTagIssues(IssueList &issues, std::string_view text)
{
    const BlockRef block = BlockRef::copyOf(text);
    const ReadSong song = readSong(block, 0);
    const auto inText = [&](const char *p) { return text.data() + (p - block.text().data()); };
    TagIssues tags(issues);
    TimeIssues times(issues, song.lines);
    bool lyricSeen = false;
    for (const RBSongLine &line : song.lines) {
        const std::string_view spelling = LineAccess::spelling(line);
        const char *const begin = inText(spelling.data());
        const char *const first = skipBlanks(begin, begin + spelling.size());
        IdTag tag;
        if (LineAccess::isTagLine(line) || line.isOtherTag()) {
            if (readIdTag(first, text.data() + text.size(), tag))
                tags.look(first, tag, lyricSeen);
            continue;
        }
        lyricSeen = lyricSeen || !line.aryTimes().empty() || !line.lineText().empty();
        const std::string_view lyric(begin + LineAccess::textOffset(line), line.lineText().size());
        times.look(line, first, lyric);
        lookAtBrackets(issues, lyric);
    }
    times.finish();
}

} // namespace lyrics
