// SPDX-License-Identifier: MIT
#include "media/player/Alignment.h"
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"
#include "media/player/SoundServer.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <cstring>

using Told = Recorder::Told;

/// The player on a sound server, as people have it.
class tst_PlayerDevice : public QObject
{
    Q_OBJECT

private:
    static constexpr double kSeconds = 4.0;

    static std::vector<float> toSamples(const QByteArray &bytes)
    {
        std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
        return samples;
    }

    QTemporaryDir m_folder;
    SoundServer m_server;
    std::vector<float> m_music;
    QString m_wave;

private Q_SLOTS:
    // For each test anew: the toolkit forgets it at the end of a function.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void initTestCase()
    {
        if (!SoundServer::isInstalled()) {
            QSKIP("pulseaudio, pactl and parec are not installed");
        }
        m_music = audiofiles::noise(kSeconds);
        m_wave = m_folder.filePath(QStringLiteral("music.wav"));
        QVERIFY(audiofiles::writeWave(m_wave, m_music));
        QVERIFY(m_server.start());
    }

    void theDevicePlaysTheMusicWhole()
    {
        QProcess tape;
        QVERIFY(m_server.record(tape));
        QByteArray heard;
        connect(
            &tape, &QProcess::readyReadStandardOutput, this, [&] { heard += tape.readAllStandardOutput(); });
        QTRY_VERIFY(!heard.isEmpty());

        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create();
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        player->play();
        QTRY_VERIFY(player->position() > 0.5);
        QVERIFY(!m_server.list(QStringLiteral("sink-inputs")).isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(recorder->count(Told::Finished), 1, 20000);
        QVERIFY(std::is_sorted(recorder->positions.begin(), recorder->positions.end()));
        QCOMPARE(player->position(), kSeconds);
        const auto soFar = heard.size();
        QTRY_VERIFY(heard.size() > soFar + audiofiles::kSampleRate);
        tape.kill();
        tape.waitForFinished();

        const std::vector<float> sound = toSamples(heard);
        const auto loud
            = std::find_if(sound.begin(), sound.end(), [](float s) { return std::abs(s) > 0.001F; });
        const auto begin = static_cast<long>(loud - sound.begin());
        const auto count = static_cast<std::size_t>(0.2 * audiofiles::kSampleRate);
        for (const double at : {0.0, 1.0, 2.0, 3.5}) {
            const auto first = static_cast<std::size_t>(at * audiofiles::kSampleRate);
            const auto piece = std::span(m_music).subspan(first, count);
            const Alignment found = align(sound, piece, begin + static_cast<long>(first), 500);
            qInfo("%.1f s: %+d samples, likeness %.3f", at, found.lag, found.likeness);
            QVERIFY(found.likeness > 0.95);
        }
    }

    void seekingAndPausingOnTheDevice()
    {
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create();
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        player->play();
        QTRY_VERIFY(player->position() > 0.2);
        player->seek(2.0);
        QTRY_VERIFY(player->position() > 2.2);
        const auto &told = recorder->positions;
        const auto landing = std::find(told.begin(), told.end(), 2.0);
        QVERIFY(landing != told.end());
        QVERIFY(std::is_sorted(landing, told.end()));
        player->pause();
        const double paused = player->position();
        player->play();
        QTRY_VERIFY(player->position() > paused + 0.2);
        for (int i = 0; i < 50; ++i) {
            player->seek(0.01 * i);
        }
        player->seek(kSeconds - 0.3);
        QTRY_COMPARE_WITH_TIMEOUT(recorder->count(Told::Finished), 1, 20000);
        QCOMPARE(player->position(), kSeconds);
    }

    void theServerGoesAwayAndTheSongGoesOn()
    {
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create();
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        player->seek(kSeconds - 1.5);
        player->play();
        QTRY_VERIFY(player->position() > kSeconds - 1.2);
        m_server.stop();
        QTRY_COMPARE_WITH_TIMEOUT(recorder->count(Told::Finished), 1, 20000);
        QCOMPARE(failed.count(), 0);
        QCOMPARE(
            recorder->changes(), (std::vector{Told::Playing, Told::Started, Told::Paused, Told::Finished}));
        QVERIFY(std::is_sorted(recorder->positions.begin(), recorder->positions.end()));
    }
};

QTEST_GUILESS_MAIN(tst_PlayerDevice)
#include "tst_player_device.moc"
