// SPDX-License-Identifier: MIT
#include "host/Song.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

namespace desk {

namespace {

const QStringList &readableSuffixes()
{
    static const QStringList all = {QStringLiteral("mp3"), QStringLiteral("m4a"), QStringLiteral("flac"),
        QStringLiteral("ogg"), QStringLiteral("oga"), QStringLiteral("opus"), QStringLiteral("spx"),
        QStringLiteral("wav"), QStringLiteral("aif"), QStringLiteral("aiff"), QStringLiteral("aifc"),
        QStringLiteral("aac"), QStringLiteral("wma"), QStringLiteral("asf"), QStringLiteral("ape"),
        QStringLiteral("wv"), QStringLiteral("mpc"), QStringLiteral("mp2"), QStringLiteral("mp4")};
    return all;
}

QString demonstrationPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QStringLiteral("/the-star.mp3");
}

QString notWritable(const QString &path, const QString &reason)
{
    return QCoreApplication::translate(
        "desk", "The demonstration song could not be put into %1: %2. Open a song of your own instead.")
        .arg(QDir::toNativeSeparators(path), reason);
}

} // namespace

bool looksLikeSong(const QString &path)
{
    return readableSuffixes().contains(QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

QString firstLocalFile(const QMimeData *data)
{
    const QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

QString songFileFilter()
{
    QStringList patterns;
    for (const QString &suffix : readableSuffixes()) {
        patterns.append(QStringLiteral("*.") + suffix);
    }
    return QCoreApplication::translate("desk", "Songs (%1);;All files (*)")
        .arg(patterns.join(QLatin1Char(' ')));
}

bool isDemonstrationSong(const QString &path)
{
    return path == demonstrationPath();
}

QString demonstrationSong(QString *message)
{
    const QString path = demonstrationPath();
    if (QFile::exists(path)) {
        return path;
    }
    QFile source(QStringLiteral(":/lyricdesk/demo/the-star.mp3"));
    QSaveFile target(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !source.open(QIODevice::ReadOnly)
        || !target.open(QIODevice::WriteOnly) || target.write(source.readAll()) != source.size()
        || !target.commit()) {
        *message = notWritable(path, target.errorString());
        return {};
    }
    return path;
}

} // namespace desk
