// SPDX-License-Identifier: MIT
#include "player/MiniPlayerTest.h"
#include "shell/contracts/PeakProvider.h"

#include <cmath>

using namespace support;

namespace {

/// A provider that the test lets speak.
class Provider final : public PeakProvider
{
public:
    std::unique_ptr<PeakRequest> requestPeaks(
        const std::shared_ptr<WXEAudioFile> &item, Receiver receiver) override
    {
        class Request final : public PeakRequest
        {
        public:
            explicit Request(int *open) : m_open(open) { ++*m_open; }
            ~Request() override { --*m_open; }
            Request(const Request &) = delete;
            Request &operator=(const Request &) = delete;

        private:
            int *m_open;
        };
        items.push_back(item);
        tell = std::move(receiver);
        return std::make_unique<Request>(&open);
    }

    void tellLevels(std::size_t count)
    {
        tell(std::make_shared<const WaveformPeaks>(WaveformPeaks{0.1, std::vector<float>(count, 1.0F)}));
    }

    std::vector<std::shared_ptr<WXEAudioFile>> items;
    Receiver tell;
    int open = 0;
};

} // namespace

class tst_MiniPlayerWaveform : public MiniPlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        m_provider = std::make_shared<Provider>();
        PeakProvider::setProvider(m_provider);
    }
    void cleanup()
    {
        tearDown();
        m_provider.reset();
        PeakProvider::setProvider({});
    }

    void isAskedForWithTheItem();
    void anItemBeforeTheViewIsAskedForWhenItLoads();
    void comesInPieces();
    void anotherItemWithdrawsIt();
    void theSameItemIsNotAskedForAgain();
    void noItemHasNone();
    void withoutAProviderThereIsABar();
    void whoAskedMayGo();
    void ticksGoToTheSlider();
    void theTipSpeaksAsTheLabel();

private:
    [[nodiscard]] QImage slider() { return m_strip->prgSlider()->grab().toImage(); }
    void show()
    {
        load();
        m_strip->view()->resize(800, 80);
        m_strip->view()->show();
    }

    std::shared_ptr<Provider> m_provider;
};

void tst_MiniPlayerWaveform::isAskedForWithTheItem()
{
    load();
    QVERIFY(m_provider->items.empty());
    m_strip->flushWithAudioItem(m_item);
    QCOMPARE(m_provider->items.size(), std::size_t(1));
    QCOMPARE(m_provider->items.front(), std::shared_ptr<WXEAudioFile>(m_item));
    QCOMPARE(m_provider->open, 1);
}

void tst_MiniPlayerWaveform::anItemBeforeTheViewIsAskedForWhenItLoads()
{
    m_strip->flushWithAudioItem(m_item);
    QVERIFY(m_provider->items.empty());
    load();
    QCOMPARE(m_provider->items.size(), std::size_t(1));
}

void tst_MiniPlayerWaveform::comesInPieces()
{
    show();
    m_strip->flushWithAudioItem(m_item);
    const QImage bar = slider();
    m_provider->tellLevels(100);
    const QImage some = slider();
    m_provider->tellLevels(1000);
    const QImage all = slider();
    QVERIFY(bar != some);
    QVERIFY(some != all);
}

void tst_MiniPlayerWaveform::anotherItemWithdrawsIt()
{
    show();
    const auto other = std::make_shared<standin::Item>();
    other->seconds = 100;
    m_strip->flushWithAudioItem(other);
    const QImage bar = slider();
    m_provider->tellLevels(500);
    QVERIFY(slider() != bar);
    m_strip->flushWithAudioItem(m_item); // while it is being decoded
    QCOMPARE(slider(), bar);
    QCOMPARE(m_provider->open, 1);
    QCOMPARE(m_provider->items.size(), std::size_t(2));
    m_strip->flushWithAudioItem(other);
    QCOMPARE(m_provider->items.size(), std::size_t(3));
}

void tst_MiniPlayerWaveform::theSameItemIsNotAskedForAgain()
{
    show();
    m_strip->flushWithAudioItem(m_item);
    m_provider->tellLevels(1000);
    const QImage before = slider();
    m_strip->flushWithAudioItem(m_item);
    QCOMPARE(m_provider->items.size(), std::size_t(1));
    QCOMPARE(slider(), before);
}

void tst_MiniPlayerWaveform::noItemHasNone()
{
    show();
    m_strip->flushWithAudioItem(m_item);
    m_provider->tellLevels(1000);
    m_strip->flushWithAudioItem(nullptr);
    QCOMPARE(m_provider->open, 0);
    QCOMPARE(m_provider->items.size(), std::size_t(1));
    m_strip->flushWithAudioItem(m_item);
    QCOMPARE(m_provider->items.size(), std::size_t(2));
}

void tst_MiniPlayerWaveform::withoutAProviderThereIsABar()
{
    m_provider.reset();
    QVERIFY(PeakProvider::provider() == nullptr);
    show();
    m_strip->flushWithAudioItem(m_item);
    QVERIFY(m_strip->prgSlider()->isEnabled());
    QVERIFY(!slider().isNull());
}

void tst_MiniPlayerWaveform::whoAskedMayGo()
{
    load();
    m_strip->flushWithAudioItem(m_item);
    delete m_strip->view();
    m_provider->tellLevels(10); // the view alone has gone
    m_strip.reset();
    QCOMPARE(m_provider->open, 0);
    setUp();
    load();
    m_strip->flushWithAudioItem(m_item);
    m_strip.reset();
    QCOMPARE(m_provider->open, 0);
    m_provider->tellLevels(10);
}

void tst_MiniPlayerWaveform::ticksGoToTheSlider()
{
    m_strip->showTimeTags({1.0}, {}); // before there is a view
    show();
    m_strip->flushWithAudioItem(m_item);
    const QImage without = slider();
    m_strip->showTimeTags({10.0, 20.0}, {});
    const QImage with = slider();
    QVERIFY(with != without);
    m_strip->showTimeTags({10.0, 20.0}, {20.0});
    QVERIFY(slider() != with);
    m_strip->showTimeTags({}, {});
    QCOMPARE(slider(), without);
}

void tst_MiniPlayerWaveform::theTipSpeaksAsTheLabel()
{
    load();
    QCOMPARE(m_strip->prgSlider()->timeText(61.5), "01:01.50");
    QCOMPARE(m_strip->prgSlider()->timeText(-1.0), "00:00.00");
}

QTEST_MAIN(tst_MiniPlayerWaveform)
#include "tst_mini_player_waveform.moc"
