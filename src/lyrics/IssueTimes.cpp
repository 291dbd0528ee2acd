// SPDX-License-Identifier: MIT
#include "lyrics/IssueTimes.h"

#include "lyrics/Blanks.h"
#include "lyrics/LineAccess.h"
#include "lyrics/RBUtils.h"
#include "lyrics/StampText.h"

#include <algorithm>

namespace lyrics {
namespace {

/// No further is looked for the end of what is no time.
constexpr std::ptrdiff_t kFarthest = 64;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

const char *skipDigits(const char *p, const char *end)
{
    while (p < end && isDigit(*p))
        ++p;
    return p;
}

std::int64_t startOf(const RBSongLine &line)
{
    return *std::min_element(line.aryTimes().begin(), line.aryTimes().end());
}

bool isTimed(const RBSongLine &line)
{
    return !LineAccess::isTagLine(line) && !line.aryTimes().empty();
}

/// The digits of the seconds of a time as it is spelled; empty when it has only seconds.
std::string_view secondsOf(std::string_view time, ColonReading reading)
{
    const std::size_t first = time.find(':');
    if (first == std::string_view::npos)
        return {};
    const std::size_t second = time.find(':', first + 1);
    const bool hasPoint = time.find('.') != std::string_view::npos;
    const bool isThird = second != std::string_view::npos && (hasPoint || reading == ColonReading::Hours);
    const char *p = time.data() + (isThird ? second : first) + 1;
    const char *const end = time.data() + time.size();
    p += p < end && *p == '-' ? 1 : 0;
    return {p, static_cast<std::size_t>(skipDigits(p, end) - p)};
}

bool hasLongNumber(const char *p, const char *end)
{
    constexpr std::ptrdiff_t kLong = 14;
    end = end - p > kFarthest ? p + kFarthest : end;
    while (p < end && *p != ']' && *p != '>') {
        const char *const digits = skipDigits(p, end);
        if (digits - p >= kLong)
            return true;
        p = digits + 1;
    }
    return false;
}

/// What stands between the bracket at `p` and the one that closes it, both included.
std::string_view bracketed(const char *p, const char *end)
{
    const char *const last = end - p > kFarthest ? p + kFarthest : end;
    const char *const closing = std::find(p, last, *p == '<' ? '>' : ']');
    return {p, static_cast<std::size_t>(closing - p) + (closing < last ? 1 : 0)};
}

} // namespace

bool looksLikeTime(const char *p, const char *end)
{
    p = skipBlanks(p + 1, end);
    const auto skipSign = [&] { p += p < end && (*p == '-' || *p == '+') ? 1 : 0; };
    skipSign();
    const char *const digits = skipDigits(p, end);
    if (digits == p || digits == end || (*digits != ':' && *digits != ';'))
        return false;
    p = digits + 1;
    skipSign();
    return p < end && isDigit(*p);
}

TimeIssues::TimeIssues(IssueList &issues, std::span<const RBSongLine> lines)
    : m_issues(issues), m_lines(lines), m_nextStarts(lines.size())
{
    std::optional<std::int64_t> start;
    std::optional<std::int64_t> other;
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (!isTimed(lines[i]))
            continue;
        const std::int64_t own = startOf(lines[i]);
        if (start && *start != own)
            other = start;
        m_nextStarts[i] = other;
        start = own;
    }
}

void TimeIssues::look(const RBSongLine &line, const char *first, std::string_view lyric)
{
    const char *p = first;
    TimeTag tag;
    const ColonReading reading = LineAccess::colonReading(line);
    for (std::size_t i = 0; i < line.aryTimes().size(); ++i) {
        if (!readTimeTag(p, lyric.data(), reading, tag))
            break;
        lookAtTag(p, tag, reading);
        p = skipBlanks(tag.end, lyric.data());
    }
    if (isTimed(line)) {
        lookAtOrder(line, first, lyric.data());
    } else if (!lyric.empty()) {
        m_firstUntimed = m_firstUntimed ? m_firstUntimed : first;
        if (m_firstTimed)
            m_issues.add(IssueSeverity::Hint, "untimed-line", first,
                "A line without a time among lines that have one. Most players do not show it.");
    }
    lookAtStamps(line, lyric);
}

void TimeIssues::lookAtTag(const char *begin, const TimeTag &tag, ColonReading reading)
{
    const std::string_view whole(begin, static_cast<std::size_t>(tag.end - begin));
    const std::string_view inner = trimmed(whole.substr(1, whole.size() - 2));
    if (tag.colonForm) {
        m_colonForms.first = m_colonForms.first ? m_colonForms.first : begin;
        m_colonForms.reading = reading;
        m_colonForms.canAllBeHours = m_colonForms.canAllBeHours && tag.canBeHours;
        ++m_colonForms.count;
    }
    if (inner.find(':') == std::string_view::npos)
        m_issues.add(IssueSeverity::Hint, "bare-seconds", begin,
            quoted(whole) + " is read as a time, in seconds. Many programs take it for a text.");
    if (tag.rangeDash) {
        m_issues.add(IssueSeverity::Hint, "time-range", begin,
            quoted(whole) + " is a range: only its beginning is used, its end moves along.");
        if (tag.rangeEndMillis < tag.millis)
            m_issues.add(
                IssueSeverity::Warning, "range-backwards", begin, "A range that ends before it begins.");
    }
    lookAtSpelling(begin, inner, tag.millis, reading);
}

void TimeIssues::lookAtSpelling(
    const char *at, std::string_view time, std::int64_t millis, ColonReading reading)
{
    const std::string_view seconds = secondsOf(time, reading);
    if (seconds.size() == 2 && seconds[0] > '5')
        m_issues.add(IssueSeverity::Warning, "seconds-above-59", at,
            "Seconds above 59: " + quoted(time) + " is read as " + RBUtils::getTimeIntervalPeerStr(millis)
                + ". Perhaps it was meant otherwise.");
    if (time.starts_with('-') || time.find(":-") != std::string_view::npos)
        m_issues.add(IssueSeverity::Warning, "negative-time", at,
            "A time before the beginning of the song. Many programs do not read it.");
    const std::size_t point = time.find('.');
    if (point != std::string_view::npos
        && skipDigits(time.data() + point + 1, time.data() + time.size()) - time.data()
            > static_cast<std::ptrdiff_t>(point) + 4)
        m_issues.add(IssueSeverity::Hint, "long-fraction", at,
            "More than three digits of a second: what is finer than a millisecond is not used.");
}

void TimeIssues::lookAtOrder(const RBSongLine &line, const char *at, const char *timesEnd)
{
    const TimeList &times = line.aryTimes();
    const std::int64_t start = startOf(line);
    if (m_lastStart && start < *m_lastStart)
        m_issues.add(IssueSeverity::Warning, "times-go-backwards", at,
            "This line starts at " + RBUtils::getTimeIntervalPeerStr(start)
                + ", before the line above it, which starts at "
                + RBUtils::getTimeIntervalPeerStr(*m_lastStart) + ".");
    m_lastStart = start;
    if (times.size() > 1) {
        std::vector<std::int64_t> sorted(times.begin(), times.end());
        std::sort(sorted.begin(), sorted.end());
        if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
            m_issues.add(
                IssueSeverity::Warning, "repeated-time", at, "The line has the same time more than once.");
    }
    m_firstTimed = m_firstTimed ? m_firstTimed : at;
    ++m_timedCount;
    m_isAnyAboveZero = m_isAnyAboveZero
        || std::any_of(times.begin(), times.end(), [](std::int64_t millis) { return millis != 0; });
    // What the other reading of `a:b:c` would make of it.
    TimeTag tag;
    if (m_lastFirst && times[0] < *m_lastFirst)
        m_risesInFractions = false;
    m_lastFirst = times[0];
    if (readTimeTag(at, timesEnd, ColonReading::Hours, tag)) {
        m_risesInHours = m_risesInHours && (!m_lastInHours || *m_lastInHours <= tag.millis);
        m_lastInHours = tag.millis;
    }
}

void TimeIssues::lookAtStamps(const RBSongLine &line, std::string_view lyric)
{
    const ColonReading reading = LineAccess::colonReading(line);
    const char *const end = lyric.data() + lyric.size();
    const bool hasOneTime = line.aryTimes().size() == 1;
    const auto nextStart = m_nextStarts[static_cast<std::size_t>(&line - m_lines.data())];
    std::optional<std::int64_t> last;
    StampSpelling stamp;
    for (const char *p = lyric.data(); p < end; p = stamp.end) {
        stamp.end = p + 1;
        if (*p != '<' && *p != '[')
            continue;
        if (!readStamp(p, end, reading, stamp)) {
            stamp.end = p + 1;
            lookAtNoTime(p, end, p == lyric.data());
            continue;
        }
        lookAtSpelling(p, stamp.time, stamp.millis, reading);
        if (!last && line.aryTimes().size() > 1)
            m_issues.add(IssueSeverity::Warning, "word-stamps-of-a-repeat", p,
                "The words are stamped, but the line is sung at several times: they fit one of them only.");
        if (last && stamp.millis < *last)
            m_issues.add(IssueSeverity::Warning, "word-stamps-go-backwards", p,
                "This word is stamped before the one in front of it.");
        const bool isLate = nextStart && *nextStart > line.aryTimes()[0] && stamp.millis > *nextStart;
        if (hasOneTime && (stamp.millis < line.aryTimes()[0] || isLate))
            m_issues.add(IssueSeverity::Warning, "word-stamp-outside-line", p,
                isLate ? "This word is stamped after the next line has begun."
                       : "This word is stamped before its line begins.");
        last = stamp.millis;
    }
}

/// A bracket that begins no stamp.
void TimeIssues::lookAtNoTime(const char *p, const char *end, bool isAtBeginning)
{
    if (!looksLikeTime(p, end))
        return;
    const std::string what = quoted(bracketed(p, end));
    if (hasLongNumber(p, end))
        m_issues.add(
            IssueSeverity::Error, "time-too-large", p, what + " is too large for a time, and so is a text.");
    else if (*p == '[')
        m_issues.add(isAtBeginning ? IssueSeverity::Error : IssueSeverity::Warning, "malformed-time-tag", p,
            what + " looks like a time, but cannot be read as one. It is a text.");
    else
        m_issues.add(IssueSeverity::Warning, "malformed-word-stamp", p,
            what + " looks like the stamp of a word, but cannot be read as one. It is a text.");
}

/// Whether something speaks for the reading of `a:b:c` that was taken.
bool TimeIssues::isSettled() const
{
    return m_colonForms.reading == ColonReading::Hours || !m_colonForms.canAllBeHours
        || (m_risesInFractions && !m_risesInHours);
}

void TimeIssues::finish()
{
    if (m_colonForms.count > 0) {
        const bool inHours = m_colonForms.reading == ColonReading::Hours;
        const std::string howMany = m_colonForms.count == 1
            ? std::string("This time is")
            : "This time, and " + std::to_string(m_colonForms.count - 1) + " more of its form, are";
        const std::string reading
            = inHours ? "hours, minutes and seconds" : "minutes, seconds and a fraction";
        const std::string reason = isSettled() ? !m_colonForms.canAllBeHours
                ? ", since there is a field that fits nothing else."
                : ", since only so do the times rise."
                                               : ". Nothing in the text settles it.";
        m_issues.add(isSettled() ? IssueSeverity::Hint : IssueSeverity::Warning, "ambiguous-time",
            m_colonForms.first, howMany + " read as " + reading + reason);
    }
    if (m_timedCount > 1 && !m_isAnyAboveZero)
        m_issues.add(IssueSeverity::Warning, "all-times-zero", m_firstTimed,
            "All times are zero: this text is not synchronised.");
    if (!m_firstTimed && m_firstUntimed)
        m_issues.add(IssueSeverity::Hint, "no-times", m_firstUntimed, "No line has a time.");
}

} // namespace lyrics
