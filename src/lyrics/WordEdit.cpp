// SPDX-License-Identifier: MIT
//
// Of WordStamps.h, what puts other words under the stamps of a text.

#include "lyrics/Blanks.h"
#include "lyrics/LineEnds.h"
#include "lyrics/WordDiff.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <span>

namespace lyrics {
namespace {

/// A stamp among the words: it stands before the byte `at` of them.
struct PlacedStamp
{
    std::string_view spelling;
    std::size_t at = 0;
};

/// A text taken apart: its words without the blanks round them, the stamps among them, and what stands before
/// and behind.
struct StampedText
{
    std::string_view before;
    std::string words;
    std::vector<PlacedStamp> stamps;
    std::string_view behind;
};

StampedText takenApart(const RBSongLine &line)
{
    const std::string_view text = line.lineText();
    StampedText apart;
    std::string all;
    std::size_t from = 0;
    std::vector<std::size_t> begins;
    for (const WordStamp &stamp : wordStamps(line)) {
        all += text.substr(from, stamp.begin - from);
        apart.stamps.push_back({text.substr(stamp.begin, stamp.end - stamp.begin), all.size()});
        from = stamp.end;
    }
    all += text.substr(from);
    const std::string_view bare = trimmed(all);
    const auto lead = static_cast<std::size_t>(bare.data() - all.data());
    const std::size_t last = lead + bare.size();
    // The stamps before and behind the words stay where they are, with the blanks there.
    const auto isBefore = [lead](const PlacedStamp &stamp) { return stamp.at < lead; };
    const auto isAmong = [last](const PlacedStamp &stamp) { return stamp.at < last; };
    const auto first = std::find_if_not(apart.stamps.begin(), apart.stamps.end(), isBefore);
    const auto end = std::find_if_not(first, apart.stamps.end(), isAmong);
    const auto bytesOf = [](auto begin, auto stop) {
        std::size_t bytes = 0;
        for (; begin != stop; ++begin)
            bytes += begin->spelling.size();
        return bytes;
    };
    const std::size_t beforeEnd = bytesOf(apart.stamps.begin(), first) + lead;
    apart.before = text.substr(0, beforeEnd);
    apart.behind = text.substr(beforeEnd + bytesOf(first, end) + bare.size());
    apart.words = bare;
    apart.stamps = {first, end};
    for (PlacedStamp &stamp : apart.stamps)
        stamp.at -= lead;
    return apart;
}

/// Puts the stamps of one text where they belong in another.
class StampMover
{
public:
    StampMover(std::string_view before, std::string_view after, std::span<const PlacedStamp> stamps)
        : m_before(before), m_after(after), m_stamps(stamps)
    { }

    [[nodiscard]] std::vector<PlacedStamp> move()
    {
        std::size_t keptFrom = 0;
        std::size_t keptTo = 0;
        for (const Replacement &replacement : wordDiff(m_before, m_after)) {
            keepUpTo(replacement.oldBegin, keptFrom, keptTo);
            moveIn(replacement);
            keptFrom = replacement.oldEnd;
            keptTo = replacement.newEnd;
        }
        keepUpTo(m_before.size() + 1, keptFrom, keptTo);
        return std::move(m_moved);
    }

private:
    [[nodiscard]] bool hasStampBefore(std::size_t at) const
    {
        return m_next < m_stamps.size() && m_stamps[m_next].at < at;
    }
    void put(std::size_t at) { m_moved.push_back({m_stamps[m_next++].spelling, at}); }

    void keepUpTo(std::size_t end, std::size_t from, std::size_t to)
    {
        while (hasStampBefore(end))
            put(m_stamps[m_next].at - from + to);
    }

    void moveIn(const Replacement &replacement)
    {
        const std::string_view old
            = m_before.substr(replacement.oldBegin, replacement.oldEnd - replacement.oldBegin);
        const std::string_view now
            = m_after.substr(replacement.newBegin, replacement.newEnd - replacement.newBegin);
        const std::vector<std::string_view> oldWords = wordsIn(old);
        const std::vector<std::string_view> newWords = wordsIn(now);
        m_floor = replacement.newBegin;
        if (!now.empty() && oldWords.size() == newWords.size()) {
            for (std::size_t i = 0; i < oldWords.size(); ++i)
                moveIn(oldWords[i], newWords[i], Rest::AtItsBeginning);
        } else if (!now.empty()) {
            moveIn(old, now, Rest::First);
        }
        while (hasStampBefore(replacement.oldEnd))
            ++m_next;
    }

    /// Which of the stamps stay that stand before characters that do not.
    enum class Rest {
        AtItsBeginning, ///< the one that stands where the change begins, if that is the beginning of the word
        First ///< the first of them
    };

    /// Stamps before characters of the common beginning and end stay before them.
    void moveIn(std::string_view old, std::string_view now, Rest rest)
    {
        const auto oldBegin = static_cast<std::size_t>(old.data() - m_before.data());
        const auto newBegin = static_cast<std::size_t>(now.data() - m_after.data());
        const CommonEnds ends = commonEnds(old, now);
        // Those in the blanks before a word keep their distance from it, as far as there are blanks.
        while (hasStampBefore(oldBegin)) {
            const std::size_t distance = oldBegin - m_stamps[m_next].at;
            put(newBegin - std::min(distance, newBegin - m_floor));
        }
        keepUpTo(oldBegin + ends.prefix, oldBegin, newBegin);
        const std::size_t changedEnd = oldBegin + old.size() - ends.suffix;
        for (bool isFirst = true; hasStampBefore(changedEnd); isFirst = false) {
            const bool stands = m_stamps[m_next].at == oldBegin;
            if (stands || (isFirst && rest == Rest::First))
                put(newBegin + ends.prefix);
            else
                ++m_next;
        }
        keepUpTo(oldBegin + old.size(), oldBegin + old.size(), newBegin + now.size());
        m_floor = newBegin + now.size();
    }

    std::string_view m_before;
    std::string_view m_after;
    std::span<const PlacedStamp> m_stamps;
    std::size_t m_next = 0;
    /// Where the last word ended that was dealt with.
    std::size_t m_floor = 0;
    std::vector<PlacedStamp> m_moved;
};

std::string putTogether(std::string_view words, std::span<const PlacedStamp> stamps)
{
    std::string text;
    std::size_t from = 0;
    for (const PlacedStamp &stamp : stamps) {
        text += words.substr(from, stamp.at - from);
        text += stamp.spelling;
        from = stamp.at;
    }
    text += words.substr(from);
    return text;
}

} // namespace

void updateWithWords(RBSongLine &line, std::string_view words)
{
    if (!hasWordStamps(line)) {
        line.updateWithText(words);
        return;
    }
    const std::string plain = withoutLineBreaks(words);
    const std::string_view bare = trimmed(plain);
    const StampedText apart = takenApart(line);
    if (bare == apart.words)
        return;
    if (bare.empty()) {
        line.updateWithText({});
        return;
    }
    const std::vector<PlacedStamp> moved = StampMover(apart.words, bare, apart.stamps).move();
    std::string text(apart.before);
    text += putTogether(bare, moved);
    text += apart.behind;
    line.updateWithText(text);
}

} // namespace lyrics
