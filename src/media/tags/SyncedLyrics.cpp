// SPDX-License-Identifier: MIT
#include "media/tags/SyncedLyrics.h"

#include "media/tags/LrcTime.h"
#include "media/tags/LyricFields.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace tags {

namespace {

constexpr std::string_view kBreaks = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A timed line: its entries, at least one, and how many blank lines stand before it.
struct TimedLine
{
    std::size_t blanksBefore = 0;
    std::vector<SyncedEntry> entries; ///< without line breaks

    [[nodiscard]] std::uint64_t time() const { return entries.front().time; }
};

/// Takes the line break at the start of `text` off; false when there is none.
bool takeBreak(std::string_view &text)
{
    if (text.empty() || kBreaks.find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    return true;
}

std::size_t takeBreaks(std::string_view &text)
{
    std::size_t count = 0;
    while (takeBreak(text))
        ++count;
    return count;
}

std::string_view takeLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, text.find_first_of(kBreaks));
    text.remove_prefix(line.size());
    return line;
}

bool isBreaks(std::string_view text)
{
    return text.find_first_not_of(kBreaks) == std::string_view::npos;
}

/// Puts entries together to lines.
class LineJoiner
{
public:
    explicit LineJoiner(LineBreaks breaks) : m_breaks(breaks) { }

    void add(const SyncedEntry &entry);
    [[nodiscard]] std::vector<TimedLine> release() { return std::move(m_lines); }

private:
    void addPiece(std::uint64_t time, std::string_view text);

    LineBreaks m_breaks;
    std::size_t m_passed = 0; ///< line breaks since the last piece
    std::vector<TimedLine> m_lines;
};

void LineJoiner::addPiece(std::uint64_t time, std::string_view text)
{
    if (m_lines.empty())
        m_lines.emplace_back();
    else if (m_passed > 0)
        m_lines.push_back({m_passed - 1, {}});
    m_lines.back().entries.push_back({time, std::string(text)});
    m_passed = 0;
}

void LineJoiner::add(const SyncedEntry &entry)
{
    std::string_view rest = entry.text;
    // Nothing but a line break is a line without text: before it, or after it.
    if (m_breaks != LineBreaks::Trailing || !isBreaks(rest))
        m_passed += takeBreaks(rest);
    if (m_breaks == LineBreaks::None)
        m_passed = std::max<std::size_t>(m_passed, 1);
    do {
        addPiece(entry.time, takeLine(rest));
        m_passed += takeBreaks(rest);
    } while (!rest.empty());
}

/// The leading time tags of a line, taken off; null when the line is one that entries cannot hold.
std::optional<std::vector<std::uint64_t>> takeTimeTags(std::string_view &line)
{
    std::vector<std::uint64_t> times;
    for (;;) {
        const std::size_t open = line.find_first_not_of(" \t");
        const bool isTag = open != std::string_view::npos && line[open] == '[';
        const std::optional<LrcTime> tag = isTag ? lrcTimeAt(line, open, ']') : std::nullopt;
        if (!tag)
            break;
        times.push_back(tag->time);
        line.remove_prefix(tag->end);
    }
    if (times.empty() || holdsTimeTags(line))
        return std::nullopt;
    return times;
}

/// The words of a line whose time tag says `start`.
std::vector<SyncedEntry> wordsOf(std::string_view text, std::uint64_t start)
{
    std::vector<SyncedEntry> words;
    std::uint64_t time = start;
    std::size_t from = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
        const std::optional<LrcTime> stamp = lrcTimeAt(text, at, '>');
        if (!stamp) {
            ++at;
            continue;
        }
        // The first word's own stamp says again what the line's tag says.
        const bool repeatsTag = words.empty() && at == 0 && from == 0 && stamp->time == start;
        if (!repeatsTag)
            words.push_back({time, std::string(text.substr(from, at - from))});
        time = stamp->time;
        from = at = stamp->end;
    }
    words.push_back({time, std::string(text.substr(from))});
    return words;
}

/// `words` as they are sung when the line begins at `to` instead of `from`; null when no time can say so.
std::optional<std::vector<SyncedEntry>> moved(
    std::vector<SyncedEntry> words, std::uint64_t from, std::uint64_t to)
{
    for (SyncedEntry &word : words) {
        if (word.time + to < from || word.time + to - from > kMaxLrcTime)
            return std::nullopt;
        word.time = word.time + to - from;
    }
    return words;
}

/// Reads LRC text, as much of it as entries can hold.
class LrcReader
{
public:
    void add(std::string_view line);
    [[nodiscard]] std::vector<TimedLine> release();

private:
    [[nodiscard]] bool takeRoom(std::size_t entries, std::size_t bytes, std::size_t times);

    std::size_t m_blanks = 0; ///< blank lines since the last line that is held
    std::size_t m_entriesLeft = kMaxSyncedEntries;
    std::size_t m_bytesLeft = kMaxSyncedBytes;
    std::vector<TimedLine> m_lines;
};

/// Whether there is room for a line of so many entries and bytes, so many times.
bool LrcReader::takeRoom(std::size_t entries, std::size_t bytes, std::size_t times)
{
    if (entries > m_entriesLeft / times || bytes > m_bytesLeft / times)
        return false;
    m_entriesLeft -= entries * times;
    m_bytesLeft -= bytes * times;
    return true;
}

void LrcReader::add(std::string_view line)
{
    if (line.empty()) {
        ++m_blanks;
        return;
    }
    std::string_view text = line;
    const std::optional<std::vector<std::uint64_t>> times = takeTimeTags(text);
    if (!times)
        return;
    const std::vector<SyncedEntry> words = wordsOf(text, times->front());
    std::size_t bytes = m_blanks;
    for (const SyncedEntry &word : words)
        bytes += word.text.size();
    if (!takeRoom(words.size(), bytes, times->size()))
        return;
    for (const std::uint64_t time : *times) {
        if (auto sung = moved(words, times->front(), time))
            m_lines.push_back({std::exchange(m_blanks, 0), std::move(*sung)});
    }
}

std::vector<TimedLine> LrcReader::release()
{
    std::stable_sort(m_lines.begin(), m_lines.end(),
        [](const TimedLine &a, const TimedLine &b) { return a.time() < b.time(); });
    if (!m_lines.empty())
        m_lines.front().blanksBefore = 0;
    return std::move(m_lines);
}

std::vector<TimedLine> linesOf(std::string_view lrc)
{
    LrcReader reader;
    if (lrc.starts_with(kByteOrderMark))
        lrc.remove_prefix(kByteOrderMark.size());
    while (!lrc.empty()) {
        reader.add(takeLine(lrc));
        takeBreak(lrc);
    }
    return reader.release();
}

std::string stamp(std::uint64_t time)
{
    return '<' + lrcTimeText(time) + '>';
}

std::string rendered(const TimedLine &line)
{
    const std::vector<SyncedEntry> &words = line.entries;
    std::string out(line.blanksBefore, '\n');
    out += '[' + lrcTimeText(line.time()) + ']';
    const bool alone = words.size() == 1;
    // Where nothing is sung before the first stamp that differs, the tag has said it.
    const bool silent = !alone && words[0].text.empty() && words[1].time != line.time();
    if (alone ? holdsTimeTags(words[0].text) : !silent)
        out += stamp(line.time());
    out += words[0].text;
    for (auto word = std::next(words.begin()); word != words.end(); ++word)
        out += stamp(word->time) + word->text;
    return out + '\n';
}

std::string rendered(const std::vector<TimedLine> &lines)
{
    std::string out;
    for (const TimedLine &line : lines)
        out += rendered(line);
    return out;
}

} // namespace

LineBreaks lineBreaksOf(const std::vector<SyncedEntry> &entries)
{
    LineBreaks breaks = LineBreaks::None;
    for (const SyncedEntry &entry : entries) {
        if (entry.text.empty())
            continue;
        const bool leads = kBreaks.find(entry.text.front()) != std::string_view::npos;
        if (leads)
            breaks = LineBreaks::Leading;
        if (isBreaks(entry.text))
            continue; // it may be either; another has to tell
        if (leads)
            return LineBreaks::Leading;
        if (kBreaks.find(entry.text.back()) != std::string_view::npos)
            return LineBreaks::Trailing;
    }
    return breaks;
}

std::string lrcFromEntries(const std::vector<SyncedEntry> &entries)
{
    LineJoiner joiner(lineBreaksOf(entries));
    for (const SyncedEntry &entry : entries)
        joiner.add(entry);
    // Texts may hold word stamps themselves, and lines may stand in any order.
    return holdableText(rendered(joiner.release()));
}

std::vector<SyncedEntry> entriesFromLrc(std::string_view lrc, LineBreaks breaks)
{
    std::vector<TimedLine> lines = linesOf(lrc);
    const bool plain = std::all_of(lines.begin(), lines.end(),
        [](const TimedLine &line) { return line.blanksBefore == 0 && line.entries.size() == 1; });
    const bool needsBreaks = breaks != LineBreaks::None || !plain;
    std::vector<SyncedEntry> entries;
    for (TimedLine &line : lines) {
        const bool first = entries.empty();
        // Words of a single line would otherwise be taken for lines.
        const std::size_t before = first ? (lines.size() == 1 && !plain ? 1 : 0) : line.blanksBefore + 1;
        if (needsBreaks)
            line.entries.front().text.insert(0, before, '\n');
        std::move(line.entries.begin(), line.entries.end(), std::back_inserter(entries));
    }
    return entries;
}

std::string holdableText(std::string_view lrc)
{
    return rendered(linesOf(lrc));
}

} // namespace tags
