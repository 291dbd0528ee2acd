// SPDX-License-Identifier: MIT
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <limits>

using Told = Recorder::Told;

/// Playing, pausing, seeking and ending, as an observer sees them.
class tst_Player : public QObject
{
    Q_OBJECT

private:
    static constexpr double kSeconds = 3.0;

    std::shared_ptr<media::Player> makePlayer(media::PlayerOutput output)
    {
        auto player = media::Player::create(std::move(output));
        player->registObserver(m_recorder);
        return player;
    }
    void loadAndSettle(media::Player &player)
    {
        player.load(m_item, m_long);
        QTRY_COMPARE(player.duration(), kSeconds);
        QTRY_COMPARE(m_recorder->count(Told::Progress), 1);
        m_recorder->forget();
    }

    QTemporaryDir m_folder;
    QString m_long;
    QString m_short;
    std::shared_ptr<Recorder> m_recorder;
    std::shared_ptr<PlainItem> m_item;

private Q_SLOTS:
    void initTestCase()
    {
        m_long = m_folder.filePath(QStringLiteral("long.wav"));
        m_short = m_folder.filePath(QStringLiteral("short.wav"));
        QVERIFY(audiofiles::writeWave(m_long, audiofiles::noise(kSeconds)));
        QVERIFY(audiofiles::writeWave(m_short, audiofiles::noise(0.2)));
    }

    void init()
    {
        // For each test anew: the toolkit forgets it at the end of a function.
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        m_recorder = std::make_shared<Recorder>();
        m_item = std::make_shared<PlainItem>();
    }

    void withoutAnItemEveryQuestionHasAnAnswer()
    {
        const auto player = makePlayer(sinks::realTime());
        player->play();
        player->lightPlay();
        player->seek(1);
        player->pause();
        QVERIFY(!player->isPlaying());
        QVERIFY(!player->playingMusic());
        QCOMPARE(player->duration(), 0.0);
        QCOMPARE(player->position(), 0.0);
        QVERIFY(m_recorder->events.empty());
    }

    void anItemIsCurrentFromTheCallOn()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_long);
        QCOMPARE(player->playingMusic(), m_item);
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->duration(), 0.0);
        QTRY_COMPARE(player->duration(), kSeconds);
        QCOMPARE(m_recorder->positions, std::vector<double>{0.0});
    }

    void loadingTheCurrentItemAgainChangesNothing()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->seek(1);
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{1.0});
        player->load(m_item, m_short);
        QCOMPARE(player->duration(), kSeconds);
        QCOMPARE(player->position(), 1.0);
    }

    void aSecondPlayWhileStartingDoesNotPause()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_long);
        player->play();
        QVERIFY(player->isPlaying());
        player->play();
        player->lightPlay();
        QVERIFY(player->isPlaying());
        QTRY_VERIFY(player->position() > 0.1);
        QVERIFY(player->isPlaying());
        QCOMPARE(m_recorder->changes(), (std::vector{Told::Playing, Told::Started}));
        QCOMPARE(m_recorder->started, m_item);
    }

    void pausingWhileStartingStaysPaused()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_long);
        player->play();
        player->pause();
        QVERIFY(!player->isPlaying());
        QTRY_COMPARE(player->duration(), kSeconds);
        QCOMPARE(player->position(), 0.0);
        QCOMPARE(m_recorder->changes(), (std::vector{Told::Playing, Told::Started, Told::Paused}));
    }

    void pausingKeepsThePosition()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->play();
        QTRY_VERIFY(player->position() > 0.2);
        player->pause();
        const double paused = player->position();
        QVERIFY(paused >= 0.2);
        QCOMPARE(m_recorder->positions.back(), paused);
        player->play();
        QVERIFY(player->position() >= paused);
        QTRY_VERIFY(player->position() > paused + 0.1);
    }

    void theEndIsTold()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_short);
        player->play();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        QCOMPARE(
            m_recorder->changes(), (std::vector{Told::Playing, Told::Started, Told::Paused, Told::Finished}));
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->playingMusic(), m_item);
        QCOMPARE(player->position(), 0.2);
        QCOMPARE(m_recorder->positions.back(), 0.2);
    }

    void playingAfterTheEndBeginsAgain()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_short);
        player->play();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        m_recorder->forget();
        player->play();
        QVERIFY(player->position() < 0.1);
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        QVERIFY(m_recorder->positions.front() < 0.1);
        QCOMPARE(m_recorder->count(Told::Started), 1);
    }

    void seekingAfterTheEndPlaysFromThere()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_short);
        player->play();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        m_recorder->forget();
        player->seek(0.1);
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{0.1});
        player->lightPlay();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        QVERIFY(*std::min_element(m_recorder->positions.begin(), m_recorder->positions.end()) >= 0.1);
    }

    void seekingOutsideIsTheNearestEnd_data()
    {
        QTest::addColumn<double>("target");
        QTest::addColumn<double>("landing");
        QTest::newRow("before the beginning") << -5.0 << 0.0;
        QTest::newRow("behind the end") << 99.0 << kSeconds;
        QTest::newRow("infinitely far") << std::numeric_limits<double>::infinity() << kSeconds;
        QTest::newRow("infinitely early") << -std::numeric_limits<double>::infinity() << 0.0;
        QTest::newRow("the end") << kSeconds << kSeconds;
        QTest::newRow("inside") << 1.25 << 1.25;
    }
    void seekingOutsideIsTheNearestEnd()
    {
        QFETCH(double, target);
        QFETCH(double, landing);
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->seek(target);
        QCOMPARE(player->position(), landing);
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{landing});
    }

    void seekingToNoNumberDoesNothing()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->seek(1);
        player->seek(std::numeric_limits<double>::quiet_NaN());
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{1.0});
    }

    void aSeekWhileOpeningIsKept()
    {
        const auto player = makePlayer(sinks::realTime());
        player->load(m_item, m_long);
        player->seek(1.5);
        QCOMPARE(player->position(), 1.5);
        player->lightPlay();
        QTRY_VERIFY(player->position() > 1.6);
        QVERIFY(*std::min_element(m_recorder->positions.begin(), m_recorder->positions.end()) >= 1.5);
    }

    void manySeeksEndAtTheLast_data()
    {
        QTest::addColumn<bool>("playing");
        QTest::newRow("paused") << false;
        QTest::newRow("playing") << true;
    }
    void manySeeksEndAtTheLast()
    {
        QFETCH(bool, playing);
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        if (playing) {
            player->play();
        }
        for (int i = 0; i < 200; ++i) {
            player->seek(0.01 * i);
        }
        player->seek(2.0);
        QCOMPARE(player->position(), 2.0);
        QCOMPARE(player->isPlaying(), playing);
        if (playing) {
            QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
            QCOMPARE(player->position(), kSeconds);
        } else {
            QTRY_COMPARE(m_recorder->positions, std::vector<double>{2.0});
        }
    }

    void positionsNeverGoBackWhilePlaying()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->seek(2.0);
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{2.0});
        player->play();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        QVERIFY(std::is_sorted(m_recorder->positions.begin(), m_recorder->positions.end()));
        QCOMPARE(m_recorder->positions.back(), kSeconds);
    }

    void whoRegistersAfterLoadingHearsThePosition()
    {
        const auto player = media::Player::create(sinks::realTime());
        player->load(m_item, m_long);
        player->registObserver(m_recorder);
        QTRY_COMPARE(m_recorder->positions, std::vector<double>{0.0});
    }

    void everyLoadComesToASound()
    {
        const auto player = makePlayer(sinks::realTime());
        QSignalSpy known(player.get(), &media::Player::durationChanged);
        for (int i = 0; i < 150; ++i) {
            player->load(std::make_shared<PlainItem>(), i % 2 == 0 ? m_long : m_short);
            QVERIFY(known.wait(10000));
        }
    }

    void loadsInARowEndAtTheLast()
    {
        const auto player = makePlayer(sinks::realTime());
        for (int i = 0; i < 50; ++i) {
            player->load(std::make_shared<PlainItem>(), m_long);
            player->play();
            player->seek(1);
        }
        player->load(m_item, m_short);
        player->play();
        QTRY_COMPARE(m_recorder->count(Told::Finished), 1);
        QCOMPARE(player->playingMusic(), m_item);
        QCOMPARE(player->position(), 0.2);
    }

    void anEndThatASeekOvertookIsNoEnd()
    {
        const auto player = makePlayer(sinks::realTime());
        int turns = 0;
        m_recorder->react = [&](Told what, TQAudioPlayerProtocol *sender) {
            const double here = m_recorder->positions.empty() ? 0 : m_recorder->positions.back();
            if (what == Told::Progress && here > 0.185 && turns < 20) {
                ++turns;
                sender->seek(0.15);
            }
        };
        player->load(m_item, m_short);
        player->play();
        QTRY_VERIFY(!player->isPlaying());
        QCOMPARE(turns, 20);
        QCOMPARE(m_recorder->count(Told::Finished), 1);
        QCOMPARE(m_recorder->events.back(), Told::Finished);
    }

    void anotherItemStopsTheFirst()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->play();
        const auto other = std::make_shared<PlainItem>();
        player->load(other, m_short);
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->playingMusic(), other);
        QCOMPARE(player->position(), 0.0);
        QCOMPARE(m_recorder->changes(), (std::vector{Told::Playing, Told::Started, Told::Paused}));
        QTRY_COMPARE(player->duration(), 0.2);
    }

    void unloadingStops()
    {
        const auto player = makePlayer(sinks::realTime());
        loadAndSettle(*player);
        player->play();
        player->load(nullptr, {});
        QVERIFY(!player->isPlaying());
        QVERIFY(!player->playingMusic());
        QCOMPARE(player->duration(), 0.0);
        QCOMPARE(m_recorder->changes().back(), Told::Paused);
    }
};

QTEST_GUILESS_MAIN(tst_Player)
#include "tst_player.moc"
