// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtWidgets/QWidget>

namespace support {

/// What a file manager drags. Strings without a scheme are local paths.
class DraggedFiles : public QMimeData
{
public:
    explicit DraggedFiles(const QStringList &paths)
    {
        QList<QUrl> list;
        for (const QString &path : paths)
            list << (path.contains(QLatin1String("://")) ? QUrl(path) : QUrl::fromLocalFile(path));
        setUrls(list);
    }
};

/// A drag that comes into `target` at `place`; true when it is accepted as a copy.
inline bool dragAt(QWidget *target, const QPoint &place, const QMimeData &data)
{
    QDragEnterEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    event.setAccepted(false);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

inline bool dragInto(QWidget *target, const QMimeData &data)
{
    return dragAt(target, target->rect().center(), data);
}

inline void dragOut(QWidget *target)
{
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(target, &event);
}

/// The drop at the end of an accepted drag; true when it is accepted as a copy.
inline bool dropAt(QWidget *target, const QPoint &place, const QMimeData &data)
{
    QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    event.setAccepted(false);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

inline bool dropOnto(QWidget *target, const QMimeData &data)
{
    return dropAt(target, target->rect().center(), data);
}

} // namespace support
