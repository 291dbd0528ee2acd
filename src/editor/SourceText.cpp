// SPDX-License-Identifier: MIT
#include "editor/SourceText.h"

#include "editor/TextSplice.h"
#include "lyrics/DisplayText.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace editor {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Equal bytes are many: they are compared in pieces that the library compares at once.
constexpr qsizetype kStep = 4096;

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

qsizetype commonPrefix(const QByteArray &a, const QByteArray &b)
{
    const qsizetype most = std::min(a.size(), b.size());
    qsizetype length = 0;
    while (
        length + kStep <= most && std::memcmp(a.constData() + length, b.constData() + length, kStep) == 0) {
        length += kStep;
    }
    while (length < most && a.at(length) == b.at(length)) {
        ++length;
    }
    return length;
}

/// \param most  bytes that may be taken for it.
qsizetype commonSuffix(const QByteArray &a, const QByteArray &b, qsizetype most)
{
    const char *const endA = a.constData() + a.size();
    const char *const endB = b.constData() + b.size();
    qsizetype length = 0;
    while (length + kStep <= most && std::memcmp(endA - length - kStep, endB - length - kStep, kStep) == 0) {
        length += kStep;
    }
    while (length < most && endA[-1 - length] == endB[-1 - length]) {
        ++length;
    }
    return length;
}

} // namespace

LineChange SourceText::setStored(const QByteArray &stored)
{
    if (stored == m_stored) {
        m_stored = stored;
        return {};
    }
    const qsizetype prefix = commonPrefix(m_stored, stored);
    const qsizetype suffix
        = commonSuffix(m_stored, stored, std::min(m_stored.size(), stored.size()) - prefix);
    const LineChange change = replaceStored(stored, prefix, m_stored.size() - suffix);
    if (m_lineEnds.prevailing().empty()) {
        m_lineEnd = QByteArrayLiteral("\n");
    }
    return change;
}

/// Takes over `stored`, in which the bytes from `begin` to before `end` of those before gave way to others.
LineChange SourceText::replaceStored(const QByteArray &stored, qsizetype begin, qsizetype end)
{
    // A line before is looked at too: its CR may have become CRLF.
    const qsizetype first = std::max<qsizetype>(lineAtByte(begin) - 1, 0);
    const qsizetype last = lineAtByte(end);
    const bool isToTheEnd = last + 1 == lineCount();
    const qsizetype moved = stored.size() - m_stored.size();
    const qsizetype newEnd = endByte(last) + moved;
    count(first, last, true);
    const qsizetype unitBehind = isToTheEnd ? m_shownSize : m_lines[std::size_t(last) + 1].unit;
    m_stored = stored;

    const qsizetype mark = viewOf(stored).starts_with(kByteOrderMark) ? qsizetype(kByteOrderMark.size()) : 0;
    std::vector<Line> fresh = {first == 0 ? Line{mark, 0} : m_lines[std::size_t(first)]};
    const qsizetype longer = readLines(fresh, newEnd) - unitBehind;
    if (!isToTheEnd) {
        fresh.pop_back();
    }
    const auto begins = m_lines.begin();
    const auto behind
        = m_lines.insert(m_lines.erase(begins + first, begins + last + 1), fresh.begin(), fresh.end())
        + static_cast<qsizetype>(fresh.size());
    std::for_each(behind, m_lines.end(), [moved, longer](Line &line) {
        line.byte += moved;
        line.unit += longer;
    });
    m_shownSize += longer;
    const LineChange change{first, last - first + 1, static_cast<qsizetype>(fresh.size())};
    count(first, first + change.now - 1, false);
    if (const std::string_view most = m_lineEnds.prevailing(); !most.empty()) {
        m_lineEnd = QByteArray(most.data(), static_cast<qsizetype>(most.size()));
    }
    return change;
}

/// Appends where each line begins that begins behind the last one of `lines` and not behind `end`. Answers
/// the unit that `end` is shown at.
qsizetype SourceText::readLines(std::vector<Line> &lines, qsizetype end) const
{
    const char *const base = m_stored.constData();
    Line at = lines.back();
    lyrics::LineEndFinder finder(base + at.byte, base + end);
    while (at.byte < end) {
        const char *const text = base + at.byte;
        const char *const textEnd = finder.textEnd(text);
        const char *const next = finder.lineEnd(textEnd);
        const std::string_view bytes(text, static_cast<std::size_t>(textEnd - text));
        at.unit += static_cast<qsizetype>(lyrics::displayExtent(bytes).units);
        at.byte = next - base;
        if (next > textEnd) {
            ++at.unit;
            lines.push_back(at);
        }
    }
    return at.unit;
}

/// Counts the line ends of the lines from `first` to `last`, or takes them out of what was counted.
void SourceText::count(qsizetype first, qsizetype last, bool isTakenOut)
{
    lyrics::LineEndCount found;
    for (qsizetype line = first; line <= last; ++line) {
        const qsizetype begin = m_lines[std::size_t(line)].byte;
        found.count(lyrics::lineEndOf(
            viewOf(m_stored).substr(std::size_t(begin), std::size_t(endByte(line) - begin))));
    }
    // What is taken out was counted before.
    m_lineEnds.lf += isTakenOut ? 0 - found.lf : found.lf;
    m_lineEnds.crlf += isTakenOut ? 0 - found.crlf : found.crlf;
    m_lineEnds.cr += isTakenOut ? 0 - found.cr : found.cr;
}

QStringList SourceText::shownLines(qsizetype first, qsizetype count) const
{
    QStringList lines;
    lines.reserve(count);
    for (qsizetype line = first; line < first + count; ++line) {
        lines.append(shownForm(lineBytes(line)));
    }
    return lines;
}

qsizetype SourceText::lineAt(qsizetype position) const
{
    const auto behind = std::upper_bound(m_lines.begin() + 1, m_lines.end(), position,
        [](qsizetype unit, const Line &line) { return unit < line.unit; });
    return behind - m_lines.begin() - 1;
}

qsizetype SourceText::lineAtByte(qsizetype byte) const
{
    const auto behind = std::upper_bound(m_lines.begin() + 1, m_lines.end(), byte,
        [](qsizetype at, const Line &line) { return at < line.byte; });
    return behind - m_lines.begin() - 1;
}

/// Where the bytes begin that are shown from `position` on; a part of a character counts as all of it.
qsizetype SourceText::byteAt(qsizetype position) const
{
    const qsizetype line = lineAt(position);
    const Line &begin = m_lines[std::size_t(line)];
    return begin.byte + bytesOfPrefix(lineBytes(line), position - begin.unit);
}

/// Behind the bytes of a line and its line end.
qsizetype SourceText::endByte(qsizetype line) const
{
    return line + 1 < lineCount() ? m_lines[std::size_t(line) + 1].byte : m_stored.size();
}

/// The bytes of a line without its line end.
std::string_view SourceText::lineBytes(qsizetype line) const
{
    const qsizetype begin = m_lines[std::size_t(line)].byte;
    std::string_view bytes = viewOf(m_stored).substr(std::size_t(begin), std::size_t(endByte(line) - begin));
    bytes.remove_suffix(lyrics::lineEndOf(bytes).size());
    return bytes;
}

bool SourceText::isLineBreakAt(qsizetype position) const
{
    const qsizetype next = lineAt(position) + 1;
    return next < lineCount() && m_lines[std::size_t(next)].unit == position + 1;
}

} // namespace editor
