// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>
#include <QtCore/QStringList>

class MyTableView;
class QDragMoveEvent;
class QDropEvent;
class QMimeData;
class QPainter;

namespace kit {

/// What is dragged over a table and dropped on it: files, or text between two rows.
///
/// Positions are the viewport's. Nothing is accepted without a delegate to tell; the delegate is
/// told once the drag is over.
class TableDrops final : public QObject
{
    Q_OBJECT

public:
    explicit TableDrops(MyTableView *table);

    void setTypes(const QStringList &mimeTypes) { m_types = mimeTypes; }
    [[nodiscard]] const QStringList &types() const { return m_types; }

    /// A drag that came in or moved: accepts it as a copy or ignores it.
    void drag(QDragMoveEvent *event);
    void leave();
    void drop(QDropEvent *event);

    /// Shows where a drop would go; paints nothing while there is no drag.
    void paint(QPainter *painter) const;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    enum class Kind { None, Files, Text, Other };

    [[nodiscard]] Kind kindOf(const QDropEvent &event) const;
    [[nodiscard]] int rowAt(int y) const;
    [[nodiscard]] int topOfRow(int row) const;
    [[nodiscard]] int scrollDirection() const;
    void show(Kind kind, int y);
    void tellFiles(const QStringList &paths);
    void tellText(const QString &text, int row);

    MyTableView *m_table;
    QStringList m_types;
    Kind m_kind = Kind::None;
    int m_y = 0;
    // The row before which a text would go.
    int m_row = -1;
    QBasicTimer m_scroll;
};

} // namespace kit
