// SPDX-License-Identifier: MIT
#include "kit/AutoResize.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace kit {

void AutoResize::install(QWidget *widget)
{
    (new AutoResize(widget))->watchParent();
}

AutoResize::AutoResize(QWidget *widget) : QObject(widget), m_widget(widget)
{
    widget->installEventFilter(this);
}

bool AutoResize::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_widget && event->type() == QEvent::ParentChange)
        watchParent();
    else if (watched == m_parent && event->type() == QEvent::Resize)
        followParent();
    return QObject::eventFilter(watched, event);
}

void AutoResize::watchParent()
{
    if (m_parent != nullptr)
        m_parent->removeEventFilter(this);
    m_parent = m_widget->parentWidget();
    if (m_parent == nullptr)
        return;
    m_parentSize = m_parent->size();
    m_parent->installEventFilter(this);
}

void AutoResize::followParent()
{
    // Not the event's old size: a parent that was resized while hidden does not say it.
    m_widget->resize(m_widget->size() + m_parent->size() - m_parentSize);
    m_parentSize = m_parent->size();
}

} // namespace kit
