// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SourceMerge.h"

#include <QtGui/QTextCursor>

class QTextBlock;
class QTextDocument;

namespace editor {

/// Where caret and selection of a text view stand while others change its text.
///
/// Cursors of the toolkit move along with what is put in right where they stand. Here only a line moves along
/// that other lines are put in before: in what is put in within a line nobody typed.
class KeptCaret
{
public:
    explicit KeptCaret(const QTextCursor &caret) : m_anchor(caret.anchor()), m_position(caret.position()) { }

    /// Makes an edit of the document.
    void replace(QTextDocument *document, const SourceEdit &edit);
    /// Puts in `lines`, LF between two of them, before the line of `block`.
    void insertLinesBefore(const QTextBlock &block, const QString &lines);

    [[nodiscard]] bool isAt(const QTextCursor &caret) const
    {
        return caret.anchor() == m_anchor && caret.position() == m_position;
    }
    [[nodiscard]] QTextCursor cursor(QTextDocument *document) const;

private:
    int m_anchor;
    int m_position;
};

} // namespace editor
