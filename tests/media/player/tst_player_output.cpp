// SPDX-License-Identifier: MIT
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gst/gst.h>

#include <algorithm>
#include <atomic>

using Told = Recorder::Told;

namespace {

/// An output that breaks after so many buffers, each time that it is made.
struct BrokenOutput
{
    int buffersBefore = 0;
    std::atomic<int> made = 0;

    static void onBuffer(GstElement *sink, GstBuffer * /*buffer*/, GstPad * /*pad*/, gpointer data)
    {
        auto *left = static_cast<std::atomic<int> *>(g_object_get_data(G_OBJECT(sink), "left"));
        static_cast<void>(data);
        if ((*left)-- == 0) {
            GST_ELEMENT_ERROR(sink, RESOURCE, WRITE, ("The device has been disconnected."), (nullptr));
        }
    }

    media::PlayerOutput output()
    {
        return {[this] {
            ++made;
            GstElement *sink = gst_element_factory_make("fakesink", nullptr);
            g_object_set(sink, "sync", TRUE, "signal-handoffs", TRUE, nullptr);
            g_object_set_data_full(G_OBJECT(sink), "left", new std::atomic<int>(buffersBefore),
                [](gpointer left) { delete static_cast<std::atomic<int> *>(left); });
            g_signal_connect(sink, "handoff", G_CALLBACK(onBuffer), nullptr);
            return sink;
        }};
    }
};

} // namespace

/// The output goes away, or is not there at all.
class tst_PlayerOutput : public QObject
{
    Q_OBJECT

private:
    static constexpr double kSeconds = 1.5;
    QTemporaryDir m_folder;
    QString m_wave;

private Q_SLOTS:
    // For each test anew: the toolkit forgets it at the end of a function.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void initTestCase()
    {
        m_wave = m_folder.filePath(QStringLiteral("music.wav"));
        QVERIFY(audiofiles::writeWave(m_wave, audiofiles::noise(kSeconds)));
    }

    void aDeviceThatGoesAwayDoesNotEndTheSong_data()
    {
        QTest::addColumn<int>("buffersBefore");
        QTest::newRow("while playing") << 10;
        QTest::newRow("at the first sound") << 0;
    }
    void aDeviceThatGoesAwayDoesNotEndTheSong()
    {
        QFETCH(int, buffersBefore);
        BrokenOutput broken{buffersBefore};
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(broken.output());
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        player->play();
        QTRY_COMPARE(recorder->count(Told::Finished), 1);
        QVERIFY(broken.made >= 2);
        QCOMPARE(failed.count(), 0);
        QCOMPARE(player->position(), kSeconds);
        QCOMPARE(
            recorder->changes(), (std::vector{Told::Playing, Told::Started, Told::Paused, Told::Finished}));
        QVERIFY(std::is_sorted(recorder->positions.begin(), recorder->positions.end()));
    }

    void aDeviceThatGoesAwayDoesNotStartTheSong()
    {
        BrokenOutput broken{10};
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(broken.output());
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        player->play();
        QTRY_VERIFY(player->position() > 0.05);
        player->pause();
        const double paused = player->position();
        player->seek(paused);
        QTRY_COMPARE(recorder->positions.back(), paused);
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->position(), paused);
    }

    void anOutputThatCannotBeMadeIsReplaced()
    {
        int asked = 0;
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create({[&]() -> GstElement * {
            ++asked;
            return nullptr;
        }});
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        QCOMPARE(asked, 1);
        QTRY_COMPARE(player->duration(), kSeconds);
    }

    void withoutAnyDeviceItPlaysInRealTime()
    {
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create();
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        const double began = sinks::steadySeconds();
        player->play();
        QTRY_COMPARE(recorder->count(Told::Finished), 1);
        const double took = sinks::steadySeconds() - began;
        QCOMPARE(failed.count(), 0);
        QCOMPARE(player->position(), kSeconds);
        // A clock may be late when the machine is busy, and never early.
        QVERIFY2(took > kSeconds - 0.02, qPrintable(QString::number(took)));
        qInfo("%.3f s of music in %.3f s", kSeconds, took);
    }

    void reportsComeOftenEnough()
    {
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(sinks::realTime());
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), m_wave);
        QTRY_COMPARE(player->duration(), kSeconds);
        recorder->forget();
        // What this machine gives to a timer of the rate that is promised, busy as it may be.
        QTimer promised;
        promised.setTimerType(Qt::PreciseTimer);
        long due = 0;
        connect(&promised, &QTimer::timeout, this, [&] { ++due; });
        // A loop of its own: a test that waits looks at events only now and then.
        QEventLoop loop;
        recorder->react = [&](Told what, TQAudioPlayerProtocol *) {
            if (what == Told::Finished) {
                loop.quit();
            }
        };
        promised.start(10);
        player->play();
        loop.exec();
        qInfo("%zu reports in %.1f s of music, %ld due", recorder->positions.size(), kSeconds, due);
        QVERIFY(due > 10);
        QVERIFY(static_cast<long>(recorder->positions.size()) >= due);
    }
};

int main(int argc, char **argv)
{
    // A server that is not there, so that none of this machine's is found or started.
    qputenv("PULSE_SERVER", "unix:/nonexistent/pulse");
    qputenv("JACK_NO_START_SERVER", "1");
    const QCoreApplication application(argc, argv);
    tst_PlayerOutput test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_player_output.moc"
