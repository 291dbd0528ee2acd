// SPDX-License-Identifier: MIT
#include "lyrics/LineWriter.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/LineEnds.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace lyrics {
namespace {

using Kind = LineAccess::Kind;

std::string_view between(const char *begin, const char *end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

std::string_view bodyOf(const RBSongLine &line)
{
    std::string_view body = LineAccess::spelling(line);
    body.remove_suffix(lineEndOf(body).size());
    return body;
}

bool wasProperty(const RBSongLine &line)
{
    const Kind kind = LineAccess::readAs(line);
    return kind != Kind::Text && kind != Kind::OtherTag;
}

} // namespace

void LineWriter::write(const RBSongLine &line)
{
    if (LineAccess::isTagLine(line))
        writeTagLine(line);
    else
        writeLyricLine(line);
}

std::size_t LineWriter::writePlainEdits(std::span<const RBSongLine> lines)
{
    std::size_t count = 0;
    for (; count < lines.size() && LineAccess::isPlainEdit(lines[count]); ++count) {
        const TimeList &times = lines[count].aryTimes();
        const std::string_view rest = LineAccess::behindPlainTags(lines[count]);
        char *out = m_sink.room(times.size() * kLongestTag + rest.size());
        for (const std::int64_t millis : times)
            out = writeTag(out, millis);
        std::memcpy(out, rest.data(), rest.size());
        m_sink.commit(out + rest.size());
    }
    return count;
}

void LineWriter::writeTagLine(const RBSongLine &line)
{
    const std::string_view key = propertyName(LineAccess::key(line));
    if (!wasProperty(line)) {
        m_sink.append("[");
        m_sink.append(key);
        m_sink.append(":");
        m_sink.append(LineAccess::text(line));
        m_sink.append("]");
        return;
    }
    const std::string_view body = bodyOf(line);
    if (LineAccess::key(line) == LineAccess::readAs(line)) {
        m_sink.append(body);
        return;
    }
    // Only the key changed. A value that the user typed need not balance, so the tag is not read again:
    // before the value there are blanks, the bracket, the word and the colon.
    const std::size_t bracket = body.find('[');
    const std::size_t colon = body.find(':', bracket);
    const char *word = skipBlanks(body.data() + bracket + 1, body.data() + colon);
    m_sink.append(between(body.data(), word));
    m_sink.append(key);
    m_sink.append(body.substr(colon));
}

void LineWriter::writeLyricLine(const RBSongLine &line)
{
    const TimeList &times = line.aryTimes();
    if (wasProperty(line) || !LineAccess::block(line)) {
        writeTimes(times);
        m_sink.append(LineAccess::text(line));
        return;
    }
    const std::string_view body = bodyOf(line);
    const char *rest = readTags(line);
    if (m_tags.size() == times.size())
        writeInPlace(times);
    else
        writeWithCommonEnds(times);
    m_sink.append(between(rest, body.data() + body.size()));
}

/// Reads the time tags before the text again. Answers where they end.
const char *LineWriter::readTags(const RBSongLine &line)
{
    const std::string_view spelling = LineAccess::spelling(line);
    const char *end = spelling.data() + LineAccess::textOffset(line);
    m_reading = LineAccess::colonReading(line);
    m_tags.clear();
    const char *gap = spelling.data();
    for (;;) {
        const char *p = skipBlanks(gap, end);
        if (p == end || *p != '[')
            return gap;
        // Read in its place: a copy of what was written just now has to wait for it.
        ReadTag &read = m_tags.emplace_back();
        if (!readTimeTag(p, end, m_reading, read.tag)) {
            m_tags.pop_back();
            return gap;
        }
        read.gapBegin = gap;
        read.begin = p;
        gap = read.tag.end;
    }
}

bool LineWriter::holds(const ReadTag &read, std::int64_t millis) const
{
    return read.tag.millis == millis && (!read.tag.colonForm || m_allowed.has(m_reading));
}

void LineWriter::writeInPlace(const TimeList &times)
{
    for (std::size_t i = 0; i < m_tags.size(); ++i) {
        if (holds(m_tags[i], times[i]))
            keep(m_tags[i].gapBegin, m_tags[i]);
        else
            respell(m_tags[i], times[i]);
    }
}

/// Times came or went: what is the same from either end keeps its spelling, and so does what is left between
/// when times only went.
void LineWriter::writeWithCommonEnds(const TimeList &times)
{
    const std::size_t common = std::min(m_tags.size(), times.size());
    std::size_t head = 0;
    while (head < common && holds(m_tags[head], times[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < common - head && holds(m_tags[m_tags.size() - 1 - tail], times[times.size() - 1 - tail]))
        ++tail;
    // The blanks before the first tag are those before the line.
    if (head == 0 && !m_tags.empty())
        m_sink.append(between(m_tags.front().gapBegin, m_tags.front().begin));
    bool isFirst = head == 0;
    const auto keepOne = [this, &isFirst](const ReadTag &read) {
        keep(isFirst ? read.begin : read.gapBegin, read);
        isFirst = false;
    };
    for (std::size_t i = 0; i < head; ++i)
        keepOne(m_tags[i]);
    const std::span<const ReadTag> tags = std::span(m_tags).subspan(head, m_tags.size() - head - tail);
    const std::span<const std::int64_t> left(times.begin() + head, times.end() - tail);
    if (isRowOf(left, tags)) {
        auto tag = tags.begin();
        for (const std::int64_t millis : left) {
            while (!holds(*tag, millis))
                ++tag;
            keepOne(*tag++);
        }
    } else {
        for (const std::int64_t millis : left)
            writeNew(millis);
        isFirst = false;
    }
    for (std::size_t i = m_tags.size() - tail; i < m_tags.size(); ++i)
        keepOne(m_tags[i]);
}

/// Whether the times are those of some of the tags, in their order.
bool LineWriter::isRowOf(std::span<const std::int64_t> times, std::span<const ReadTag> tags) const
{
    auto next = times.begin();
    for (const ReadTag &tag : tags) {
        if (next != times.end() && holds(tag, *next))
            ++next;
    }
    return next == times.end();
}

void LineWriter::writeTimes(const TimeList &times)
{
    for (const std::int64_t millis : times)
        writeNew(millis);
}

/// The tag as it was read, with what stands before it from `begin` on.
void LineWriter::keep(const char *begin, const ReadTag &read)
{
    m_sink.append(between(begin, read.tag.end));
    if (read.tag.colonForm)
        m_kept.add(m_reading);
}

/// Another time in the place of a tag. A range keeps its length.
void LineWriter::respell(const ReadTag &read, std::int64_t millis)
{
    m_sink.append(between(read.gapBegin, read.begin));
    if (!read.tag.rangeDash || millis < 0) {
        writeNew(millis);
        return;
    }
    const std::int64_t length = read.tag.rangeEndMillis - read.tag.millis;
    const std::int64_t last = millis
        + std::clamp<std::int64_t>(length, -millis, std::numeric_limits<std::int64_t>::max() - millis);
    char *out = m_sink.room(2 * kLongestTime + 3);
    *out++ = '[';
    out = writeExactTime(out, millis);
    *out++ = '-';
    out = writeExactTime(out, last);
    *out++ = ']';
    m_sink.commit(out);
}

void LineWriter::writeNew(std::int64_t millis)
{
    m_sink.commit(writeTag(m_sink.room(kLongestTag), millis));
}

} // namespace lyrics
