// SPDX-License-Identifier: MIT
//
// Everybody may go first while the slider is being dragged.
#include "player/MiniPlayerTest.h"
#include "support/EveryOrder.h"

class tst_MiniPlayerLifetime : public MiniPlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { tearDown(); }

    void everybodyMayGoInAnyOrderDuringADrag();
    void whoeverIsToldMayDestroyTheStrip_data();
    void whoeverIsToldMayDestroyTheStrip();

private:
    void press()
    {
        load();
        m_strip->view()->resize(800, 80);
        m_strip->view()->show();
        m_strip->flushWithAudioItem(m_item);
        m_player->music = m_item;
        m_player->playing = true;
        QTest::mousePress(m_strip->prgSlider(), Qt::LeftButton, {}, QPoint(40, 12));
    }
};

void tst_MiniPlayerLifetime::everybodyMayGoInAnyOrderDuringADrag()
{
    enum Who { Strip, View, Host, Container, OwnItem, AndPlayer };
    support::inEveryOrder(
        {Strip, View, Host, Container, OwnItem, AndPlayer}, [this](const std::vector<int> &order) {
            setUp();
            press();
            const QPointer<ProgressSliderView> slider = m_strip->prgSlider();
            const std::weak_ptr<TQLRCEditorMiniPlayerViewCtl> strip = m_strip;
            for (const int who : order) {
                switch (who) {
                case Strip:
                    m_strip.reset();
                    QVERIFY(strip.expired());
                    break;
                case View:
                    delete (m_strip != nullptr ? m_strip->view() : nullptr);
                    break;
                case Host:
                    m_host.reset();
                    break;
                case Container:
                    m_container.reset();
                    break;
                case OwnItem:
                    m_item.reset();
                    break;
                default:
                    m_player.reset();
                }
                if (slider != nullptr) {
                    QTest::mouseMove(slider, QPoint(60 + 10 * who, 12));
                }
                if (m_strip != nullptr) {
                    m_strip->updatePlayerProgress(who);
                }
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(slider == nullptr);
        });
}

void tst_MiniPlayerLifetime::whoeverIsToldMayDestroyTheStrip_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("pause") << "pause";
    QTest::newRow("seek") << "seek";
    QTest::newRow("lightPlay") << "lightPlay";
}

void tst_MiniPlayerLifetime::whoeverIsToldMayDestroyTheStrip()
{
    /// A player whose host closes the editor from one of its calls.
    class Closing final : public TQAudioPlayerProtocol
    {
    public:
        bool isPlaying() const override { return true; }
        std::shared_ptr<WXEAudioFile> playingMusic() const override { return item; }
        double duration() const override { return 100; }
        void play() override { }
        void pause() override { note("pause"); }
        void seek(double) override { note("seek"); }
        void lightPlay() override { note("lightPlay"); }
        void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &) override { }
        void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &) override { }
        void note(const QString &call)
        {
            if (call == when)
                std::exchange(*strip, nullptr).reset();
        }
        QString when;
        std::shared_ptr<WXEAudioFile> item;
        std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> *strip = nullptr;
    };
    QFETCH(QString, call);
    setUp();
    const auto player = std::make_shared<Closing>();
    player->when = call;
    player->item = m_item;
    player->strip = &m_strip;
    m_strip = TQLRCEditorMiniPlayerViewCtl::initWithPlayer(player);
    load();
    m_strip->view()->show();
    m_strip->flushWithAudioItem(m_item);
    const std::weak_ptr<TQLRCEditorMiniPlayerViewCtl> strip = m_strip;
    const QPointer<ProgressSliderView> slider = m_strip->prgSlider();
    QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(40, 12));
    if (slider != nullptr)
        QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(40, 12));
    QVERIFY(m_strip == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(strip.expired());
    QVERIFY(slider == nullptr);
}

QTEST_MAIN(tst_MiniPlayerLifetime)
#include "tst_mini_player_lifetime.moc"
