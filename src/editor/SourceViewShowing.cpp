// SPDX-License-Identifier: MIT
#include "editor/KeptCaret.h"
#include "editor/LineDiff.h"
#include "editor/SourceView.h"
#include "editor/TextSplice.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace {

/// Keeps on screen what stands at the upper edge while lines above it come and go.
class KeptPlace
{
public:
    explicit KeptPlace(QTextEdit &view)
        : m_view(view), m_cursor(view.cursorForPosition(QPoint(0, 0)).block()),
          m_top(view.cursorRect(m_cursor).top())
    { }
    KeptPlace(const KeptPlace &) = delete;
    KeptPlace &operator=(const KeptPlace &) = delete;
    ~KeptPlace()
    {
        QScrollBar *const bar = m_view.verticalScrollBar();
        const bool isAtTop = bar->value() == bar->minimum();
        const int moved = m_view.cursorRect(m_cursor).top() - m_top;
        if (moved != 0 && !isAtTop) {
            bar->setValue(bar->value() + moved);
        }
    }

private:
    QTextEdit &m_view;
    QTextCursor m_cursor;
    int m_top;
};

} // namespace

void SourceView::setSourceText(const QByteArray &bytes)
{
    takeTyped();
    if (bytes == m_source.stored() || bytes == m_told) {
        return;
    }
    if (isComposing() && changesCaretLine(bytes)) {
        commitComposing();
        takeTyped();
    }
    const std::optional<QByteArray> merged = withTyping(bytes);
    if (!merged) {
        m_untold.clear();
        Q_EMIT editsDisplaced(m_source.stored());
    }
    m_told = bytes;
    const bool wasEmpty = document()->isEmpty();
    showLines(m_source.setStored(merged.value_or(bytes)));
    if (wasEmpty) {
        // Its one line is found again as the empty one behind the last line end.
        setTextCursor(QTextCursor(document()));
    }
    refreshProblems();
}

/// `bytes` with what was typed since `sourceEdited`; nothing where that is displaced.
std::optional<QByteArray> SourceView::withTyping(const QByteArray &bytes) const
{
    editor::SourceText base(m_untold.empty() ? QByteArray() : m_told);
    std::optional<QByteArray> merged = bytes;
    for (const editor::SourceEdit &edit : m_untold) {
        merged = editor::withEdit(base, *merged, edit);
        if (!merged) {
            break;
        }
        base.edit(edit.position, edit.removed, edit.added);
    }
    return merged;
}

bool SourceView::changesCaretLine(const QByteArray &bytes) const
{
    editor::SourceText next = m_source;
    const editor::LineChange change = next.setStored(bytes);
    const auto hunks = editor::lineHunks(
        m_source.shownLines(change.first, change.before), next.shownLines(change.first, change.now));
    const qsizetype line = caretLine() - change.first;
    return std::any_of(hunks.begin(), hunks.end(), [line](const editor::LineHunk &hunk) {
        return line >= hunk.before && line < hunk.before + hunk.removed;
    });
}

/// Makes the view show the lines of `m_source` that took the place of others.
void SourceView::showLines(const editor::LineChange &change)
{
    QStringList before;
    QTextBlock block = document()->findBlockByNumber(static_cast<int>(change.first));
    for (qsizetype line = 0; line < change.before; ++line, block = block.next()) {
        before.append(block.text());
    }
    const QStringList now = m_source.shownLines(change.first, change.now);
    const auto hunks = editor::lineHunks(before, now);
    if (hunks.empty()) {
        return;
    }
    changeShown(hunks, change.first, now);
    noteCaretLine();
}

/// \param first  the line that the hunks count from.
void SourceView::changeShown(
    const std::vector<editor::LineHunk> &hunks, qsizetype first, const QStringList &now)
{
    const QScopedValueRollback guard(m_isShowing, true);
    const KeptPlace place(*this);
    editor::KeptCaret caret(textCursor());
    QTextCursor edit(document());
    edit.beginEditBlock();
    // From the last to the first, so that the numbers of lines before them still hold.
    std::for_each(hunks.rbegin(), hunks.rend(), [&](const editor::LineHunk &hunk) {
        replaceLines(caret, first + hunk.before, hunk.removed, now.sliced(hunk.after, hunk.added));
    });
    edit.endEditBlock();
    if (!caret.isAt(textCursor())) {
        setTextCursor(caret.cursor(document()));
    }
}

/// Lines that stay as many change within; the others come and go behind them.
void SourceView::replaceLines(
    editor::KeptCaret &caret, qsizetype first, qsizetype removed, const QStringList &lines)
{
    const qsizetype common = std::min(removed, lines.size());
    if (removed > common) {
        removeLines(caret, first + common, first + removed);
    } else if (lines.size() > common) {
        insertLines(caret, first + common, lines.sliced(common));
    }
    for (qsizetype line = common - 1; line >= 0; --line) {
        replaceInLine(caret, first + line, lines[line]);
    }
}

/// Takes out the lines from `first` to before `last`, which are not all.
void SourceView::removeLines(editor::KeptCaret &caret, qsizetype first, qsizetype last)
{
    const int begin = document()->findBlockByNumber(static_cast<int>(first)).position();
    const QTextBlock behind = document()->findBlockByNumber(static_cast<int>(last));
    const int end = behind.isValid() ? behind.position() : document()->characterCount();
    // The last line takes the line break before it along.
    const int shift = behind.isValid() ? 0 : -1;
    caret.replace(document(), {begin + shift, end - begin, {}});
}

/// Puts in lines before the line `first`, or behind the last one.
void SourceView::insertLines(editor::KeptCaret &caret, qsizetype first, const QStringList &lines)
{
    const QString text = lines.join(QLatin1Char('\n'));
    const QTextBlock next = document()->findBlockByNumber(static_cast<int>(first));
    if (next.isValid()) {
        caret.insertLinesBefore(next, text);
    } else {
        caret.replace(document(), {document()->characterCount() - 1, 0, QLatin1Char('\n') + text});
    }
}

void SourceView::replaceInLine(editor::KeptCaret &caret, qsizetype line, const QString &text)
{
    const QTextBlock block = document()->findBlockByNumber(static_cast<int>(line));
    const editor::TextChange change = editor::changeBetween(block.text(), text);
    if (!change.isNone()) {
        caret.replace(document(),
            {block.position() + change.position, change.removed, text.sliced(change.position, change.added)});
    }
}
