// SPDX-License-Identifier: MIT
#include "editor/AccentCaret.h"

#include "kit/Theme.h"
#include "views/TQLRCTextView.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QStyleHints>

#include <algorithm>
#include <cmath>

namespace editor {

AccentCaret::AccentCaret(TQLRCTextView *view) : QObject(view), m_view(view)
{
    view->setCursorWidth(0);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    connect(view, &QTextEdit::cursorPositionChanged, this, &AccentCaret::restart);
    connect(view, &QTextEdit::textChanged, this, &AccentCaret::restart);
}

QRect AccentCaret::rect() const
{
    QRect caret = m_view->cursorRect();
    caret.setWidth(std::max(0, static_cast<int>(std::lround(m_view->caretWidth()))));
    return caret;
}

void AccentCaret::paint(QPainter &painter) const
{
    if (m_isOn) {
        painter.fillRect(rect(), kit::Theme(m_view).accent);
    }
}

void AccentCaret::restart()
{
    if (!m_view->hasFocus()) {
        return;
    }
    m_view->viewport()->update(m_drawn);
    m_isOn = true;
    m_drawn = rect();
    m_view->viewport()->update(m_drawn);
    const int flash = QGuiApplication::styleHints()->cursorFlashTime();
    if (flash > 0) {
        m_blink.start(flash / 2, this);
    }
}

void AccentCaret::hide()
{
    m_blink.stop();
    m_isOn = false;
    m_view->viewport()->update(m_drawn);
}

bool AccentCaret::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        restart();
    } else if (event->type() == QEvent::FocusOut) {
        hide();
    } else if (event->type() == QEvent::DragEnter) {
        // The toolkit's own shows where a dropped text would come to stand.
        m_view->setCursorWidth(rect().width());
    } else if (event->type() == QEvent::DragLeave || event->type() == QEvent::Drop) {
        m_view->setCursorWidth(0);
    }
    return QObject::eventFilter(watched, event);
}

void AccentCaret::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_blink.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_isOn = !m_isOn;
    m_view->viewport()->update(m_drawn);
    m_drawn = rect();
    m_view->viewport()->update(m_drawn);
}

} // namespace editor
