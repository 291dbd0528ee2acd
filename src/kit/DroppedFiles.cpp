// SPDX-License-Identifier: MIT
#include "kit/DroppedFiles.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>

namespace kit {

QStringList droppedFiles(const QMimeData *data)
{
    QStringList paths;
    if (data == nullptr || !data->hasUrls())
        return paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
        if (!path.isEmpty())
            paths.append(path);
    }
    return paths;
}

} // namespace kit
