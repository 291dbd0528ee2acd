// SPDX-License-Identifier: MIT
#include "host/HelpPage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace desk {

QUrl helpPage()
{
    // From the program, so that an installation can be moved.
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString path = QDir::cleanPath(folder.filePath(QStringLiteral(TQLRC_HELP_PAGE)));
    return QFileInfo(path).isFile() ? QUrl::fromLocalFile(path) : QUrl();
}

} // namespace desk
