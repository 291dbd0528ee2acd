// SPDX-License-Identifier: MIT
#include "media/player/AudioFiles.h"

#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QProcess>

#include <cmath>
#include <random>

namespace audiofiles {

std::vector<float> noise(double seconds)
{
    std::mt19937 random(20240229);
    std::uniform_real_distribution<float> white(-1.0F, 1.0F);
    std::vector<float> samples(static_cast<std::size_t>(std::lround(seconds * kSampleRate)));
    float once = 0;
    float twice = 0;
    for (float &sample : samples) {
        once += 0.5F * (white(random) - once);
        twice += 0.5F * (once - twice);
        sample = 0.5F * twice;
    }
    return samples;
}

bool writeWave(const QString &path, const std::vector<float> &samples)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto bytes = static_cast<quint32>(samples.size() * 2);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + bytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << quint32(kSampleRate) << quint32(kSampleRate * 2)
           << quint16(2) << quint16(16);
    stream.writeRawData("data", 4);
    stream << bytes;
    for (const float sample : samples) {
        stream << static_cast<qint16>(std::lround(sample * 32000.0F));
    }
    return stream.status() == QDataStream::Ok;
}

QByteArray withGaplessField(QByteArray file, const QByteArray &text)
{
    const auto number = [](qsizetype value) {
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << static_cast<quint32>(value);
        return bytes;
    };
    const auto box = [&](const char *name, const QByteArray &content) {
        return number(content.size() + 8) + name + content;
    };
    const QByteArray zero(4, 0);
    const QByteArray field = box("----",
        box("mean", zero + "com.apple.iTunes") + box("name", zero + "iTunSMPB")
            + box("data", number(1) + zero + text));
    for (const char *parent : {"moov", "udta", "meta", "ilst"}) {
        const qsizetype at = file.lastIndexOf(parent) - 4;
        quint32 size = 0;
        QDataStream(file.mid(at, 4)) >> size;
        file.replace(at, 4, number(static_cast<qsizetype>(size) + field.size()));
    }
    return file + field;
}

bool encode(
    const QString &source, const QString &target, const QStringList &options, const QStringList &inputs)
{
    const QString program = QStringLiteral("ffmpeg");
    const QStringList first{QStringLiteral("-nostdin"), QStringLiteral("-loglevel"), QStringLiteral("error"),
        QStringLiteral("-y"), QStringLiteral("-i"), source};
    QProcess process;
    process.start(program, first + inputs + options + QStringList{target});
    const bool done = process.waitForFinished(60000) && process.exitCode() == 0;
    if (!done) {
        qWarning("%s: %s", qPrintable(target), process.readAllStandardError().constData());
    }
    return done;
}

} // namespace audiofiles
