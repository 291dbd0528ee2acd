// SPDX-License-Identifier: MIT
#include "host/Songs.h"

#include "media/items/TaggedAudioFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

namespace songs {

namespace {

bool code(const QString &path)
{
    const QString source = QStringLiteral(TQLRC_DEMO_SONG);
    if (path.endsWith(QLatin1String(".mp3"))) {
        return QFile::copy(source, path);
    }
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
        {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), source, QStringLiteral("-map"),
            QStringLiteral("0:a"), QStringLiteral("-map_metadata"), QStringLiteral("-1"),
            QStringLiteral("-metadata"), QStringLiteral("title=The Star"), QStringLiteral("-t"),
            QStringLiteral("10"), path});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0) {
        qWarning("%s", ffmpeg.readAllStandardError().constData());
        return false;
    }
    return true;
}

QByteArray lyricAmong(const QJsonObject &tags)
{
    for (auto tag = tags.begin(); tag != tags.end(); ++tag) {
        if (tag.key().startsWith(QLatin1String("lyrics"), Qt::CaseInsensitive)) {
            return tag.value().toString().toUtf8();
        }
    }
    return {};
}

} // namespace

bool make(const QString &path, const QByteArray &lyric)
{
    if (!code(path)) {
        return false;
    }
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    const auto [item, message] = media::TaggedAudioFile::open(path);
    if (!item) {
        qWarning("%s", qPrintable(message));
        return false;
    }
    item->setLyric(lyric);
    item->refreshIsDirty();
    return item->save().ok;
}

QByteArray lyricReadByAnother(const QString &path)
{
    QProcess ffprobe;
    ffprobe.start(QStringLiteral("ffprobe"),
        {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
            QStringLiteral("format_tags:stream_tags"), QStringLiteral("-of"), QStringLiteral("json"), path});
    ffprobe.waitForFinished(60000);
    const QJsonObject found = QJsonDocument::fromJson(ffprobe.readAllStandardOutput()).object();
    const QByteArray lyric = lyricAmong(found[QLatin1String("format")][QLatin1String("tags")].toObject());
    if (!lyric.isEmpty()) {
        return lyric;
    }
    // Ogg keeps its comments in the stream.
    return lyricAmong(found[QLatin1String("streams")][0][QLatin1String("tags")].toObject());
}

} // namespace songs
