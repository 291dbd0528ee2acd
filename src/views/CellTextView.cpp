// SPDX-License-Identifier: MIT
#include "views/CellTextView.h"

#include "kit/DroppedFiles.h"
#include "views/OneLine.h"
#include "views/TextMenu.h"

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextFrame>
#include <QtGui/QTextLayout>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <cmath>

namespace views {

CellTextView::CellTextView(QWidget *parent) : TQLRCTextView(parent)
{
    configure();
    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        followEdit();
        fitWidth();
    });
    connect(this, &QTextEdit::cursorPositionChanged, this, &CellTextView::showMarginAtTheEnds);
    // A script that is higher than the row does not move the line up and down.
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
        [this] { verticalScrollBar()->setRange(0, 0); });
}

void CellTextView::configure()
{
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAcceptRichText(false);
    setInputMethodHints(inputMethodHints() & ~Qt::ImhMultiLine);
    document()->setDocumentMargin(0);
}

void CellTextView::setCellText(const QString &text)
{
    const QString shown = withoutWhatNoLineHolds(text);
    m_meantBefore.clear();
    m_shownText.clear();
    // Not setPlainText(), which gives the document margins of its own.
    setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(shown);
    placeText();
    setUndoRedoEnabled(true);
    setTextCursor(cursor);
    if (shown != text) {
        m_meantText = text;
        m_shownText = shown;
        m_meantBefore.insert(shown, text);
    }
}

QString CellTextView::cellText() const
{
    // The raw text: the plain one has blanks for no-break spaces.
    return m_meantBefore.isEmpty() ? withoutWhatNoLineHolds(document()->toRawText()) : m_meantText;
}

// Edit by edit: what lies between two of them is nobody's edit.
void CellTextView::followEdit()
{
    const QString now = m_meantBefore.isEmpty() ? QString() : document()->toRawText();
    if (m_meantBefore.isEmpty() || now == m_shownText) {
        return;
    }
    const auto before = m_meantBefore.constFind(now);
    m_meantText
        = before != m_meantBefore.constEnd() ? *before : withOriginalsOf(m_meantText, m_shownText, now);
    m_shownText = now;
    m_meantBefore.insert(m_shownText, m_meantText);
}

QString CellTextView::textBeforeSelection() const
{
    return cellText().left(textCursor().selectionStart());
}

QString CellTextView::textAfterSelection() const
{
    return cellText().mid(textCursor().selectionEnd());
}

void CellTextView::selectWholeText()
{
    selectAll();
}

void CellTextView::moveCaretTo(qsizetype position)
{
    QTextCursor caret = textCursor();
    caret.setPosition(static_cast<int>(std::clamp<qsizetype>(position, 0, document()->characterCount() - 1)));
    setTextCursor(caret);
}

void CellTextView::contextMenuEvent(QContextMenuEvent *event)
{
    showTextMenu(*this, *event);
}

void CellTextView::selectNothing()
{
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void CellTextView::setTextPlace(int left, int right, int rowHeight)
{
    if (left == m_left && right == m_right && rowHeight == m_rowHeight) {
        return;
    }
    m_left = left;
    m_right = right;
    m_rowHeight = rowHeight;
    placeText();
}

void CellTextView::placeText()
{
    const auto lineHeight = static_cast<int>(document()->firstBlock().layout()->boundingRect().height());
    QTextFrame *const frame = document()->rootFrame();
    QTextFrameFormat format = frame->frameFormat();
    const QTextFrameFormat before = format;
    // Margins of the text and not of the view: the caret stands in them, and clicks in them count.
    format.setLeftMargin(m_left);
    format.setRightMargin(m_right);
    format.setTopMargin(std::max(0, m_rowHeight / 2 - lineHeight / 2));
    format.setBottomMargin(0);
    if (format == before) {
        return;
    }
    // A step to undo, for the document; not for its user. So it is taken while nothing is typed.
    if (!document()->isUndoAvailable() && !document()->isRedoAvailable()) {
        const bool undo = isUndoRedoEnabled();
        setUndoRedoEnabled(false);
        frame->setFrameFormat(format);
        setUndoRedoEnabled(undo);
    }
    fitWidth();
}

// A text from right to left begins at the right edge: of the view, or of itself when it is longer.
void CellTextView::fitWidth()
{
    if (m_isFitting) {
        return;
    }
    const QScopedValueRollback fitting(m_isFitting, true);
    const QTextBlock line = document()->firstBlock();
    double width = viewport()->width();
    if (line.textDirection() == Qt::RightToLeft && line.layout()->lineCount() > 0) {
        const double text = line.layout()->lineAt(0).naturalTextWidth();
        width = std::max(width, std::ceil(text) + m_left + m_right);
    }
    if (document()->textWidth() != width) {
        document()->setTextWidth(width);
        ensureCursorVisible();
    }
}

// The view moves just as far as the caret needs; at an end of the text it moves to its own end.
void CellTextView::showMarginAtTheEnds()
{
    QScrollBar *const bar = horizontalScrollBar();
    const QRect caret = cursorRect().translated(bar->value(), 0);
    if (caret.left() <= m_left) {
        bar->setValue(bar->minimum());
    } else if (caret.left() >= bar->maximum() + viewport()->width() - m_right) {
        bar->setValue(bar->maximum());
    }
}

void CellTextView::resizeEvent(QResizeEvent *event)
{
    TQLRCTextView::resizeEvent(event);
    fitWidth();
    ensureCursorVisible();
}

void CellTextView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        // The table's: there is no other line here.
        event->ignore();
        return;
    default:
        TQLRCTextView::keyPressEvent(event);
    }
}

void CellTextView::inputMethodEvent(QInputMethodEvent *event)
{
    QInputMethodEvent line(event->preeditString(), event->attributes());
    line.setCommitString(
        asOneLine(event->commitString()), event->replacementStart(), event->replacementLength());
    TQLRCTextView::inputMethodEvent(&line);
    event->setAccepted(line.isAccepted());
}

bool CellTextView::canInsertFromMimeData(const QMimeData *source) const
{
    // Files are the table's; an address that comes as text is text.
    return source->hasText() && kit::droppedFiles(source).isEmpty();
}

void CellTextView::insertFromMimeData(const QMimeData *source)
{
    const QString pasted = source->text();
    if (!isSeveralLines(pasted)) {
        textCursor().insertText(asOneLine(pasted));
        ensureCursorVisible();
    } else if (m_isDropping) {
        // The other program waits for the end of the drag.
        QMetaObject::invokeMethod(
            this, [this, pasted] { insertLines(pasted); }, Qt::QueuedConnection);
    } else {
        insertLines(pasted);
    }
}

void CellTextView::insertLines(const QString &pasted)
{
    const QPointer<CellTextView> alive(this);
    // Its own copy: who takes the lines may close this view.
    const LinesHandler handler = m_linesHandler;
    if ((handler && handler(pasted)) || !alive) {
        return;
    }
    textCursor().insertText(asOneLine(pasted));
    ensureCursorVisible();
}

void CellTextView::dropEvent(QDropEvent *event)
{
    const QScopedValueRollback dropping(m_isDropping, true);
    TQLRCTextView::dropEvent(event);
}

QMimeData *CellTextView::createMimeDataFromSelection() const
{
    auto *const copied = new QMimeData;
    const QTextCursor cursor = textCursor();
    copied->setText(cellText().mid(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
    return copied;
}

} // namespace views
