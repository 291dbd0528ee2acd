// SPDX-License-Identifier: MIT
#include "player/MiniPlayerTest.h"

#include <cmath>

using namespace support;

class tst_MiniPlayerSeeking : public MiniPlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void progressShowsThePlayersLength();
    void dragOfThisPlayingItem();
    void dragWhilePausedOrElsewhere();
    void dragShowsTheItemsLengthUntilTheNextTick();
    void tickDuringADragMovesTheSlider();
    void unchangedTextIsNotSetAgain();
};

void tst_MiniPlayerSeeking::progressShowsThePlayersLength()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_player->seconds = 238.2;
    m_strip->updatePlayerProgress(67.42);
    QCOMPARE(time(), "01:07.42/03:58.20");
    QCOMPARE(m_strip->prgSlider()->dCurValue(), 67.42);
}

void tst_MiniPlayerSeeking::dragOfThisPlayingItem()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_player->music = m_item;
    m_player->playing = true;
    m_player->told.clear();
    ProgressSliderView *const slider = m_strip->prgSlider();
    slider->resize(400, 24);
    const QPoint to(static_cast<int>(std::lround(slider->xAt(50))), 12);
    QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(20, 12));
    QCOMPARE(m_player->told, QStringList("pause"));
    QTest::mouseMove(slider, to);
    QCOMPARE(m_player->told, QStringList("pause")); // no seek while dragging
    QTest::mouseRelease(slider, Qt::LeftButton, {}, to);
    QCOMPARE(m_player->told.size(), 3);
    QVERIFY(m_player->told.at(1).startsWith("seek "));
    QVERIFY(qAbs(m_player->told.at(1).mid(5).toDouble() - 50.0) < 0.5);
    QCOMPARE(m_player->told.at(2), "lightPlay");
}

void tst_MiniPlayerSeeking::dragWhilePausedOrElsewhere()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_player->told.clear();
    m_player->music = m_item; // paused
    m_strip->sliderView_beginDragAt(m_strip->prgSlider(), 10);
    QVERIFY(m_player->told.isEmpty());
    m_strip->sliderView_endDragAt(m_strip->prgSlider(), 20.5);
    QCOMPARE(m_player->told, QStringList({"seek 20.5", "lightPlay"}));
    m_player->told.clear();
    m_player->music = std::make_shared<standin::Item>(); // another one plays
    m_player->playing = true;
    m_strip->sliderView_beginDragAt(m_strip->prgSlider(), 10);
    QVERIFY(m_player->told.isEmpty());
    m_strip->sliderView_endDragAt(m_strip->prgSlider(), 7);
    QCOMPARE(m_player->told, QStringList({"seek 7", "lightPlay"}));
}

void tst_MiniPlayerSeeking::dragShowsTheItemsLengthUntilTheNextTick()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    m_player->seconds = 99;
    m_strip->sliderView_didChangeValue(m_strip->prgSlider(), 30);
    QCOMPARE(time(), "00:30.00/01:40.00");
    m_strip->updatePlayerProgress(12);
    QCOMPARE(time(), "00:12.00/01:39.00");
    m_strip->flushWithAudioItem(nullptr);
    m_strip->sliderView_didChangeValue(m_strip->prgSlider(), 30);
    QCOMPARE(time(), "00:30.00/00:00.00");
}

void tst_MiniPlayerSeeking::tickDuringADragMovesTheSlider()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    QTest::mousePress(m_strip->prgSlider(), Qt::LeftButton, {}, QPoint(20, 12));
    m_strip->updatePlayerProgress(77);
    QCOMPARE(m_strip->prgSlider()->dCurValue(), 77.0);
    QTest::mouseRelease(m_strip->prgSlider(), Qt::LeftButton, {}, QPoint(20, 12));
}

void tst_MiniPlayerSeeking::unchangedTextIsNotSetAgain()
{
    class Counter : public QObject
    {
    public:
        int layouts = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            layouts += event->type() == QEvent::LayoutRequest;
            return false;
        }
    } counter;
    load();
    m_strip->flushWithAudioItem(m_item);
    m_strip->view()->resize(800, 80);
    m_strip->view()->show();
    m_strip->updatePlayerProgress(10);
    QCoreApplication::processEvents();
    m_strip->view()->installEventFilter(&counter);
    for (int tick = 0; tick < 100; ++tick) {
        m_strip->updatePlayerProgress(10 + tick * 0.01);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.layouts, 0); // a second of ticks asks for no new layout
    m_strip->view()->removeEventFilter(&counter);
}

QTEST_MAIN(tst_MiniPlayerSeeking)
#include "tst_mini_player_seeking.moc"
