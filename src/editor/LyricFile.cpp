// SPDX-License-Identifier: MIT
#include "editor/LyricFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringDecoder>

namespace editor {

namespace {

constexpr qint64 kLargestLyricFile = 64LL * 1024 * 1024;

bool isUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(bytes);
    Q_UNUSED(decoded)
    return !decoder.hasError();
}

} // namespace

QByteArray readUtf8File(const QString &path)
{
    if (path.isEmpty() || !QFileInfo(path).isFile()) {
        return {};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestLyricFile) {
        return {};
    }
    const QByteArray bytes = file.read(kLargestLyricFile);
    return isUtf8(bytes) ? bytes : QByteArray();
}

bool isLyricFileName(const QString &name)
{
    return name.endsWith(QLatin1String(".lrc"), Qt::CaseInsensitive)
        || name.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive);
}

} // namespace editor
