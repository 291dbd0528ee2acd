// SPDX-License-Identifier: MIT
#include "preview/PlayKey.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

namespace preview {

namespace {

bool isPlainSpace(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Space && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

PlayKey::PlayKey(QWidget *view) : QObject(view), m_view(view)
{
    view->installEventFilter(this);
    watchWindow();
}

// What nobody uses reaches the window; and what is pressed while nobody has the keyboard goes there at once.
void PlayKey::watchWindow()
{
    QWidget *const window = m_view->isVisible() ? m_view->window() : nullptr;
    if (window == m_window)
        return;
    if (m_window != nullptr && m_window != m_view)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window != nullptr)
        m_window->installEventFilter(this);
}

bool PlayKey::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (watched == m_view && (type == QEvent::Show || type == QEvent::Hide || type == QEvent::ParentChange))
        watchWindow();
    if (watched == m_window && type == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (isPlainSpace(key)) {
            if (!key.isAutoRepeat())
                Q_EMIT pressed();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace preview
