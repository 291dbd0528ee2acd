// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/Generator.h"
#include "lyrics/Issues.h"
#include "lyrics/LineOrder.h"
#include "lyrics/OffsetTag.h"
#include "lyrics/Stretch.h"
#include "lyrics/TextLaws.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A script of operations on a document and, told plainly, on a list of lines: for the property tests and the
/// fuzzers alike.
namespace laws {

/// What a script does next, byte by byte.
class Choices
{
public:
    explicit Choices(std::span<const std::uint8_t> bytes) : m_bytes(bytes) { }

    [[nodiscard]] bool isAtEnd() const { return m_bytes.empty(); }
    /// 0 … `count` − 1; 0 at the end.
    std::size_t below(std::size_t count)
    {
        if (m_bytes.empty() || count == 0)
            return 0;
        const std::size_t byte = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return byte % count;
    }
    /// Any amount, small and large ones.
    std::int64_t millis()
    {
        const auto amount = static_cast<std::int64_t>(below(256) * 256 + below(256));
        const std::int64_t factor = below(16) == 0 ? 100'000'000'000'000 : 1;
        return below(2) == 0 ? amount * factor : -amount * factor;
    }
    std::string_view typed()
    {
        const std::size_t kind = below(4);
        if (kind == 0)
            return generate::kTagLikeTexts[below(generate::kTagLikeTexts.size())];
        if (kind == 1)
            return generate::kTimeLikeTexts[below(generate::kTimeLikeTexts.size())];
        return generate::kTypedTexts[below(generate::kTypedTexts.size())];
    }

private:
    std::span<const std::uint8_t> m_bytes;
};

using Pair = std::pair<std::int64_t, std::string>;

/// Each time with the words that are sung then; tag lines and untimed text with a time of their own.
inline std::vector<Pair> whatIsSung(const RBEditSong &song)
{
    std::vector<Pair> pairs;
    for (const RBSongLine &line : song.aryLines()) {
        const bool isTag = (line.isProperty() && !line.propertyStr().empty()) || line.isOtherTag();
        if (isTag || line.aryTimes().empty()) {
            pairs.emplace_back(isTag ? -1 : -2, line.lineText());
            continue;
        }
        for (const std::int64_t millis : line.aryTimes())
            pairs.emplace_back(millis, lyrics::wordsOf(line));
    }
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

/// Runs one script, and says which law it breaks.
class Script
{
public:
    Script(std::string_view text, std::span<const std::uint8_t> choices)
        : m_text(text), m_choices(choices), m_song(songs::built(text)), m_list(songs::plain(m_song))
    { }

    [[nodiscard]] std::string brokenLaw()
    {
        const RBEditSong before = m_song;
        while (!m_choices.isAtEnd()) {
            const std::string broken = step();
            if (!broken.empty())
                return broken;
            if (songs::plain(m_song) != m_list)
                return "an operation does what it does on a plain list";
        }
        if (songs::plain(before) != songs::plain(songs::built(m_text)))
            return "a copy is independent";
        return brokenAtEnd();
    }

private:
    [[nodiscard]] std::string brokenAtEnd()
    {
        const std::vector<std::size_t> starts = m_song.physicalLineStarts();
        const std::string once = songs::written(m_song);
        if (songs::written(m_song) != once)
            return "writing twice is writing once";
        std::size_t lineEnds = 0;
        for (std::size_t i = 0; i < once.size(); ++i)
            lineEnds += once[i] == '\n' || (once[i] == '\r' && !(i + 1 < once.size() && once[i + 1] == '\n'));
        const bool isOpen = !once.empty() && once != "\uFEFF" && once.back() != '\n' && once.back() != '\r';
        if (starts.size() != lineEnds + (isOpen ? 1 : 0))
            return "each physical line is named";
        static_cast<void>(lyrics::issuesOf(once));
        return brokenBy(once);
    }

    /// One operation. The plain list is changed alike, or taken over where the law was looked at here.
    [[nodiscard]] std::string step()
    {
        const std::size_t operation = m_choices.below(16);
        auto &lines = m_song.aryLines();
        const std::size_t row = m_choices.below(lines.size() + 1);
        if (operation == 0)
            return insert(RBSongLine::emptyLine(), row);
        if (operation == 1 && !lines.empty())
            return insert(lines[m_choices.below(lines.size())].copy(), row);
        if (operation == 2)
            return takeOut(row);
        if (operation >= 11)
            return onTheWhole(operation);
        return row < lines.size() ? onLine(operation, lines[row], m_list[row]) : std::string();
    }

    std::string insert(const RBSongLine &line, std::size_t row)
    {
        m_list.insert(m_list.begin() + static_cast<std::ptrdiff_t>(row), songs::plain(line));
        m_song.insertLine_atIndex(line, row);
        return {};
    }

    std::string takeOut(std::size_t row)
    {
        const std::vector<std::size_t> rows = {row, row + 1 + m_choices.below(3)};
        m_song.deleteLineAtIndexs(rows);
        for (const std::size_t at : {rows[1], rows[0]}) {
            if (at < m_list.size())
                m_list.erase(m_list.begin() + static_cast<std::ptrdiff_t>(at));
        }
        return {};
    }

    std::string onLine(std::size_t operation, RBSongLine &line, songs::PlainLine &plain)
    {
        const std::int64_t millis = m_choices.millis();
        switch (operation) {
        case 3:
            line.appendTime(millis);
            plain.times.push_back(millis);
            return {};
        case 4: {
            const std::size_t at = m_choices.below(4);
            line.updateWithTimeStr_atIndex("", static_cast<std::ptrdiff_t>(at));
            if (at < plain.times.size())
                plain.times.erase(plain.times.begin() + static_cast<std::ptrdiff_t>(at));
            return {};
        }
        case 5:
            line.updateWithText(m_choices.typed());
            plain.text = line.lineText();
            return {};
        case 6:
            line.setIsProperty(millis > 0);
            line.setPropertyStr(millis > 1'000 ? "al" : "");
            plain.key = millis > 1'000 ? "al" : "";
            return {};
        case 7:
            return editWords(line, plain);
        case 8:
            return shiftForthAndBack(line, millis);
        default:
            return shift(line, plain, millis);
        }
    }

    std::string editWords(RBSongLine &line, songs::PlainLine &plain)
    {
        const RBSongLine before = line;
        lyrics::updateWithWords(line, lyrics::wordsOf(line));
        if (!(line == before))
            return "the same words are no change";
        const std::string_view words = m_choices.typed();
        lyrics::updateWithWords(line, words);
        RBSongLine plainly;
        plainly.updateWithText(words);
        const bool hasBrackets = words.find_first_of("[<") != std::string_view::npos
            || before.lineText().find_first_of(">]", before.lineText().size() / 2) != std::string_view::npos;
        if (!hasBrackets && lyrics::wordsOf(line) != plainly.lineText())
            return "the words are those that were typed";
        plain.text = line.lineText();
        return {};
    }

    static std::vector<std::int64_t> stampsOf(const RBSongLine &line)
    {
        std::vector<std::int64_t> times;
        for (const lyrics::WordStamp &stamp : lyrics::wordStamps(line))
            times.push_back(stamp.millis);
        return times;
    }

    static std::string shiftForthAndBack(RBSongLine &line, std::int64_t millis)
    {
        const RBSongLine before = line;
        if (lyrics::isShiftCut(line, millis))
            return {};
        line.shiftAllTime(millis);
        line.shiftBack(millis);
        if (!(line == before))
            return "what was not cut comes back";
        line.shiftAllTime(millis);
        if (lyrics::isShiftCut(line, -millis)) {
            line.shiftBack(millis);
            return {};
        }
        line.shiftAllTime(-millis);
        return line == before ? std::string() : "there and back is the identity";
    }

    static std::string shift(RBSongLine &line, songs::PlainLine &plain, std::int64_t millis)
    {
        std::vector<std::int64_t> stamps = stampsOf(line);
        const std::string words = lyrics::wordsOf(line);
        line.shiftAllTime(millis);
        for (std::vector<std::int64_t> *times : {&plain.times, &stamps}) {
            for (std::int64_t &time : *times)
                time = millis == 0 ? time : lyrics::shifted(time, millis);
        }
        plain.text = line.lineText();
        if (stampsOf(line) != stamps)
            return "word stamps move as times do";
        return lyrics::wordsOf(line) == words ? std::string() : "a shift leaves the words";
    }

    std::string onTheWhole(std::size_t operation)
    {
        const std::vector<Pair> before = whatIsSung(m_song);
        std::string broken;
        if (operation == 11) {
            lyrics::expandRepeats(m_song);
            broken = lyrics::expandRepeats(m_song) > 0 ? "what is expanded is expanded" : "";
        } else if (operation == 12) {
            lyrics::collapseRepeats(m_song);
            broken = lyrics::collapseRepeats(m_song) > 0 ? "what is collapsed is collapsed" : "";
        } else if (operation == 13) {
            lyrics::sortByTime(m_song);
            broken = lyrics::sortByTime(m_song) ? "what is sorted is sorted" : "";
        } else if (operation == 14) {
            const lyrics::Anchor first{static_cast<std::int64_t>(m_choices.below(200)) * 100,
                static_cast<std::int64_t>(m_choices.below(200)) * 100};
            const lyrics::Anchor second{first.from + 10'000, first.to + 100 + std::abs(m_choices.millis())};
            lyrics::stretchTimes(m_song, {first, second});
        } else {
            lyrics::bakeOffset(m_song,
                m_choices.below(2) == 0 ? lyrics::OffsetSense::PositiveIsEarlier
                                        : lyrics::OffsetSense::PositiveIsLater);
        }
        m_list = songs::plain(m_song);
        if (operation <= 13 && whatIsSung(m_song) != before)
            return "what is sung when stays";
        return broken;
    }

    std::string_view m_text;
    Choices m_choices;
    RBEditSong m_song;
    std::vector<songs::PlainLine> m_list;
};

} // namespace laws
