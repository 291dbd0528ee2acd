// SPDX-License-Identifier: MIT
//
// What is dropped on a table.
#include "kit/MyTableView.h"
#include "kit/TableDrops.h"

#include <QtGui/QDropEvent>
#include <QtGui/QPainter>

void MyTableView::registerForDraggedTypes(const QStringList &mimeTypes)
{
    m_drops->setTypes(mimeTypes);
    setAcceptDrops(!mimeTypes.isEmpty());
}

QStringList MyTableView::registeredDraggedTypes() const
{
    return m_drops->types();
}

void MyTableView::dragEnterEvent(QDragEnterEvent *event)
{
    m_drops->drag(event);
}

void MyTableView::dragMoveEvent(QDragMoveEvent *event)
{
    m_drops->drag(event);
}

void MyTableView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_drops->leave();
    event->accept();
}

void MyTableView::dropEvent(QDropEvent *event)
{
    m_drops->drop(event);
}

void MyTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    m_drops->paint(&painter);
}
