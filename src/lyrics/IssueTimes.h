// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/IssueList.h"
#include "lyrics/RBSongLine.h"
#include "lyrics/TimeTag.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace lyrics {

/// Whether what begins at `p`, a bracket, was probably meant as a time: digits, a colon or a semicolon,
/// digits.
[[nodiscard]] bool looksLikeTime(const char *p, const char *end);

/// Looks at the times and word stamps of the lyric lines of a text, one line after the other.
class TimeIssues
{
public:
    /// \param lines  those that will be looked at, tag lines included; they outlive this.
    TimeIssues(IssueList &issues, std::span<const RBSongLine> lines);

    /// \param first  where the line begins in the text, without the blanks before it; its times, if it has
    /// any. \param lyric  where its text stands there.
    void look(const RBSongLine &line, const char *first, std::string_view lyric);
    /// What can be said of the whole text once all lines were looked at.
    void finish();

private:
    struct ColonForms
    {
        const char *first = nullptr;
        std::size_t count = 0;
        ColonReading reading = ColonReading::Fraction;
        bool canAllBeHours = true;
    };

    void lookAtTag(const char *begin, const TimeTag &tag, ColonReading reading);
    void lookAtSpelling(const char *at, std::string_view time, std::int64_t millis, ColonReading reading);
    void lookAtOrder(const RBSongLine &line, const char *at, const char *timesEnd);
    void lookAtStamps(const RBSongLine &line, std::string_view lyric);
    void lookAtNoTime(const char *p, const char *end, bool isAtBeginning);
    [[nodiscard]] bool isSettled() const;

    IssueList &m_issues;
    std::span<const RBSongLine> m_lines;
    /// For each line the start of the first timed line behind it that starts at another time.
    std::vector<std::optional<std::int64_t>> m_nextStarts;
    ColonForms m_colonForms;
    std::optional<std::int64_t> m_lastStart;
    std::optional<std::int64_t> m_lastFirst;
    std::optional<std::int64_t> m_lastInHours;
    const char *m_firstTimed = nullptr;
    const char *m_firstUntimed = nullptr;
    std::size_t m_timedCount = 0;
    bool m_isAnyAboveZero = false;
    bool m_risesInFractions = true;
    bool m_risesInHours = true;
};

} // namespace lyrics
