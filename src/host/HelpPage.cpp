// SPDX-License-Identifier: MIT
#include "host/HelpPage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace desk {

QString helpPageFor(const QString &english, const QStringList &languages)
{
    const QFileInfo page(english);
    for (const QString &language : languages) {
        const QString code = language.section(QLatin1Char('-'), 0, 0);
        if (code == QLatin1String("en")) {
            break;
        }
        const QString path
            = QStringLiteral("%1/%2_%3.%4").arg(page.path(), page.completeBaseName(), code, page.suffix());
        if (QFileInfo(path).isFile()) {
            return path;
        }
    }
    return page.isFile() ? english : QString();
}

QUrl helpPage()
{
    // From the program, so that an installation can be moved.
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString path = helpPageFor(
        QDir::cleanPath(folder.filePath(QStringLiteral(TQLRC_HELP_PAGE))), QLocale().uiLanguages());
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

} // namespace desk
