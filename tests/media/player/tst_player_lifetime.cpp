// SPDX-License-Identifier: MIT
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"

#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <array>

using Told = Recorder::Told;

namespace {

/// Takes itself off when it goes, as a controller does.
class Leaver final : public TQAudioPlayerObserver, public std::enable_shared_from_this<Leaver>
{
public:
    explicit Leaver(std::shared_ptr<media::Player> player) : m_player(std::move(player)) { }
    ~Leaver() override
    {
        m_player->pause();
        m_player->removeObserver(weak_from_this());
    }
    Leaver(const Leaver &) = delete;
    Leaver &operator=(const Leaver &) = delete;

    void audioPlayer_playStateChanged(TQAudioPlayerProtocol * /*player*/, bool /*playing*/) override
    {
        ++told;
    }

    int told = 0;

private:
    std::shared_ptr<media::Player> m_player;
};

} // namespace

/// Who may go, come or be destroyed, and when: always.
class tst_PlayerLifetime : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<media::Player> playing(const QString &path)
    {
        auto player = media::Player::create(sinks::realTime());
        player->load(m_item, path);
        player->play();
        return player;
    }

    QTemporaryDir m_folder;
    QString m_long;
    QString m_short;
    std::shared_ptr<PlainItem> m_item = std::make_shared<PlainItem>();

private Q_SLOTS:
    // For each test anew: the toolkit forgets it at the end of a function.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void initTestCase()
    {
        m_long = m_folder.filePath(QStringLiteral("long.wav"));
        m_short = m_folder.filePath(QStringLiteral("short.wav"));
        QVERIFY(audiofiles::writeWave(m_long, audiofiles::noise(5)));
        QVERIFY(audiofiles::writeWave(m_short, audiofiles::noise(0.1)));
    }

    void destroyedInAnyState_data()
    {
        QTest::addColumn<int>("steps");
        const std::array names{"empty", "opening", "open", "starting", "playing", "seeking", "seeking twice",
            "pausing", "paused", "failing"};
        for (int i = 0; i < static_cast<int>(names.size()); ++i) {
            QTest::newRow(names.at(static_cast<std::size_t>(i))) << i;
        }
    }
    void destroyedInAnyState()
    {
        QFETCH(int, steps);
        auto player = media::Player::create(sinks::realTime());
        const QPointer<media::Player> watched(player.get());
        const std::vector<std::function<void()>> script{
            [&] { player->load(m_item, m_long); },
            [&] { QTRY_VERIFY(player->duration() > 0); },
            [&] { player->play(); },
            [&] { QTRY_VERIFY(player->position() > 0); },
            [&] { player->seek(2); },
            [&] { player->seek(3); },
            [&] { player->pause(); },
            [&] { QTRY_COMPARE(player->position(), 3.0); },
            [&] { player->load(std::make_shared<PlainItem>(), QStringLiteral("none")); },
        };
        for (int i = 0; i < steps; ++i) {
            script.at(static_cast<std::size_t>(i))();
        }
        player.reset();
        QVERIFY(!watched);
        QCoreApplication::processEvents();
    }

    void destroyedFromEachCallback_data()
    {
        QTest::addColumn<int>("told");
        QTest::newRow("start") << static_cast<int>(Told::Started);
        QTest::newRow("end") << static_cast<int>(Told::Finished);
        QTest::newRow("progress") << static_cast<int>(Told::Progress);
        QTest::newRow("playing") << static_cast<int>(Told::Playing);
        QTest::newRow("paused") << static_cast<int>(Told::Paused);
    }
    void destroyedFromEachCallback()
    {
        QFETCH(int, told);
        const auto recorder = std::make_shared<Recorder>();
        auto player = media::Player::create(sinks::realTime());
        const QPointer<media::Player> watched(player.get());
        player->registObserver(recorder);
        recorder->react = [&](Told what, TQAudioPlayerProtocol *) {
            if (what == static_cast<Told>(told)) {
                player.reset();
            }
        };
        player->load(m_item, m_short);
        // By its address, as a caller does who holds no reference for the length of the call.
        player.get()->play();
        QTRY_VERIFY(!watched);
        QVERIFY(recorder->count(static_cast<Told>(told)) >= 1);
    }

    void destroyedWhenItFails()
    {
        auto player = playing(QStringLiteral("none.mp3"));
        const QPointer<media::Player> watched(player.get());
        connect(player.get(), &media::Player::failed, this, [&] { player.reset(); });
        QTRY_VERIFY(!watched);
    }

    void anObserverIsHeldWeakly()
    {
        auto recorder = std::make_shared<Recorder>();
        const auto player = playing(m_long);
        player->registObserver(recorder);
        const std::weak_ptr<Recorder> watched = recorder;
        recorder.reset();
        QVERIFY(watched.expired());
        QTRY_VERIFY(player->position() > 0);
    }

    void registeringTwiceIsRegisteringOnce()
    {
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(sinks::realTime());
        player->registObserver(recorder);
        player->registObserver(recorder);
        player->registObserver({});
        player->load(m_item, m_long);
        player->play();
        QCOMPARE(recorder->count(Told::Playing), 1);
        player->removeObserver(recorder);
        player->removeObserver(recorder);
        player->removeObserver({});
        player->pause();
        QCOMPARE(recorder->count(Told::Paused), 0);
    }

    void anObserverTakesItselfOffWhenItGoes()
    {
        const auto player = playing(m_long);
        const auto other = std::make_shared<Recorder>();
        auto leaver = std::make_shared<Leaver>(player);
        player->registObserver(leaver);
        player->registObserver(other);
        leaver.reset();
        QVERIFY(!player->isPlaying());
        QCOMPARE(other->count(Told::Paused), 1);
    }

    void observersComeAndGoDuringACallback()
    {
        const auto player = media::Player::create(sinks::realTime());
        const auto first = std::make_shared<Recorder>();
        auto second = std::make_shared<Recorder>();
        const auto third = std::make_shared<Recorder>();
        const auto newcomer = std::make_shared<Recorder>();
        for (const auto &observer : {first, second, third}) {
            player->registObserver(observer);
        }
        first->react = [&](Told, TQAudioPlayerProtocol *sender) {
            sender->removeObserver(first);
            second.reset();
            sender->removeObserver(third);
            sender->registObserver(newcomer);
        };
        player->load(m_item, m_long);
        player->play();
        QCOMPARE(first->changes(), std::vector{Told::Playing});
        QVERIFY(third->events.empty());
        // It came while the playing was told, in time for the start.
        QCOMPARE(newcomer->changes(), std::vector{Told::Started});
    }

    void aCallbackMayDoAnythingToThePlayer()
    {
        const auto player = media::Player::create(sinks::realTime());
        const auto recorder = std::make_shared<Recorder>();
        player->registObserver(recorder);
        int ends = 0;
        recorder->react = [&](Told what, TQAudioPlayerProtocol *sender) {
            if (what == Told::Finished && ++ends < 3) {
                player->load(std::make_shared<PlainItem>(), m_short);
                sender->play();
            } else if (what == Told::Started) {
                sender->pause();
                sender->seek(0.02);
                sender->lightPlay();
            }
        };
        player->load(m_item, m_short);
        player->play();
        QTRY_COMPARE(ends, 3);
        QVERIFY(!player->isPlaying());
    }
};

QTEST_GUILESS_MAIN(tst_PlayerLifetime)
#include "tst_player_lifetime.moc"
