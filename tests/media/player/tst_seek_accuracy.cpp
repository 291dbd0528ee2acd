// SPDX-License-Identifier: MIT
#include "media/player/Alignment.h"
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <array>
#include <cmath>

using Told = Recorder::Told;

namespace {

constexpr double kSeconds = 12.0;

struct Row
{
    const char *name;
    const char *suffix;
    const char *options;
    /// In samples.
    int tolerance;
    /// What does not tell its length has the last frame's silence at the end.
    double duration = kSeconds;
};

constexpr std::array kRows{
    Row{"wav", "wav", "-c:a pcm_s16le", 1},
    Row{"flac", "flac", "", 1},
    Row{"mp3 with a header", "mp3", "-b:a 192k", 1},
    Row{"mp3 without a header", "mp3", "-b:a 192k -write_xing 0", 1, 12.02},
    Row{"mp3 of variable rate", "mp3", "-q:a 2", 1},
    Row{"mp3 of variable rate without a header", "mp3", "-q:a 2 -write_xing 0", 1, 12.02},
    Row{"mp3 with ID3v1 alone", "mp3", "-b:a 128k -id3v2_version 0 -write_id3v1 1", 1},
    Row{"mp3 of half rate", "mp3", "-ar 22050 -b:a 96k", 2},
    Row{"mp3 of 48 kHz", "mp3", "-ar 48000 -b:a 192k", 2},
    Row{"mp2", "mp2", "-b:a 192k", 1, 12.01},
    Row{"m4a", "m4a", "-c:a aac -b:a 192k", 1},
    Row{"m4a lossless", "m4a", "-c:a alac", 1},
    Row{"ogg vorbis", "ogg", "-c:a libvorbis -q:a 6", 1},
    Row{"ogg flac", "oga", "-c:a flac", 1},
    Row{"opus", "opus", "-b:a 160k", 2},
    Row{"aiff", "aiff", "", 1},
    Row{"wavpack", "wv", "", 1},
    // The container counts in whole milliseconds, and the coder drops what fills no block.
    Row{"wma", "wma", "-c:a wmav2 -b:a 192k", 45, 11.98},
};

} // namespace

/// What is heard after a seek is the music from that place on, in each format.
class tst_SeekAccuracy : public QObject
{
    Q_OBJECT

private:
    static constexpr double kHeardSeconds = 0.25;

    static std::vector<float> join(const std::vector<sinks::Capture::Block> &blocks)
    {
        std::vector<float> samples;
        for (const auto &block : blocks) {
            samples.insert(samples.end(), block.samples.begin(), block.samples.end());
        }
        samples.resize(static_cast<std::size_t>(kHeardSeconds * audiofiles::kSampleRate));
        return samples;
    }

    void checkSeekTo(double target, int toleranceInSamples)
    {
        sinks::Capture capture(sinks::Capture::Pace::Fast);
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(capture.output());
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_file);
        player->seek(target);
        QTRY_VERIFY(recorder->positions.size() >= 2);
        QCOMPARE(recorder->positions.back(), target);
        m_duration = player->duration();
        capture.clear();
        player->play();
        QTRY_VERIFY(capture.seconds() >= kHeardSeconds);

        const auto blocks = capture.blocks();
        const double place = target + blocks.front().secondsAfterSeek;
        const auto expected = std::lround(place * audiofiles::kSampleRate);
        const Alignment found = align(m_music, join(blocks), expected, 1300);
        qInfo("%6.3f s: %+d samples, likeness %.3f", target, found.lag, found.likeness);
        QVERIFY2(found.likeness > 0.85, qPrintable(QString::number(found.likeness)));
        QVERIFY2(std::abs(found.lag) <= toleranceInSamples, qPrintable(QString::number(found.lag)));
    }

    QTemporaryDir m_folder;
    std::vector<float> m_music;
    QString m_wave;
    QString m_file;
    double m_duration = 0;

private Q_SLOTS:
    void initTestCase()
    {
        m_music = audiofiles::noise(kSeconds);
        m_wave = m_folder.filePath(QStringLiteral("music.wav"));
        QVERIFY(audiofiles::writeWave(m_wave, m_music));
    }

    void theMusicFromThatPlaceIsHeard_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QString>("options");
        QTest::addColumn<int>("tolerance");
        QTest::addColumn<double>("duration");
        for (const Row &row : kRows) {
            QTest::newRow(row.name) << QString::fromUtf8(row.suffix) << QString::fromUtf8(row.options)
                                    << row.tolerance << row.duration;
        }
    }
    void theMusicFromThatPlaceIsHeard()
    {
        QFETCH(QString, suffix);
        QFETCH(QString, options);
        QFETCH(int, tolerance);
        QFETCH(double, duration);
        m_file = m_folder.filePath(QStringLiteral("coded.") + suffix);
        QVERIFY(audiofiles::encode(m_wave, m_file, options.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
        for (const double target : {7.77, 0.02, 11.5}) {
            checkSeekTo(target, tolerance);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
        qInfo("duration %.6f s", m_duration);
        QVERIFY(std::abs(m_duration - duration) < (duration == kSeconds ? 0.0001 : 0.01));
    }

    void anMp4WhoseTagsAloneTellTheSilence()
    {
        m_file = m_folder.filePath(QStringLiteral("tagged.m4a"));
        QVERIFY(audiofiles::encode(m_wave, m_file,
            {QStringLiteral("-use_editlist"), QStringLiteral("0"), QStringLiteral("-metadata"),
                QStringLiteral("title=Noise")}));
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadWrite));
        // 1024 samples before 12 s, and what fills the last block after them.
        const QByteArray tagged = audiofiles::withGaplessField(
            file.readAll(), " 00000000 00000400 000000E0 0000000000081330 00000000 00000000");
        QVERIFY(file.resize(0) && file.seek(0) && file.write(tagged) == tagged.size());
        file.close();
        for (const double target : {0.5, 7.77, 11.5}) {
            checkSeekTo(target, 1);
        }
        QVERIFY(std::abs(m_duration - kSeconds) < 0.0001);
    }

    void theLengthOfAVariableRateIsCounted()
    {
        // Nearly silent at first: a guess from the first frames would be several times too long.
        std::vector<float> music = m_music;
        std::fill(music.begin(), music.begin() + 6 * audiofiles::kSampleRate, 0.0F);
        const QString wave = m_folder.filePath(QStringLiteral("late.wav"));
        QVERIFY(audiofiles::writeWave(wave, music));
        m_file = m_folder.filePath(QStringLiteral("late.mp3"));
        QVERIFY(audiofiles::encode(wave, m_file,
            {QStringLiteral("-q:a"), QStringLiteral("0"), QStringLiteral("-write_xing"),
                QStringLiteral("0")}));
        checkSeekTo(11.5, 1);
        QVERIFY(std::abs(m_duration - 12.02) < 0.01);
        checkSeekTo(11.7, 1);
    }
};

QTEST_GUILESS_MAIN(tst_SeekAccuracy)
#include "tst_seek_accuracy.moc"
