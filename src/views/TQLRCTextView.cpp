// SPDX-License-Identifier: MIT
#include "views/TQLRCTextView.h"

#include "kit/Theme.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QDropEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QStyleHints>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kDefaultCaretWidth = 3.0;
constexpr double kWidestCaret = 1000.0; // keeps a wild value within what an int and a view can hold

constexpr const char *kCaretProperty = "cursorWidth";

} // namespace

TQLRCTextView::TQLRCTextView(QWidget *parent) : QTextEdit(parent)
{
    setCaretWidth(kDefaultCaretWidth);
    connect(this, &QTextEdit::cursorPositionChanged, this, &TQLRCTextView::beginBlinking);
    connect(this, &QTextEdit::textChanged, this, &TQLRCTextView::beginBlinking);
}

void TQLRCTextView::setCaretWidth(double width)
{
    m_caretWidth = width;
    const double drawn = std::isnan(width) ? 0.0 : std::clamp(width, 0.0, kWidestCaret);
    // The text control invalidates, and keeps in sight, by this width.
    setCursorWidth(static_cast<int>(std::lround(drawn)));
}

bool TQLRCTextView::canShowCaret() const
{
    return hasFocus() && textInteractionFlags().testFlag(Qt::TextEditable);
}

// On the side of the text that follows. Never half outside: at an edge it stands over a character.
QRect TQLRCTextView::caretRect() const
{
    QRect caret = cursorRect();
    caret.setWidth(cursorWidth());
    if (textCursor().block().textDirection() == Qt::RightToLeft) {
        caret.moveLeft(std::max(0, caret.left() - caret.width()));
    }
    const int right = viewport()->width();
    if (caret.left() < right && caret.right() >= right) {
        caret.moveRight(right - 1);
    }
    return caret;
}

void TQLRCTextView::beginBlinking()
{
    viewport()->update(m_drawnCaret);
    m_caretIsOn = canShowCaret();
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (m_caretIsOn && period > 0) {
        m_blink.start(period / 2, this);
    } else {
        m_blink.stop();
    }
    viewport()->update(caretRect());
}

void TQLRCTextView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_blink.timerId()) {
        QTextEdit::timerEvent(event);
        return;
    }
    m_caretIsOn = !m_caretIsOn;
    viewport()->update(caretRect());
}

void TQLRCTextView::paintEvent(QPaintEvent *event)
{
    paintWithoutCaret(event);
    m_drawnCaret = m_caretIsOn && canShowCaret() ? caretRect() : QRect();
    if (m_drawnCaret.isNull() && m_dropCaret.isNull()) {
        return;
    }
    QPainter painter(viewport());
    const QColor colour = kit::Theme(this).focus;
    painter.fillRect(m_drawnCaret, colour);
    painter.fillRect(m_dropCaret, colour);
}

// The text control's own caret inverts what is beneath it, and has no colour.
void TQLRCTextView::paintWithoutCaret(QPaintEvent *event)
{
    QAbstractTextDocumentLayout *const layout = document()->documentLayout();
    const QVariant width = layout->property(kCaretProperty);
    layout->setProperty(kCaretProperty, 0);
    QTextEdit::paintEvent(event);
    layout->setProperty(kCaretProperty, width);
}

void TQLRCTextView::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    beginBlinking();
}

void TQLRCTextView::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    beginBlinking();
}

void TQLRCTextView::scrollContentsBy(int dx, int dy)
{
    QTextEdit::scrollContentsBy(dx, dy);
    // What is drawn goes along, and the caret stands where it can be seen.
    viewport()->update(m_drawnCaret.translated(dx, dy));
    viewport()->update(caretRect());
}

void TQLRCTextView::showDropCaret(const QRect &place)
{
    viewport()->update(m_dropCaret);
    m_dropCaret = place;
    viewport()->update(m_dropCaret);
}

void TQLRCTextView::dragMoveEvent(QDragMoveEvent *event)
{
    QTextEdit::dragMoveEvent(event);
    QRect place;
    if (event->isAccepted()) {
        place = cursorRect(cursorForPosition(event->position().toPoint()));
        place.setWidth(cursorWidth());
    }
    showDropCaret(place);
}

void TQLRCTextView::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTextEdit::dragLeaveEvent(event);
    showDropCaret({});
}

void TQLRCTextView::dropEvent(QDropEvent *event)
{
    showDropCaret({});
    QTextEdit::dropEvent(event);
}
