// SPDX-License-Identifier: MIT
#include "cli/LineDiff.h"
#include "cli/LineView.h"
#include "cli/TimeText.h"
#include "cli/formats/Formats.h"
#include "cli/formats/SheetTimes.h"
#include "lyrics/Blanks.h"
#include "lyrics/LineOrder.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace cli {
namespace {

// Times of the same line that differ less are one time: rounded by whoever wrote them.
constexpr std::int64_t kSameMillis = 10;

/// For which of the times of a line its word stamps hold: the latest that is not after the first stamp, or
/// the earliest.
std::int64_t stampedTime(const RBSongLine &line, std::int64_t firstStamp)
{
    const lyrics::TimeList &times = line.aryTimes();
    std::int64_t found = *std::min_element(times.begin(), times.end());
    for (const std::int64_t time : times) {
        if (time <= firstStamp && time > found)
            found = time;
    }
    return found;
}

std::vector<SheetWord> wordsOf(const RBSongLine &line)
{
    std::vector<SheetWord> words;
    for (const lyrics::StampedWord &word : lyrics::stampedWords(line))
        words.push_back({word.millis, std::string(word.text)});
    return words;
}

/// When the ranges end that a physical line begins with, `[from-to]`, by their starts.
std::map<std::int64_t, std::int64_t> rangeEnds(std::string_view physicalLine)
{
    std::map<std::int64_t, std::int64_t> ends;
    for (std::string_view rest = lyrics::trimmed(physicalLine); rest.starts_with('[');) {
        const std::size_t close = std::min(rest.find(']'), rest.size() - 1);
        std::string_view inner = lyrics::trimmed(rest.substr(1, close - 1));
        const auto from = takeClockTime(inner);
        if (!from)
            break;
        if (inner.starts_with('-')) {
            inner.remove_prefix(1);
            if (const auto to = takeClockTime(inner); to && inner.empty())
                ends.emplace(*from, *to);
        }
        rest = lyrics::trimmed(rest.substr(close + 1));
    }
    return ends;
}

/// A stamp behind the last word is when the line ends, and no word.
void takeLineEnd(SheetLine &line)
{
    if (line.words.size() > 1 && line.words.back().millis
        && lyrics::trimmed(line.words.back().text).empty()) {
        line.end = line.words.back().millis;
        line.words.pop_back();
    }
}

/// Reads the lines of a document, each once for every time that it has.
class Reader
{
public:
    explicit Reader(Losses &losses) : m_losses(losses) { }

    Sheet read(std::string_view text)
    {
        RBEditSong song;
        song.buildWithLrcText(text);
        const std::vector<std::size_t> starts = song.physicalLineStarts();
        const std::vector<std::string_view> lines = physicalLines(text);
        std::size_t physical = 0;
        for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
            while (physical < starts.size() && starts[physical] <= row)
                ++physical;
            m_ends = rangeEnds(lines[physical - 1]);
            addLine(std::as_const(song).aryLines()[row], physical);
        }
        sortLines(m_sheet);
        return std::move(m_sheet);
    }

private:
    void addLine(const RBSongLine &line, std::size_t physical)
    {
        if (const auto tag = tagOf(line)) {
            m_sheet.tags.push_back({physical, std::string(tag->key), std::string(tag->value)});
            return;
        }
        const SheetLine plain{physical, {}, {}, wordsOf(line)};
        if (line.aryTimes().empty())
            m_sheet.lines.push_back(plain);
        else
            addTimes(line, plain);
    }

    void addTimes(const RBSongLine &line, const SheetLine &plain)
    {
        count(line, plain);
        std::int64_t base = 0;
        const auto stamped = std::ranges::find_if(
            plain.words, [](const SheetWord &word) { return word.millis.has_value(); });
        if (stamped != plain.words.end())
            base = near(stampedTime(line, *stamped->millis), plain.source);
        // The earliest comes last: untimed lines that follow stay with it, as where repeats are expanded.
        std::vector<std::int64_t> times(line.aryTimes().begin(), line.aryTimes().end());
        std::ranges::sort(times, std::greater());
        for (const std::int64_t time : times) {
            SheetLine &sung = m_sheet.lines.emplace_back(plain);
            sung.start = near(time, plain.source);
            if (const auto end = m_ends.find(time); end != m_ends.end())
                sung.end = near(end->second, plain.source);
            for (SheetWord &word : sung.words) {
                if (word.millis)
                    word.millis = near(*word.millis, plain.source) + (*sung.start - base);
            }
            takeLineEnd(sung);
        }
    }

    /// A short text can hold a line that would be a terabyte.
    void count(const RBSongLine &line, const SheetLine &plain)
    {
        const std::size_t size
            = sizeof(SheetLine) + line.lineText().size() + plain.words.size() * sizeof(SheetWord);
        const std::size_t times = line.aryTimes().size() - 1;
        if (times > (lyrics::kMostBytesExpanded - m_repeated) / size)
            throw std::length_error("its repeats, written out, would take more than 256 MiB");
        m_repeated += times * size;
    }

    /// No format counts further than this, and sums of such times are still numbers.
    std::int64_t near(std::int64_t millis, std::size_t source)
    {
        const std::int64_t inside = std::clamp(millis, -kLargestClockMillis, kLargestClockMillis);
        if (inside != millis)
            m_losses.add(source, "the time is too large, and becomes " + exactTime(inside) + ".");
        return inside;
    }

    Losses &m_losses;
    Sheet m_sheet;
    std::map<std::int64_t, std::int64_t> m_ends; ///< of the ranges of the line that is read
    std::size_t m_repeated = 0;
};

Sheet read(std::string_view text, Losses &losses)
{
    return Reader(losses).read(text);
}

std::string enhancedText(const SheetLine &line)
{
    std::string text;
    for (const SheetWord &word : line.words)
        text += (word.millis ? "<" + exactTime(*word.millis) + ">" : "") + word.text;
    if (line.hasWordTimes() && line.end)
        text += "<" + exactTime(*line.end) + ">";
    return text;
}

/// Whether the line is read as what it was written from.
bool isReadAs(const std::string &written, const SheetLine &line, std::string_view text)
{
    RBEditSong song;
    song.buildWithLrcText(written);
    if (song.aryLines().size() != 1)
        return written.empty();
    const RBSongLine &read = std::as_const(song).aryLines().front();
    return !tagOf(read) && read.aryTimes().firstObject() == line.start && read.aryTimes().size() <= 1
        && read.lineText() == text;
}

class Writer
{
public:
    Writer(bool withWords, Losses &losses) : m_withWords(withWords), m_losses(losses) { }

    std::string write(const Sheet &sheet)
    {
        for (const SheetTag &tag : sheet.tags)
            m_out += "[" + tag.key + ":" + tag.value + "]\n";
        if (!m_withWords)
            noteWordTimes(sheet.lines, "lrc (other than enhanced)", m_losses);
        for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
            addLine(sheet.lines[i]);
            noteEnd(sheet.lines[i], i + 1 < sheet.lines.size() ? sheet.lines[i + 1].start : std::nullopt,
                i + 1 == sheet.lines.size());
        }
        return std::move(m_out);
    }

private:
    void addLine(const SheetLine &line)
    {
        const std::string whole = m_withWords ? enhancedText(line) : line.text();
        const std::string_view text = lyrics::trimmed(whole);
        std::string written = line.start ? "[" + exactTime(*line.start) + "]" : "";
        written += text;
        if (!isReadAs(written, line, text))
            m_losses.add(line.source, "the text looks like a tag, and is read as one from now on.");
        m_out += written + "\n";
    }

    /// A line that ends before the next begins is followed by an empty one at that time.
    void noteEnd(const SheetLine &line, std::optional<std::int64_t> next, bool isLast)
    {
        if (!line.start || !line.end)
            return;
        m_end = std::max(m_end, *line.end);
        // Lines of one time are one group; its end is the latest of theirs.
        if (next && *next == *line.start)
            return;
        const std::int64_t end = std::exchange(m_end, 0);
        const bool isShownOn = next && *next < end - kSameMillis;
        if (isShownOn)
            m_losses.add(line.source,
                "the line was shown until " + exactTime(end) + ", into the next one; lrc cannot say so.");
        else if ((isLast || (next && *next > end + kSameMillis)) && end > *line.start)
            m_out += "[" + exactTime(end) + "]\n";
    }

    bool m_withWords;
    Losses &m_losses;
    std::string m_out;
    std::int64_t m_end = 0;
};

std::string write(const Sheet &sheet, Losses &losses)
{
    return Writer(false, losses).write(sheet);
}

std::string writeEnhanced(const Sheet &sheet, Losses &losses)
{
    return Writer(true, losses).write(sheet);
}

} // namespace

const LyricFormat kLrcFormat{"lrc", "lrc", "", read, write, false};
const LyricFormat kEnhancedFormat{"enhanced", "lrc", "elrc", read, writeEnhanced, false};

} // namespace cli
