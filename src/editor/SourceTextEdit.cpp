// SPDX-License-Identifier: MIT
#include "editor/SourceText.h"
#include "editor/TextSplice.h"

#include <algorithm>

namespace editor {

namespace {

constexpr QLatin1Char kBreak('\n');

/// `text` with LF for each of its line breaks, also those that text views know.
QString withPlainBreaks(QStringView text)
{
    QString plain = text.toString();
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    plain.replace(QLatin1Char('\r'), kBreak);
    plain.replace(QChar::LineSeparator, kBreak);
    plain.replace(QChar::ParagraphSeparator, kBreak);
    return plain;
}

bool isInPair(const QString &text, qsizetype position)
{
    return position > 0 && position < text.size() && text[position - 1].isHighSurrogate()
        && text[position].isLowSurrogate();
}

/// The change between two texts as whole lines: a line that both have is none of it.
TextChange changedLines(const QString &before, const QString &after)
{
    TextChange change = changeBetween(before, after);
    if (change.isNone()) {
        return change;
    }
    const qsizetype head = change.position;
    change.position = QStringView(before).first(head).lastIndexOf(kBreak) + 1;
    // Behind the lines at the beginning, which come first, as much of the end as both have.
    const qsizetype most = std::min(before.size(), after.size()) - change.position;
    qsizetype tail = 0;
    while (tail < most && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        ++tail;
    }
    const auto beginsLine
        = [](const QString &text, qsizetype at) { return at == 0 || text[at - 1] == kBreak; };
    if (!beginsLine(before, before.size() - tail) || !beginsLine(after, after.size() - tail)) {
        const qsizetype lineBreak = before.indexOf(kBreak, before.size() - tail);
        tail = lineBreak < 0 ? 0 : before.size() - lineBreak - 1;
    }
    change.removed = before.size() - tail - change.position;
    change.added = after.size() - tail - change.position;
    return change;
}

} // namespace

QString pasteForm(QStringView text)
{
    QStringList lines = withPlainBreaks(text).split(kBreak);
    for (QString &line : lines) {
        line = shownForm(line.toStdString());
    }
    return lines.join(kBreak);
}

/// UTF-16 units of the shown text that give way to others.
struct SourceText::Piece
{
    /// What is left of an edit of `before` when what is the same at both of its ends is taken off, and half a
    /// pair is made a whole one.
    static Piece of(const QString &before, qsizetype from, qsizetype to, QStringView added)
    {
        const QString plain = withPlainBreaks(added);
        const TextChange change = changeBetween(QStringView(before).sliced(from, to - from), plain);
        Piece piece{from + change.position, from + change.position + change.removed,
            plain.sliced(change.position, change.added)};
        if (piece.isNone()) {
            return piece;
        }
        if (isInPair(before, piece.from)) {
            --piece.from;
            piece.typed.prepend(before[piece.from]);
        }
        if (isInPair(before, piece.to)) {
            piece.typed.append(before[piece.to]);
            ++piece.to;
        }
        return piece;
    }

    [[nodiscard]] bool isNone() const { return from == to && typed.isEmpty(); }
    void move(qsizetype units)
    {
        from += units;
        to += units;
    }

    qsizetype from;
    qsizetype to;
    QString typed;
};

SourceText::Outcome SourceText::edit(qsizetype position, qsizetype removed, QStringView added)
{
    const qsizetype from = std::clamp<qsizetype>(position, 0, m_shownSize);
    const qsizetype to = std::clamp<qsizetype>(from + removed, from, m_shownSize);
    // A line more at either side: what stands there may be shown otherwise afterwards.
    const qsizetype first = std::max<qsizetype>(lineAt(from) - 1, 0);
    const qsizetype linesBehind = std::max<qsizetype>(lineCount() - lineAt(to) - 2, 0);
    const auto shownBetween = [this, first, linesBehind] {
        return shownLines(first, lineCount() - linesBehind - first).join(kBreak);
    };
    const QString before = shownBetween();
    const qsizetype base = m_lines[std::size_t(first)].unit;
    Piece piece = Piece::of(before, from - base, to - base, added);
    piece.move(base);
    if (!piece.isNone()) {
        keepLineEnds(piece);
        const qsizetype begin = byteAt(piece.from);
        const qsizetype end = byteAt(piece.to);
        QByteArray stored = m_stored;
        stored.replace(begin, end - begin, bytesOf(piece, begin, end));
        replaceStored(stored, begin, end);
    }
    const QString expected = before.first(from - base) + added.toString() + before.sliced(to - base);
    return {!piece.isNone(), shownBetween() == expected};
}

/// Where one of several line breaks came or went, it is not that of the line before: that keeps its own.
void SourceText::keepLineEnds(Piece &piece) const
{
    if (!isLineBreakAt(piece.to)) {
        return;
    }
    if (piece.typed.isEmpty() && isLineBreakAt(piece.from)) {
        piece.move(1);
    } else if (piece.from == piece.to && piece.typed.startsWith(kBreak)) {
        piece.move(1);
        piece.typed = piece.typed.sliced(1) + kBreak;
    }
}

/// What is written for `piece` between the stored bytes before `begin` and those from `end` on.
QByteArray SourceText::bytesOf(const Piece &piece, qsizetype begin, qsizetype end) const
{
    QByteArray bytes = piece.typed.toUtf8();
    bytes.replace('\n', m_lineEnd);
    const bool isBehindCr = begin > 0 && m_stored.at(begin - 1) == '\r';
    const bool isBeforeLf = end < m_stored.size() && m_stored.at(end) == '\n';
    // CRLF melts with nothing, and the line before stays as it is.
    if (isBehindCr && (bytes.isEmpty() ? isBeforeLf : bytes.startsWith('\n'))) {
        bytes.prepend('\r');
    } else if (isBeforeLf && bytes.endsWith('\r')) {
        bytes.append('\n');
    }
    return bytes;
}

SourceText::Outcome SourceText::setShown(const QString &edited)
{
    const TextChange change = changedLines(shown(), edited);
    return edit(change.position, change.removed, QStringView(edited).sliced(change.position, change.added));
}

} // namespace editor
