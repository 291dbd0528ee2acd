// SPDX-License-Identifier: MIT
#include "editor/KeptCaret.h"

#include <QtGui/QTextBlock>

#include <algorithm>

namespace editor {

void KeptCaret::replace(QTextDocument *document, const SourceEdit &edit)
{
    const auto begin = static_cast<int>(edit.position);
    const auto end = begin + static_cast<int>(edit.removed);
    const auto added = static_cast<int>(edit.added.size());
    QTextCursor cursor(document);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(edit.added);
    for (int *place : {&m_anchor, &m_position}) {
        if (*place >= end && *place > begin) {
            *place += begin + added - end;
        } else if (*place > begin) {
            *place = std::min(*place, begin + added);
        }
    }
}

void KeptCaret::insertLinesBefore(const QTextBlock &block, const QString &lines)
{
    const int begin = block.position();
    QTextCursor(block).insertText(lines + QLatin1Char('\n'));
    for (int *place : {&m_anchor, &m_position}) {
        *place += *place >= begin ? static_cast<int>(lines.size()) + 1 : 0;
    }
}

QTextCursor KeptCaret::cursor(QTextDocument *document) const
{
    QTextCursor caret(document);
    caret.setPosition(m_anchor);
    caret.setPosition(m_position, QTextCursor::KeepAnchor);
    return caret;
}

} // namespace editor
