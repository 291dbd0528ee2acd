// SPDX-License-Identifier: MIT
#include "kit/TableDrops.h"

#include "kit/DroppedFiles.h"
#include "kit/MyTableView.h"
#include "kit/Theme.h"

#include <QtCore/QMimeData>
#include <QtCore/QTimerEvent>
#include <QtGui/QDropEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace kit {

namespace {

// Dragging near an edge scrolls: so near, so often, and so far at a time.
constexpr int kScrollMargin = kRowHeight;
constexpr int kScrollMillis = 50;
constexpr int kScrollStep = kRowHeight / 2;

constexpr double kMarkWidth = 2.0;
constexpr double kKnobRadius = 3.0;

QString filesType()
{
    return QStringLiteral("text/uri-list");
}

QString textType()
{
    return QStringLiteral("text/plain");
}

} // namespace

TableDrops::TableDrops(MyTableView *table) : QObject(table), m_table(table)
{ }

TableDrops::Kind TableDrops::kindOf(const QDropEvent &event) const
{
    const QMimeData *data = event.mimeData();
    if (!m_table->reloadDelegate() || !(event.possibleActions() & Qt::CopyAction) || !data) {
        return Kind::None;
    }
    if (m_types.contains(filesType()) && !droppedFiles(data).isEmpty()) {
        return Kind::Files;
    }
    // Not hasText(), which is true for any address.
    if (m_types.contains(textType()) && data->hasFormat(textType()) && !data->text().isEmpty()) {
        return Kind::Text;
    }
    const bool isOther = std::any_of(m_types.begin(), m_types.end(), [data](const QString &type) {
        return type != filesType() && type != textType() && data->hasFormat(type);
    });
    return isOther ? Kind::Other : Kind::None;
}

int TableDrops::topOfRow(int row) const
{
    const int rows = m_table->numberOfRows();
    if (row < rows || rows == 0) {
        return m_table->rowViewportPosition(row);
    }
    return m_table->rowViewportPosition(rows - 1) + m_table->rowHeight(rows - 1);
}

int TableDrops::rowAt(int y) const
{
    const int row = m_table->rowAt(y);
    if (row < 0) {
        return m_table->numberOfRows();
    }
    return y < topOfRow(row) + m_table->rowHeight(row) / 2 ? row : row + 1;
}

int TableDrops::scrollDirection() const
{
    if (m_kind != Kind::Text) {
        return 0;
    }
    if (m_y < kScrollMargin) {
        return -1;
    }
    return m_y >= m_table->viewport()->height() - kScrollMargin ? 1 : 0;
}

void TableDrops::show(Kind kind, int y)
{
    const int row = kind == Kind::Text ? rowAt(y) : -1;
    if (kind != m_kind || row != m_row) {
        m_table->viewport()->update();
    }
    m_kind = kind;
    m_row = row;
    m_y = y;
    if (scrollDirection() == 0) {
        m_scroll.stop();
    } else if (!m_scroll.isActive()) {
        m_scroll.start(kScrollMillis, this);
    }
}

void TableDrops::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_scroll.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    QScrollBar *bar = m_table->verticalScrollBar();
    bar->setValue(bar->value() + scrollDirection() * kScrollStep);
    show(m_kind, m_y);
}

void TableDrops::drag(QDragMoveEvent *event)
{
    const Kind kind = kindOf(*event);
    show(kind, event->position().toPoint().y());
    if (kind == Kind::None) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void TableDrops::leave()
{
    show(Kind::None, 0);
}

void TableDrops::drop(QDropEvent *event)
{
    const Kind kind = kindOf(*event);
    const int row = rowAt(event->position().toPoint().y());
    leave();
    if (kind == Kind::None) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The other program waits until this returns: whatever the drop leads to comes afterwards.
    if (kind == Kind::Files) {
        const QStringList paths = droppedFiles(event->mimeData());
        QMetaObject::invokeMethod(
            this, [this, paths] { tellFiles(paths); }, Qt::QueuedConnection);
    } else if (kind == Kind::Text) {
        const QString text = event->mimeData()->text();
        QMetaObject::invokeMethod(
            this, [this, text, row] { tellText(text, row); }, Qt::QueuedConnection);
    }
}

void TableDrops::tellFiles(const QStringList &paths)
{
    MyTableView *const table = m_table;
    const QPointer<MyTableView> alive(table);
    // What is being typed in a cell must not be lost by what the drop leads to.
    table->commitEditing();
    if (const auto delegate = alive ? table->reloadDelegate() : nullptr) {
        delegate->tableView_didDropFiles(table, paths);
    }
}

void TableDrops::tellText(const QString &text, int row)
{
    MyTableView *const table = m_table;
    const QPointer<MyTableView> alive(table);
    table->commitEditing();
    if (const auto delegate = alive ? table->reloadDelegate() : nullptr) {
        delegate->tableView_didDropText_beforeRow(table, text, std::min(row, table->numberOfRows()));
    }
}

void TableDrops::paint(QPainter *painter) const
{
    if (m_kind != Kind::Files && m_kind != Kind::Text) {
        return;
    }
    const QColor mark = Theme(m_table).focus;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(mark, kMarkWidth));
    const QRectF place = QRectF(m_table->viewport()->rect());
    if (m_kind == Kind::Files) {
        const double inset = kMarkWidth / 2 + 1;
        painter->drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
        return;
    }
    // Between the rows, but never half outside.
    const double y = std::clamp<double>(topOfRow(m_row), kKnobRadius, place.bottom() - kKnobRadius);
    const double left = kSpacingTiny + kKnobRadius;
    painter->drawLine(QPointF(left, y), QPointF(place.right() - kSpacingTiny, y));
    painter->setBrush(mark);
    painter->drawEllipse(QPointF(left, y), kKnobRadius, kKnobRadius);
}

} // namespace kit
