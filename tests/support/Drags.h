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

/// A drag that comes into the middle of `target`; true when it is accepted as a copy.
inline bool dragInto(QWidget *target, const QMimeData &data)
{
    QDragEnterEvent event(
        target->rect().center(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    event.setAccepted(false);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

inline void dragOut(QWidget *target)
{
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(target, &event);
}

/// The drop at the end of an accepted drag; true when it is accepted as a copy.
inline bool dropOnto(QWidget *target, const QMimeData &data)
{
    QDropEvent event(target->rect().center(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    event.setAccepted(false);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

} // namespace support
