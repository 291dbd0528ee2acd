// SPDX-License-Identifier: MIT
#include "player/MiniPlayerTest.h"
#include "support/Drags.h"

#include <QtGui/QAccessible>

#include <cmath>

using namespace support;

class tst_MiniPlayer : public MiniPlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void titleJoinsWhatIsThere_data();
    void titleJoinsWhatIsThere();
    void timesAreTruncated_data();
    void timesAreTruncated();
    void itemIsShown();
    void noItemIsThePrompt();
    void itemLeavesTimeAndButtonAlone();
    void itemBeforeTheView();
    void buttonAsksTheHost();
    void buttonWithoutAHost();
    void playStateIsThePlayersOwn();
    void whilePlayingAnotherFile();
    void dropOpensTheFileForTheContainer();
    void dropThatCannotBeOpened();
    void configDecidesOnDropsWhenTheViewLoads();
    void withoutAConfigNoDrops();
    void groundIsTheTextsUntilTheFirstDrag();
    void listensWhenTheViewLoadsAndNotBefore();
    void destructionPausesAndStopsListening();
    void destructionInAnyOrder();
    void withoutAPlayerEverythingIsQuiet();
    void controlsHaveNamesTipsAndTabStops();
    void worksInGerman();
};

void tst_MiniPlayer::titleJoinsWhatIsThere_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("album");
    QTest::newRow("The Star - Traditional - Rhymes") << "The Star"
                                                     << "Traditional"
                                                     << "Rhymes";
    QTest::newRow("The Star - Rhymes") << "The Star"
                                       << ""
                                       << "Rhymes";
    QTest::newRow("Rhymes") << QString() << QString() << "Rhymes";
    QTest::newRow("Traditional") << ""
                                 << "Traditional" << QString();
    QTest::newRow("A -  - B - C") << "A - "
                                  << "B"
                                  << "C";
    QTest::newRow("") << "" << QString() << "";
}

void tst_MiniPlayer::titleJoinsWhatIsThere()
{
    QFETCH(QString, title);
    QFETCH(QString, artist);
    QFETCH(QString, album);
    m_item->titleText = title;
    m_item->artistText = artist;
    m_item->albumText = album;
    QCOMPARE(m_strip->getPlayTitle(m_item), QString(QTest::currentDataTag()));
    QVERIFY(!m_strip->getPlayTitle(m_item).isNull());
    QCOMPARE(m_strip->getPlayTitle(nullptr), "");
}

void tst_MiniPlayer::timesAreTruncated_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("00:00.00") << 0.0;
    QTest::newRow("01:02.00") << 61.9996; // 61999 ms, to the nearest hundredth
    QTest::newRow("01:01.00") << 61.0;
    QTest::newRow("01:07.42") << 67.42001;
    QTest::newRow("100:00.00") << 6000.0;
}

void tst_MiniPlayer::timesAreTruncated()
{
    QFETCH(double, seconds);
    QCOMPARE(m_strip->getTimeStr(seconds), QString(QTest::currentDataTag()));
    QCOMPARE(m_strip->getTimeStr(-0.0009), "00:00.00");
    QCOMPARE(m_strip->getTimeStr(-5.0), "00:00.00");
    QCOMPARE(m_strip->getTimeStr(0.0049), "00:00.00"); // 4 ms, not 4.9
    QCOMPARE(m_strip->getTimeStr(std::nan("")), "00:00.00");
}

void tst_MiniPlayer::itemIsShown()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    QCOMPARE(m_strip->audioFile(), m_item);
    QCOMPARE(m_strip->lblAudioTitle()->text(), "The Star - Traditional - Rhymes");
    QCOMPARE(m_strip->albumImgView()->image(), m_item->cover);
    QVERIFY(m_strip->prgSlider()->isEnabled());
    QCOMPARE(m_strip->prgSlider()->dLength(), 100.0);
}

void tst_MiniPlayer::noItemIsThePrompt()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_strip->updatePlayerProgress(12);
    const QString before = time();
    m_strip->flushWithAudioItem(nullptr);
    QVERIFY(m_strip->audioFile() == nullptr);
    QCOMPARE(m_strip->lblAudioTitle()->text(), "Drag Audio File Here!");
    QVERIFY(m_strip->albumImgView()->image().isNull());
    QVERIFY(m_strip->albumImgView()->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(!m_strip->prgSlider()->isEnabled());
    QCOMPARE(time(), before);
}

void tst_MiniPlayer::itemLeavesTimeAndButtonAlone()
{
    load();
    m_player->seconds = 50;
    m_strip->updatePlayerProgress(12);
    m_player->playing = true; // not said yet
    m_strip->flushWithAudioItem(m_item);
    QCOMPARE(time(), "00:12.00/00:50.00");
    QCOMPARE(m_strip->prgSlider()->dCurValue(), 12.0);
    QCOMPARE(image(), "play");
}

void tst_MiniPlayer::itemBeforeTheView()
{
    m_strip->flushWithAudioItem(m_item);
    m_strip->updatePlayerProgress(3);
    m_strip->updatePlayPauseUI();
    QVERIFY(!m_strip->isViewLoaded());
    load();
    QCOMPARE(m_strip->lblAudioTitle()->text(), "The Star - Traditional - Rhymes");
    QVERIFY(m_strip->prgSlider()->isEnabled());
}

void tst_MiniPlayer::buttonAsksTheHost()
{
    load();
    QTest::mouseClick(m_strip->btnPlay(), Qt::LeftButton);
    QCOMPARE(m_host->asked.size(), 1U);
    QVERIFY(m_host->asked.at(0) == nullptr); // no item is said too
    m_strip->flushWithAudioItem(m_item);
    QTest::keyClick(m_strip->btnPlay(), Qt::Key_Space);
    QCOMPARE(m_host->asked.size(), 2U);
    QCOMPARE(m_host->asked.at(1), m_item);
    m_strip->PlayPauseClicked();
    QCOMPARE(m_host->asked.size(), 3U);
    QCOMPARE(m_player->told, QStringList("registObserver")); // the player is the host's to move
}

void tst_MiniPlayer::buttonWithoutAHost()
{
    load();
    m_host.reset();
    m_strip->PlayPauseClicked();
    QVERIFY(m_strip->delegate() == nullptr);
}

void tst_MiniPlayer::playStateIsThePlayersOwn()
{
    m_player->playing = true;
    load();
    QCOMPARE(image(), "pause");
    QCOMPARE(m_strip->btnPlay()->accessibleName(), "Pause");
    m_player->playing = false;
    m_strip->audioPlayer_playStateChanged(m_player.get(), true); // what it says is not asked
    QCOMPARE(image(), "play");
    QCOMPARE(m_strip->btnPlay()->accessibleName(), "Play");
}

void tst_MiniPlayer::whilePlayingAnotherFile()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_player->music = std::make_shared<standin::Item>(*m_item); // equal, and not the same
    m_player->playing = true;
    m_strip->updatePlayPauseUI();
    QCOMPARE(image(), "pause");
    QVERIFY(!m_strip->isPlaying());
    QVERIFY(!m_strip->isPlayingCurrent());
    m_player->music = m_item;
    QVERIFY(m_strip->isPlaying());
    QVERIFY(m_strip->isPlayingCurrent());
    m_player->playing = false;
    QVERIFY(!m_strip->isPlaying());
    QVERIFY(m_strip->isPlayingCurrent());
    m_player->music = nullptr;
    m_strip->flushWithAudioItem(nullptr);
    QVERIFY(!m_strip->isPlayingCurrent());
}

void tst_MiniPlayer::dropOpensTheFileForTheContainer()
{
    QStringList opened;
    bool atOnce = false;
    WXEAudioFileMgr::setFactory([&](const QString &path, bool dumpImmediately) {
        opened << path;
        atOnce = dumpImmediately;
        return m_item;
    });
    load();
    const DraggedFiles files({"/m/new song.mp3", "/m/other.mp3"});
    QVERIFY(dragInto(m_strip->playerBgView(), files));
    QVERIFY(dropOnto(m_strip->playerBgView(), files));
    QCOMPARE(opened, QStringList("/m/new song.mp3"));
    QVERIFY(atOnce);
    QCOMPARE(m_container->flushed.size(), 1U);
    QCOMPARE(m_container->flushed.at(0), m_item);
}

void tst_MiniPlayer::dropThatCannotBeOpened()
{
    load();
    m_strip->plyingBgView_acceptDrop(m_strip->playerBgView(), "/m/broken.mp3");
    QCOMPARE(m_container->flushed.size(), 1U);
    QVERIFY(m_container->flushed.at(0) == nullptr);
    m_container.reset();
    m_strip->plyingBgView_acceptDrop(m_strip->playerBgView(), "/m/broken.mp3");
    QVERIFY(m_strip->parentVC() == nullptr);
}

void tst_MiniPlayer::configDecidesOnDropsWhenTheViewLoads()
{
    gEditorConfig->setSupportDragAudioInto(false);
    load();
    QVERIFY(!m_strip->playerBgView()->dropEnabled());
    gEditorConfig->setSupportDragAudioInto(true); // too late for this one
    QVERIFY(!m_strip->playerBgView()->dropEnabled());
    const auto other = TQLRCEditorMiniPlayerViewCtl::init();
    QVERIFY(other->view() != nullptr);
    QVERIFY(other->playerBgView()->dropEnabled());
}

void tst_MiniPlayer::withoutAConfigNoDrops()
{
    gEditorConfig.reset();
    load();
    QVERIFY(!m_strip->playerBgView()->dropEnabled());
}

void tst_MiniPlayer::groundIsTheTextsUntilTheFirstDrag()
{
    load();
    RBPlayingBgView *const ground = m_strip->playerBgView();
    QCOMPARE(ground->backgroundColor(), ground->palette().color(QPalette::Base));
    const DraggedFiles files({"/m/a.mp3"});
    dragInto(ground, files);
    dragOut(ground);
    QCOMPARE(ground->backgroundColor(), ground->palette().color(QPalette::Button));
}

void tst_MiniPlayer::listensWhenTheViewLoadsAndNotBefore()
{
    QVERIFY(m_player->observers.empty());
    load();
    QCOMPARE(m_player->observers.size(), 1U);
    QCOMPARE(m_player->observers.at(0).lock().get(), static_cast<TQAudioPlayerObserver *>(m_strip.get()));
    m_player->playing = true;
    m_player->observers.at(0).lock()->audioPlayer_playStateChanged(m_player.get(), true);
    QCOMPARE(image(), "pause");
}

void tst_MiniPlayer::destructionPausesAndStopsListening()
{
    load();
    m_player->told.clear();
    m_player->music = std::make_shared<standin::Item>(); // another one plays
    m_player->playing = true;
    m_strip.reset();
    QCOMPARE(m_player->told, QStringList({"pause", "removeObserver"}));
    QVERIFY(m_player->observers.empty());
}

void tst_MiniPlayer::destructionInAnyOrder()
{
    auto window = std::make_unique<QWidget>();
    load();
    m_strip->view()->setParent(window.get());
    window->show();
    m_strip->flushWithAudioItem(m_item);
    window.reset(); // takes the view along
    QVERIFY(m_strip->view() == nullptr);
    m_strip->flushWithAudioItem(m_item);
    m_strip->updatePlayerProgress(5);
    m_strip->updatePlayPauseUI();
    m_strip->sliderView_didChangeValue(nullptr, 5);
    m_host.reset();
    m_container.reset();
    const std::weak_ptr<standin::Player> player = m_player;
    m_player.reset();
    QVERIFY(!player.expired()); // the strip's, as long as it lives
    m_strip.reset();
    QVERIFY(player.expired());
}

void tst_MiniPlayer::withoutAPlayerEverythingIsQuiet()
{
    const auto strip = TQLRCEditorMiniPlayerViewCtl::init();
    QVERIFY(strip->view() != nullptr);
    QVERIFY(strip->mcPlayer() == nullptr);
    strip->flushWithAudioItem(m_item);
    strip->updatePlayerProgress(5);
    QCOMPARE(strip->lblPlayerTime()->text(), "00:05.00/00:00.00");
    strip->sliderView_beginDragAt(nullptr, 1);
    strip->sliderView_endDragAt(nullptr, 1);
    QVERIFY(!strip->isPlaying());
    QVERIFY(!strip->isPlayingCurrent());
    QCOMPARE(strip->btnPlay()->icon().name(), "play");
    strip->setMcPlayer(m_player);
    QCOMPARE(strip->mcPlayer(), m_player);
}

void tst_MiniPlayer::controlsHaveNamesTipsAndTabStops()
{
    load();
    for (QWidget *const control :
        {static_cast<QWidget *>(m_strip->btnPlay()), static_cast<QWidget *>(m_strip->prgSlider())}) {
        QVERIFY(!control->accessibleName().isEmpty());
        QVERIFY(!control->toolTip().isEmpty());
        QVERIFY(control->focusPolicy() & Qt::TabFocus);
    }
    // A label is called what it says.
    QCOMPARE(
        QAccessible::queryAccessibleInterface(m_strip->lblPlayerTime())->text(QAccessible::Name), time());
    QVERIFY(!m_strip->lblPlayerTime()->accessibleDescription().isEmpty());
    QVERIFY(!m_strip->albumImgView()->accessibleName().isEmpty());
    QWidget *next = m_strip->btnPlay()->nextInFocusChain();
    while (!(next->focusPolicy() & Qt::TabFocus))
        next = next->nextInFocusChain();
    QCOMPARE(next, m_strip->prgSlider());
}

void tst_MiniPlayer::worksInGerman()
{
    QLocale::setDefault(QLocale("de_DE"));
    load();
    QCOMPARE(m_strip->lblAudioTitle()->text(), "Audiodatei hierher ziehen!");
    QCOMPARE(m_strip->btnPlay()->accessibleName(), "Wiedergeben");
    QCOMPARE(m_strip->prgSlider()->accessibleName(), "Position im Lied");
}

QTEST_MAIN(tst_MiniPlayer)
#include "tst_mini_player.moc"
