// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QList>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>

namespace support {

struct SourceFile
{
    QString baseName;
    QString text;
};

/// The C++ files below `folder`.
inline QList<SourceFile> sourceFilesBelow(const QString &folder)
{
    QList<SourceFile> sources;
    QDirIterator files(
        folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly)) {
            sources.append({QFileInfo(file).baseName(), QString::fromUtf8(file.readAll())});
        }
    }
    return sources;
}

/// What the compiler makes of `literals` that stand side by side.
inline QString joinedLiterals(const QString &literals)
{
    static const QRegularExpression part(QLatin1String("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QString text;
    for (auto parts = part.globalMatch(literals); parts.hasNext();) {
        text += parts.next().captured(1);
    }
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

} // namespace support
