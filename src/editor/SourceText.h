// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineEnds.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

#include <vector>

namespace editor {

/// `text` from elsewhere in the form in which it is shown once it was pasted: its line breaks (LF, CRLF, CR,
/// U+2028, U+2029) are LF, and what cannot be shown is a replacement mark.
[[nodiscard]] QString pasteForm(QStringView text);

/// Lines that took the place of others.
struct LineChange
{
    qsizetype first = 0; ///< the first of them, from 0
    qsizetype before = 0; ///< how many lines were there
    qsizetype now = 0; ///< how many are there now
};

/// The bytes of a lyric and the text that stands for them in a text view.
///
/// Shown is each line in the form of `shownForm`, LF between two lines, and nothing of a byte-order mark at
/// the beginning. What the model takes for a line end is one; a last line end begins one more shown line,
/// which is empty. Of the bytes only those change whose shown form was edited: line ends, the mark and what
/// cannot be shown stay as they are.
///
/// Lines and UTF-16 units are counted from 0.
class SourceText
{
public:
    SourceText() { setStored({}); }
    explicit SourceText(const QByteArray &stored) { setStored(stored); }

    /// The bytes.
    [[nodiscard]] const QByteArray &stored() const { return m_stored; }
    /// Replaces the bytes. Answers lines outside of which nothing is shown otherwise than before.
    ///
    /// Cost: a comparison with the bytes before, and linear in the lines that differ.
    LineChange setStored(const QByteArray &stored);

    /// The whole text as it is shown. Cost: linear in the bytes.
    [[nodiscard]] QString shown() const { return shownLines(0, lineCount()).join(QLatin1Char('\n')); }
    /// At least one.
    [[nodiscard]] qsizetype lineCount() const { return static_cast<qsizetype>(m_lines.size()); }
    /// `count` lines from `first` on, without line ends.
    [[nodiscard]] QStringList shownLines(qsizetype first, qsizetype count) const;
    /// The length of the shown text in UTF-16 units.
    [[nodiscard]] qsizetype shownSize() const { return m_shownSize; }
    /// The line in which the UTF-16 unit `position` of the shown text stands; its line end is its last unit.
    [[nodiscard]] qsizetype lineAt(qsizetype position) const;
    /// What a new line ends with: as most lines do; what most lines last ended with where none has a line
    /// end any more, and LF where none ever had.
    [[nodiscard]] QByteArray lineEnd() const { return m_lineEnd; }

    /// What came of an edit.
    struct Outcome
    {
        bool isChanged = false; ///< there are other bytes now
        bool isShownAsTyped = true; ///< the shown text is what the caller made of it
    };
    /// Takes over the user's edit of the shown text: `removed` units from `position` on gave way to `added`.
    ///
    /// Every line break of `added` becomes the document's line end: LF, CRLF, CR, U+2028 and U+2029. What
    /// is the same at both ends of the edit counts as left alone. A line break that was typed at the end of a
    /// line goes behind its line end, so that the line keeps it. Where CR and LF would melt into one line
    /// end, the LF is made CRLF. Out of range counts as the end.
    ///
    /// Cost: a copy of the bytes, a pass over the beginnings of lines, and linear in the lines edited.
    Outcome edit(qsizetype position, qsizetype removed, QStringView added);
    /// The same for a shown text of which only the outcome is known. Cost: linear in the text.
    Outcome setShown(const QString &edited);

private:
    /// Where a line begins.
    struct Line
    {
        qsizetype byte;
        qsizetype unit;
    };
    struct Piece;

    LineChange replaceStored(const QByteArray &stored, qsizetype begin, qsizetype end);
    qsizetype readLines(std::vector<Line> &lines, qsizetype end) const;
    [[nodiscard]] qsizetype lineAtByte(qsizetype byte) const;
    [[nodiscard]] qsizetype byteAt(qsizetype position) const;
    [[nodiscard]] qsizetype endByte(qsizetype line) const;
    [[nodiscard]] bool isLineBreakAt(qsizetype position) const;
    [[nodiscard]] std::string_view lineBytes(qsizetype line) const;
    void keepLineEnds(Piece &piece) const;
    [[nodiscard]] QByteArray bytesOf(const Piece &piece, qsizetype begin, qsizetype end) const;
    void count(qsizetype first, qsizetype last, bool isTakenOut);

    QByteArray m_stored;
    std::vector<Line> m_lines = {Line{0, 0}};
    qsizetype m_shownSize = 0;
    lyrics::LineEndCount m_lineEnds;
    QByteArray m_lineEnd = QByteArrayLiteral("\n");
};

} // namespace editor
