// SPDX-License-Identifier: MIT
#include "lyrics/SongWriter.h"

#include "lyrics/IdTag.h"
#include "lyrics/LineAccess.h"
#include "lyrics/LineEnds.h"
#include "lyrics/LineReader.h"
#include "lyrics/LineWriter.h"
#include "lyrics/TextSink.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace lyrics {
namespace {

using Lines = std::span<const RBSongLine>;

/// True when `next` is spelled right behind `line` in one block.
bool isSpelledBehind(const RBSongLine &line, const RBSongLine &next)
{
    return LineAccess::block(line) == LineAccess::block(next)
        && LineAccess::end(line) == LineAccess::begin(next);
}

bool isJoined(const RBSongLine &line, const RBSongLine &next)
{
    return LineAccess::joinsNext(line) && LineAccess::joinsPrevious(next);
}

/// Of the lines from `first` to before `last`, where `first` begins a physical line, those that begin one.
void appendStarts(std::vector<std::size_t> &starts, Lines lines, std::size_t first, std::size_t last)
{
    for (std::size_t i = first; i < last; ++i) {
        if (i == first || !isJoined(lines[i - 1], lines[i]))
            starts.push_back(i);
    }
}

/// Whether a run of lines that are all untouched, and spelled one behind the other, is the whole source.
bool areOfSource(Lines run, const SongFrame &frame)
{
    if (!frame.source)
        return false;
    const std::size_t begin = frame.byteOrderMark.size();
    const std::size_t end = frame.source.text().size();
    if (run.empty())
        return begin == end;
    return LineAccess::block(run.front()) == frame.source.get() && LineAccess::begin(run.front()) == begin
        && LineAccess::end(run.back()) == end;
}

class Writer
{
public:
    /// \param starts  is told the first line of each physical line; null when nobody asks.
    Writer(Lines lines, const SongFrame &frame, ColonReadings allowed, std::vector<std::size_t> *starts)
        : m_lines(lines), m_frame(frame), m_lineEnd(frame.lineEnd), m_allowed(allowed), m_starts(starts),
          m_lineWriter(m_sink, allowed)
    { }

    [[nodiscard]] BlockRef write();
    /// The time tags of the form `a:b:c` that are in what was written.
    [[nodiscard]] ColonReadings colonForms() const;

private:
    [[nodiscard]] bool canBeCopied(std::size_t index);
    [[nodiscard]] bool hasLostItsKey(std::size_t index);
    [[nodiscard]] bool isLyricBefore(std::size_t index);
    [[nodiscard]] std::size_t runEnd(std::size_t first);
    [[nodiscard]] std::size_t groupEnd(std::size_t first) const;
    void writeRun(std::size_t first, std::size_t last);
    std::size_t writeEdited(std::size_t first);
    void noteStarts(std::size_t first, std::size_t last);
    void writeGroup(std::size_t first, std::size_t last);
    [[nodiscard]] bool saysTheSame(std::string_view text, std::size_t first, std::size_t last);
    [[nodiscard]] ReadingContext contextOf(std::size_t first, std::size_t last);
    void writeLine(std::size_t index);
    void writeLineEnd(std::size_t index, std::size_t begin);
    [[nodiscard]] bool isNothingFrom(std::size_t begin) const;
    void separate(std::string_view next);
    [[nodiscard]] std::string_view lineEnd();

    Lines m_lines;
    const SongFrame &m_frame;
    std::string_view m_lineEnd;
    ColonReadings m_allowed;
    ColonReadings m_copied;
    std::vector<std::size_t> *m_starts;
    TextSink m_sink;
    LineWriter m_lineWriter;
    /// The first line with which the lyric has begun, once somebody asked.
    std::optional<std::size_t> m_firstLyric;
};

BlockRef Writer::write()
{
    std::size_t run = runEnd(0);
    if (run == m_lines.size() && areOfSource(m_lines, m_frame)) {
        noteStarts(0, run);
        return m_frame.source;
    }
    m_sink.reserve(m_frame.source.text().size() + m_lines.size() * 4 + 512);
    m_sink.append(m_frame.byteOrderMark);
    for (std::size_t i = 0; i < m_lines.size(); run = runEnd(i)) {
        if (run > i)
            writeRun(i, run);
        else
            run = writeEdited(i);
        i = run;
    }
    return m_sink.take();
}

/// Writes the line at `first`, which is not as it was read, and what is written along with it. Answers the
/// line behind that.
std::size_t Writer::writeEdited(std::size_t first)
{
    const std::size_t plain = first + m_lineWriter.writePlainEdits(m_lines.subspan(first));
    if (plain > first) {
        noteStarts(first, plain);
        return plain;
    }
    const std::size_t group = groupEnd(first);
    writeGroup(first, group);
    return group;
}

ColonReadings Writer::colonForms() const
{
    ColonReadings forms = m_lineWriter.keptColonForms();
    forms.fraction = forms.fraction || m_copied.fraction;
    forms.hours = forms.hours || m_copied.hours;
    return forms;
}

/// The closer look at a line that is no sure copy. Notes the reading of its colon form: wherever an untouched
/// line will be written, that stays.
bool Writer::canBeCopied(std::size_t index)
{
    const RBSongLine &line = m_lines[index];
    if (!LineAccess::isUntouched(line))
        return false;
    if (LineAccess::hasColonForm(line)) {
        const ColonReading reading = LineAccess::colonReading(line);
        if (!m_allowed.has(reading))
            return false;
        m_copied.add(reading);
    }
    return !hasLostItsKey(index);
}

/// An unknown word before another line of its physical line was a key when it was read; behind a lyric line
/// it would take the other along into one text.
bool Writer::hasLostItsKey(std::size_t index)
{
    const RBSongLine &line = m_lines[index];
    return LineAccess::joinsNext(line) && LineAccess::readAs(line) == LineAccess::Kind::OtherTag
        && !isKnownOtherTag(LineAccess::text(line)) && isLyricBefore(index);
}

bool Writer::isLyricBefore(std::size_t index)
{
    if (!m_firstLyric)
        m_firstLyric = static_cast<std::size_t>(
            std::find_if(m_lines.begin(), m_lines.end(), isLyric) - m_lines.begin());
    return *m_firstLyric < index;
}

/// Behind the last line of the longest run from `first` that can be copied as it stands. A line that shares
/// its physical line with a line outside of the run is no part of it.
std::size_t Writer::runEnd(std::size_t first)
{
    const Lines lines = m_lines;
    if (first == lines.size())
        return first;
    std::size_t last = LineAccess::sureRunEnd(lines, first);
    while (last < lines.size() && canBeCopied(last)
        && (last == first || isSpelledBehind(lines[last - 1], lines[last]))) {
        ++last;
        if (last < lines.size() && isSpelledBehind(lines[last - 1], lines[last]))
            last = LineAccess::sureRunEnd(lines, last);
    }
    if (last == lines.size())
        return last;
    while (last > first && isJoined(lines[last - 1], lines[last]))
        --last;
    return last;
}

/// Behind the last line that shares its physical line with `first`.
std::size_t Writer::groupEnd(std::size_t first) const
{
    std::size_t last = first + 1;
    while (last < m_lines.size() && isJoined(m_lines[last - 1], m_lines[last]))
        ++last;
    return last;
}

void Writer::writeRun(std::size_t first, std::size_t last)
{
    const std::string_view head = LineAccess::spelling(m_lines[first]);
    const std::size_t length = LineAccess::end(m_lines[last - 1]) - LineAccess::begin(m_lines[first]);
    separate(head);
    const std::size_t begin = m_sink.size();
    m_sink.append({head.data(), length});
    noteStarts(first, last);
    if (lineEndOf(LineAccess::spelling(m_lines[last - 1])).empty())
        writeLineEnd(last - 1, begin);
}

/// What is told of lines that keep sharing the physical lines that they share.
void Writer::noteStarts(std::size_t first, std::size_t last)
{
    if (m_starts)
        appendStarts(*m_starts, m_lines, first, last);
}

/// Lines that share a physical line go on sharing it if they would be read as the same lines.
void Writer::writeGroup(std::size_t first, std::size_t last)
{
    if (last - first == 1) {
        writeLine(first);
        return;
    }
    const std::size_t begin = m_sink.size();
    for (std::size_t i = first; i < last; ++i)
        m_lineWriter.write(m_lines[i]);
    if (saysTheSame(m_sink.text().substr(begin), first, last)) {
        writeLineEnd(last - 1, begin);
        noteStarts(first, last);
        return;
    }
    m_sink.cutTo(begin);
    for (std::size_t i = first; i < last; ++i)
        writeLine(i);
}

bool Writer::saysTheSame(std::string_view text, std::size_t first, std::size_t last)
{
    const ReadSong song = readPart(BlockRef::copyOf(text), contextOf(first, last));
    const Lines group = m_lines.subspan(first, last - first);
    return std::equal(song.lines.begin(), song.lines.end(), group.begin(), group.end());
}

ReadingContext Writer::contextOf(std::size_t first, std::size_t last)
{
    const Lines group = m_lines.subspan(first, last - first);
    const bool inHours = std::any_of(group.begin(), group.end(),
        [](const RBSongLine &line) { return LineAccess::colonReading(line) == ColonReading::Hours; });
    return {inHours ? ColonReading::Hours : ColonReading::Fraction, isLyricBefore(first)};
}

void Writer::writeLine(std::size_t index)
{
    const std::size_t begin = m_sink.size();
    m_lineWriter.write(m_lines[index]);
    writeLineEnd(index, begin);
    if (m_starts)
        m_starts->push_back(index);
}

/// \param begin  where in the text the line begins, or the run that it closes.
void Writer::writeLineEnd(std::size_t index, std::size_t begin)
{
    const bool isEmpty = isNothingFrom(begin);
    const RBSongLine &line = m_lines[index];
    std::string_view own = lineEndOf(LineAccess::spelling(line));
    const bool isLast = index + 1 == m_lines.size();
    if (own.empty() && (!isLast || isEmpty || LineAccess::isNew(line) || LineAccess::joinsNext(line)))
        own = lineEnd();
    if (isEmpty)
        separate(own);
    m_sink.append(own);
}

/// What is written from `begin` on will be read as no line. A byte-order mark that was left inside a text and
/// has come to its beginning is taken for that of the document.
bool Writer::isNothingFrom(std::size_t begin) const
{
    const std::string_view written = m_sink.text().substr(begin);
    return written.empty() || (begin == 0 && written == kByteOrderMark);
}

/// A line that begins with LF must not become the second half of a CRLF.
void Writer::separate(std::string_view next)
{
    const std::string_view written = m_sink.text();
    if (!written.empty() && written.back() == '\r' && !next.empty() && next.front() == '\n')
        m_sink.append("\n");
}

/// What a line ends with that has no line end of its own.
std::string_view Writer::lineEnd()
{
    if (!m_lineEnd.empty())
        return m_lineEnd;
    // A document that was put together from lines of others.
    LineEndCount count;
    for (const RBSongLine &line : m_lines)
        count.count(lineEndOf(LineAccess::spelling(line)));
    m_lineEnd = count.prevailing().empty() ? "\n" : count.prevailing();
    return m_lineEnd;
}

/// The meaning of the time tag `a:b:c` that more lines have.
ColonReading prevailingColonReading(Lines lines)
{
    const auto count = [lines](ColonReading reading) {
        return std::count_if(lines.begin(), lines.end(), [reading](const RBSongLine &line) {
            return LineAccess::hasColonForm(line) && LineAccess::colonReading(line) == reading;
        });
    };
    return count(ColonReading::Hours) > count(ColonReading::Fraction) ? ColonReading::Hours
                                                                      : ColonReading::Fraction;
}

/// A text that was written, and whether its time tags `a:b:c` will be read as what they mean in the lines.
struct Attempt
{
    Attempt(Lines lines, const SongFrame &frame, ColonReadings allowed, std::vector<std::size_t> *starts)
    {
        if (starts)
            starts->clear();
        Writer writer(lines, frame, allowed, starts);
        text = writer.write();
        forms = writer.colonForms();
        if ((!forms.fraction && !forms.hours) || text.get() == frame.source.get())
            return;
        const ColonReading reading = readSong(text, frame.byteOrderMark.size()).colonReading;
        holds = !forms.has(reading == ColonReading::Hours ? ColonReading::Fraction : ColonReading::Hours);
    }

    BlockRef text;
    ColonReadings forms;
    bool holds = true;
};

/// The text of the lines, of which there is one at least.
BlockRef writeLines(Lines lines, const SongFrame &frame, std::vector<std::size_t> *starts)
{
    Attempt attempt(lines, frame, {true, true}, starts);
    if (!attempt.holds && attempt.forms.fraction && attempt.forms.hours) {
        // A text has one reading: lines of another document give way to those that are more.
        ColonReadings allowed;
        allowed.add(prevailingColonReading(lines));
        attempt = Attempt(lines, frame, allowed, starts);
    }
    if (!attempt.holds)
        attempt = Attempt(lines, frame, {}, starts);
    return std::move(attempt.text);
}

} // namespace

BlockRef writeSong(Lines lines, const SongFrame &frame)
{
    if (lines.empty())
        return areOfSource(lines, frame) ? frame.source : BlockRef();
    return writeLines(lines, frame, nullptr);
}

std::vector<std::size_t> physicalLineStarts(Lines lines, const SongFrame &frame)
{
    std::vector<std::size_t> starts;
    if (!lines.empty())
        static_cast<void>(writeLines(lines, frame, &starts));
    return starts;
}

} // namespace lyrics
