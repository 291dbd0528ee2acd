// SPDX-License-Identifier: MIT
#include "lyrics/SongWriter.h"

#include "lyrics/LineAccess.h"
#include "lyrics/LineEnds.h"
#include "lyrics/LineReader.h"
#include "lyrics/LineWriter.h"
#include "lyrics/TextSink.h"

#include <algorithm>

namespace lyrics {
namespace {

using Lines = std::span<const RBSongLine>;
using ColonForm = LineWriter::ColonForm;

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

class Writer
{
public:
    Writer(Lines lines, const SongFrame &frame, ColonForm colonForm)
        : m_lines(lines), m_lineEnd(frame.lineEnd), m_colonForm(colonForm),
          m_sink(frame.source.text().size() + lines.size() * 4 + 256), m_lineWriter(m_sink, colonForm)
    {
        m_sink.append(frame.byteOrderMark);
    }

    [[nodiscard]] BlockRef write();

private:
    [[nodiscard]] bool canBeCopied(const RBSongLine &line) const;
    [[nodiscard]] std::size_t runEnd(std::size_t first) const;
    [[nodiscard]] std::size_t groupEnd(std::size_t first) const;
    void writeRun(std::size_t first, std::size_t last);
    void writeGroup(std::size_t first, std::size_t last);
    [[nodiscard]] bool saysTheSame(std::string_view text, std::size_t first, std::size_t last);
    [[nodiscard]] ReadingContext contextOf(std::size_t first, std::size_t last);
    void writeLine(std::size_t index);
    void writeLineEnd(std::size_t index, bool isEmpty);
    void separate(std::string_view next);
    [[nodiscard]] std::string_view lineEnd();

    Lines m_lines;
    std::string_view m_lineEnd;
    ColonForm m_colonForm;
    TextSink m_sink;
    LineWriter m_lineWriter;
    /// Whether one of the lines before `m_lookedAt` is a lyric line.
    bool m_lyricSeen = false;
    std::size_t m_lookedAt = 0;
};

BlockRef Writer::write()
{
    for (std::size_t i = 0; i < m_lines.size();) {
        const std::size_t run = runEnd(i);
        if (run > i) {
            writeRun(i, run);
            i = run;
            continue;
        }
        const std::size_t group = groupEnd(i);
        writeGroup(i, group);
        i = group;
    }
    return m_sink.take();
}

bool Writer::canBeCopied(const RBSongLine &line) const
{
    return LineAccess::isUntouched(line)
        && (m_colonForm == ColonForm::Kept || !LineAccess::hasColonForm(line));
}

/// Behind the last line of the longest run from `first` that can be copied as it stands. A line that shares
/// its physical line with a line outside of the run is no part of it.
std::size_t Writer::runEnd(std::size_t first) const
{
    std::size_t last = first;
    while (last < m_lines.size() && canBeCopied(m_lines[last])
        && (last == first || isSpelledBehind(m_lines[last - 1], m_lines[last])))
        ++last;
    if (last == m_lines.size())
        return last;
    while (last > first && isJoined(m_lines[last - 1], m_lines[last]))
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
    m_sink.append({head.data(), length});
    const std::string_view tail = LineAccess::spelling(m_lines[last - 1]);
    if (lineEndOf(tail).empty())
        writeLineEnd(last - 1, tail.empty());
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
        writeLineEnd(last - 1, m_sink.size() == begin);
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

/// Asked for in rising order, so that all questions together go over the lines once.
ReadingContext Writer::contextOf(std::size_t first, std::size_t last)
{
    for (; !m_lyricSeen && m_lookedAt < first; ++m_lookedAt)
        m_lyricSeen = isLyric(m_lines[m_lookedAt]);
    const Lines group = m_lines.subspan(first, last - first);
    const bool inHours = std::any_of(group.begin(), group.end(),
        [](const RBSongLine &line) { return LineAccess::colonReading(line) == ColonReading::Hours; });
    return {inHours ? ColonReading::Hours : ColonReading::Fraction, m_lyricSeen};
}

void Writer::writeLine(std::size_t index)
{
    const std::size_t begin = m_sink.size();
    m_lineWriter.write(m_lines[index]);
    writeLineEnd(index, m_sink.size() == begin);
}

void Writer::writeLineEnd(std::size_t index, bool isEmpty)
{
    const RBSongLine &line = m_lines[index];
    std::string_view own = lineEndOf(LineAccess::spelling(line));
    const bool isLast = index + 1 == m_lines.size();
    if (own.empty() && (!isLast || isEmpty || LineAccess::isNew(line) || LineAccess::joinsNext(line)))
        own = lineEnd();
    if (isEmpty)
        separate(own);
    m_sink.append(own);
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

/// True when the lines are those of the source, all of them and as they were read.
bool isAsRead(Lines lines, const SongFrame &frame)
{
    std::size_t at = frame.byteOrderMark.size();
    for (const RBSongLine &line : lines) {
        if (LineAccess::block(line) != frame.source.get() || LineAccess::begin(line) != at
            || !LineAccess::isUntouched(line))
            return false;
        at = LineAccess::end(line);
    }
    return at == frame.source.text().size();
}

/// Whether the colon forms of `text` still mean what they mean in `lines`.
bool colonFormsHold(const BlockRef &text, std::size_t from, Lines lines)
{
    if (std::none_of(lines.begin(), lines.end(), LineAccess::hasColonForm))
        return true;
    const ReadSong song = readSong(text, from);
    return std::equal(song.lines.begin(), song.lines.end(), lines.begin(), lines.end());
}

} // namespace

BlockRef writeSong(Lines lines, const SongFrame &frame)
{
    if (frame.source && isAsRead(lines, frame))
        return frame.source;
    if (lines.empty())
        return {};
    BlockRef text = Writer(lines, frame, ColonForm::Kept).write();
    if (colonFormsHold(text, frame.byteOrderMark.size(), lines))
        return text;
    return Writer(lines, frame, ColonForm::Respelled).write();
}

} // namespace lyrics
