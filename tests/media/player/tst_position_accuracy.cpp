// SPDX-License-Identifier: MIT
#include "media/player/Alignment.h"
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"
#include "media/player/SoundServer.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numeric>
#include <sys/resource.h>

using Told = Recorder::Told;

namespace {

/// A moment on the steady clock, and a place in the music that belongs to it.
struct Moment
{
    double at = 0;
    double place = 0;
};

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// How far what was reported lies ahead of what came out, where both are known.
std::vector<double> differences(const std::vector<Moment> &reported, const std::vector<Moment> &heard)
{
    std::vector<double> all;
    for (const Moment &sound : heard) {
        const auto next = std::lower_bound(reported.begin(), reported.end(), sound.at,
            [](const Moment &report, double at) { return report.at < at; });
        if (next != reported.begin() && next != reported.end()) {
            const Moment &before = *(next - 1);
            all.push_back(before.place + (sound.at - before.at) - sound.place);
        }
    }
    return all;
}

struct Spread
{
    double mean = 0;
    double deviation = 0;
    /// Nine of ten are further from zero.
    double nearest = 0;
};

Spread spreadOf(const std::vector<double> &values)
{
    const auto count = static_cast<double>(values.size());
    Spread spread;
    spread.mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    for (const double value : values) {
        spread.deviation += (value - spread.mean) * (value - spread.mean) / count;
    }
    spread.deviation = std::sqrt(spread.deviation);
    std::vector<double> sizes(values.size());
    std::transform(values.begin(), values.end(), sizes.begin(), [](double value) { return std::abs(value); });
    std::sort(sizes.begin(), sizes.end());
    spread.nearest = sizes.at(sizes.size() / 10);
    return spread;
}

} // namespace

/// The position that is reported, against the sound that comes out at that moment.
///
/// On a busy machine a sound comes out late, and so does its time: the spread is printed, and
/// only the moments that hit best are held to a limit.
class tst_PositionAccuracy : public QObject
{
    Q_OBJECT

private:
    static constexpr double kSeconds = 2.5;

    /// Plays the file to its end and answers the reports.
    std::vector<Moment> play(const media::PlayerOutput &output, const QString &path)
    {
        QEventLoop loop;
        std::vector<Moment> reports;
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(output);
        player->load(std::make_shared<PlainItem>(), path);
        player->registObserver(recorder);
        recorder->react = [&](Told what, TQAudioPlayerProtocol *) {
            if (what == Told::Progress) {
                reports.push_back({sinks::steadySeconds(), recorder->positions.back()});
            } else if (what == Told::Finished) {
                loop.quit();
            }
        };
        const double used = processorSeconds();
        player->play();
        loop.exec();
        qInfo("%zu reports, %.1f%% of a processor", reports.size(),
            100 * (processorSeconds() - used) / player->duration());
        // Before the first sound and after the last one the position stands.
        std::erase_if(reports,
            [&](const Moment &report) { return report.place <= 0.1 || report.place >= kSeconds - 0.1; });
        return reports;
    }

    void judge(const std::vector<Moment> &reports, const std::vector<Moment> &heard, double limit)
    {
        const std::vector<double> apart = differences(reports, heard);
        QVERIFY(apart.size() > 20);
        const Spread spread = spreadOf(apart);
        qInfo("%zu moments: ahead by %+.2f ms, deviation %.2f ms; the best tenth within %.2f ms",
            apart.size(), 1000 * spread.mean, 1000 * spread.deviation, 1000 * spread.nearest);
        QVERIFY(spread.nearest < limit);
    }

    QTemporaryDir m_folder;
    std::vector<float> m_music;
    QString m_wave;

private Q_SLOTS:
    void initTestCase()
    {
        m_music = audiofiles::noise(kSeconds);
        m_wave = m_folder.filePath(QStringLiteral("music.wav"));
        QVERIFY(audiofiles::writeWave(m_wave, m_music));
    }

    void whatIsReportedIsWhatComesOut_data()
    {
        QTest::addColumn<QString>("suffix");
        for (const char *suffix : {"mp3", "m4a", "ogg"}) {
            QTest::newRow(suffix) << QString::fromUtf8(suffix);
        }
    }
    void whatIsReportedIsWhatComesOut()
    {
        QFETCH(QString, suffix);
        const QString path = m_folder.filePath(QStringLiteral("coded.") + suffix);
        QVERIFY(audiofiles::encode(m_wave, path));
        sinks::Capture capture(sinks::Capture::Pace::RealTime);
        const auto reports = play(capture.output(), path);

        std::vector<Moment> heard;
        for (const auto &block : capture.blocks()) {
            const auto expected = std::lround(block.secondsAfterSeek * audiofiles::kSampleRate);
            const Alignment found = align(m_music, block.samples, expected, 1300);
            if (block.samples.size() >= 256 && found.likeness > 0.9) {
                const double place = static_cast<double>(expected + found.lag) / audiofiles::kSampleRate;
                heard.push_back({block.renderedAt, place});
            }
        }
        judge(reports, heard, 0.005);
    }

    void onADeviceItIsWhatIsHeard()
    {
        if (!SoundServer::isInstalled()) {
            QSKIP("pulseaudio, pactl and parec are not installed");
        }
        SoundServer server;
        QVERIFY(server.start());
        QProcess tape;
        QVERIFY(server.record(tape));
        QByteArray sound;
        std::vector<Moment> arrivals;
        connect(&tape, &QProcess::readyReadStandardOutput, this, [&] {
            const double now = sinks::steadySeconds();
            sound += tape.readAllStandardOutput();
            const auto samples = static_cast<double>(sound.size()) / sizeof(float);
            arrivals.push_back({now, samples / audiofiles::kSampleRate});
        });
        QTRY_VERIFY(!sound.isEmpty());
        const auto reports = play({}, m_wave);
        tape.kill();
        tape.waitForFinished();

        std::vector<float> samples(static_cast<std::size_t>(sound.size()) / sizeof(float));
        std::memcpy(samples.data(), sound.constData(), samples.size() * sizeof(float));
        const auto loud
            = std::find_if(samples.begin(), samples.end(), [](float s) { return std::abs(s) > 0.0005F; });
        const double begin = static_cast<double>(loud - samples.begin()) / audiofiles::kSampleRate;
        for (Moment &arrival : arrivals) {
            arrival.place -= begin;
        }
        std::erase_if(arrivals, [](const Moment &arrival) { return arrival.place <= 0; });
        // The recording itself arrives in pieces, and late by its own buffer.
        judge(reports, arrivals, 0.05);
    }
};

QTEST_GUILESS_MAIN(tst_PositionAccuracy)
#include "tst_position_accuracy.moc"
