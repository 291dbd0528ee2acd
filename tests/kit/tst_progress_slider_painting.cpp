// SPDX-License-Identifier: MIT
//
// What of the slider is painted, where, in which colours, and how often.
#include "kit/ProgressSliderView.h"
#include "kit/Theme.h"
#include "support/QtWarnings.h"

#include <QtGui/QPaintEvent>
#include <QtTest/QTest>

#include <cmath>

namespace {

constexpr int kHeight = 32;
constexpr int kMiddle = 12; // of the waveform
constexpr int kMarks = 28;

/// Writes down what is really painted.
class WatchedSlider : public ProgressSliderView
{
    Q_OBJECT

public:
    QList<QRect> painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        painted.append(event->rect());
        ProgressSliderView::paintEvent(event);
    }
};

} // namespace

class tst_ProgressSliderPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_slider.reset(); }

    void plainBarWithoutAWaveform();
    void waveformIsPlayedUpToThePosition();
    void loudAndSilentDiffer();
    void standsInTheTimeOfTheLength();
    void whatIsNotKnownYetIsQuiet();
    void quietSongsFillTheHeight();
    void followsTheColorsOfTheDesktop();
    void ticksStandAtTheirTimes();
    void emphasisedTicksStandOut();
    void ticksOutsideTheLengthAreNotShown();
    void marksAloneArePaintedAgain();
    void aMovedPositionPaintsOnlyItsSurroundings();
    void aMoveWithinAPixelPaintsNothing();
    void aHundredThousandTicks();
    void withoutALengthNothingButABar();
    void rightToLeftIsTheSame();
    void tinySizes();

private:
    [[nodiscard]] int x(double seconds) const
    {
        return static_cast<int>(std::lround(m_slider->xAt(seconds)));
    }
    [[nodiscard]] QImage shot() const
    {
        QImage image(m_slider->size(), QImage::Format_RGB32);
        image.fill(m_slider->palette().color(QPalette::Base));
        m_slider->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// The number of pixels of `color` in the column of a time, or around it.
    [[nodiscard]] int count(double seconds, const QColor &color, int top = 0, int bottom = kHeight) const
    {
        const QImage image = shot();
        int most = 0;
        for (int column = x(seconds) - 2; column <= x(seconds) + 2; ++column) {
            int pixels = 0;
            for (int y = top; y < bottom; ++y)
                pixels += column >= 0 && column < image.width() && image.pixel(column, y) == color.rgb();
            most = std::max(most, pixels);
        }
        return most;
    }
    [[nodiscard]] kit::Theme theme() const { return kit::Theme(m_slider.get()); }
    void settle()
    {
        QCoreApplication::processEvents();
        m_slider->painted.clear();
    }
    [[nodiscard]] QRect paintedArea()
    {
        QCoreApplication::processEvents();
        QRect all;
        for (const QRect &rect : std::as_const(m_slider->painted))
            all |= rect;
        return all;
    }

    std::unique_ptr<WatchedSlider> m_slider;
};

void tst_ProgressSliderPainting::init()
{
    support::failOnUnexpectedWarnings();
    m_slider = std::make_unique<WatchedSlider>();
    m_slider->resize(1000, kHeight);
    m_slider->resize(1000 + 2 * static_cast<int>(m_slider->xAt(0)), kHeight);
    m_slider->setDLength(100.0); // ten pixels are one second
    m_slider->show();
    QVERIFY(QTest::qWaitForWindowActive(m_slider.get()));
    m_slider->clearFocus(); // and its ring
}

void tst_ProgressSliderPainting::plainBarWithoutAWaveform()
{
    m_slider->setDCurValue(50);
    QCOMPARE(count(20, theme().accent), 6);
    QCOMPARE(count(80, theme().waveform), 6);
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    QVERIFY(count(20, theme().accent) > 6);
    m_slider->setPeaks({}, 0.0);
    QCOMPARE(count(20, theme().accent), 6);
}

void tst_ProgressSliderPainting::waveformIsPlayedUpToThePosition()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    m_slider->setDCurValue(50);
    QVERIFY(count(48, theme().accent) >= 15);
    QCOMPARE(count(48, theme().waveform), 0);
    QVERIFY(count(52, theme().waveform) >= 15);
    QCOMPARE(count(52, theme().accent), 0);
    QVERIFY(count(50, theme().text) >= 25); // the position
}

void tst_ProgressSliderPainting::loudAndSilentDiffer()
{
    std::vector<float> levels(1000, 0.0F);
    std::fill(levels.begin() + 300, levels.begin() + 400, 1.0F);
    m_slider->setPeaks(levels, 0.1);
    QVERIFY(count(35, theme().waveform) >= 15);
    QVERIFY(count(25, theme().waveform) <= 3);
    QVERIFY(count(45, theme().waveform) <= 3);
}

void tst_ProgressSliderPainting::standsInTheTimeOfTheLength()
{
    // Levels for 50 seconds, loud from 20 to 30; then the length becomes known better.
    std::vector<float> levels(500, 0.0F);
    std::fill(levels.begin() + 200, levels.begin() + 300, 1.0F);
    m_slider->setPeaks(levels, 0.1);
    QVERIFY(count(25, theme().waveform) >= 15);
    m_slider->setDLength(50.0);
    QVERIFY(count(25, theme().waveform) >= 15);
    QVERIFY(count(18, theme().waveform) <= 3);
}

void tst_ProgressSliderPainting::whatIsNotKnownYetIsQuiet()
{
    m_slider->setPeaks(std::vector<float>(40, 1.0F), 1.0);
    QVERIFY(count(35, theme().waveform) >= 15);
    QCOMPARE(count(45, theme().waveform), 0);
    QVERIFY(count(45, theme().line) > 0);
}

void tst_ProgressSliderPainting::quietSongsFillTheHeight()
{
    m_slider->setPeaks(std::vector<float>(100, 0.2F), 1.0);
    QVERIFY(count(50.5, theme().waveform) >= 15);
    m_slider->setPeaks(std::vector<float>(100, 0.01F), 1.0); // noise alone does not
    QVERIFY(count(50.5, theme().waveform) <= 4);
}

void tst_ProgressSliderPainting::followsTheColorsOfTheDesktop()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    const QColor light = theme().waveform;
    QVERIFY(count(50, light) >= 15);
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    m_slider->setPalette(dark);
    QVERIFY(theme().waveform != light);
    QVERIFY(count(50, theme().waveform) >= 15);
    QCOMPARE(count(50, light), 0);
}

void tst_ProgressSliderPainting::ticksStandAtTheirTimes()
{
    m_slider->setTicks({80.0, 20.0, 20.0});
    for (const double seconds : {20.0, 80.0})
        QVERIFY(count(seconds, theme().quietText, kMarks - 3) >= 4);
    for (const double seconds : {19.0, 21.0, 50.0})
        QCOMPARE(count(seconds, theme().quietText, kMarks - 3), 0);
    m_slider->setTicks({});
    QCOMPARE(count(20, theme().quietText, kMarks - 3), 0);
}

void tst_ProgressSliderPainting::emphasisedTicksStandOut()
{
    m_slider->setTicks({20.0, 40.0});
    m_slider->setEmphasisedTicks({40.0});
    QVERIFY(count(40, theme().focus, 20) > count(20, theme().quietText, 20));
    QCOMPARE(count(20, theme().focus, 20), 0);
}

void tst_ProgressSliderPainting::ticksOutsideTheLengthAreNotShown()
{
    const QImage without = shot();
    m_slider->setTicks({-1.0, 100.5, 1e300, -1e300, std::nan(""), INFINITY});
    QCOMPARE(shot(), without);
    m_slider->setTicks({0.0, 100.0});
    QVERIFY(count(0, theme().quietText, kMarks - 3) >= 4);
    QVERIFY(count(100, theme().quietText, kMarks - 3) >= 4);
}

void tst_ProgressSliderPainting::marksAloneArePaintedAgain()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    settle();
    m_slider->setTicks({1.0, 2.0});
    m_slider->setEmphasisedTicks({2.0});
    const QRect area = paintedArea();
    QVERIFY(!area.isEmpty());
    QVERIFY2(area.top() > kMiddle + 8, qPrintable(QString::number(area.top())));
    settle();
    m_slider->setTicks({1.0, 2.0});
    m_slider->setEmphasisedTicks({2.0});
    QVERIFY(paintedArea().isEmpty());
}

void tst_ProgressSliderPainting::aMovedPositionPaintsOnlyItsSurroundings()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    m_slider->setDCurValue(50);
    settle();
    m_slider->setDCurValue(50.2);
    const QRect area = paintedArea();
    QVERIFY(!area.isEmpty());
    QVERIFY(area.width() <= 22);
    QVERIFY(area.contains(x(50.2), kMiddle));
}

void tst_ProgressSliderPainting::aMoveWithinAPixelPaintsNothing()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    m_slider->setDCurValue(50);
    settle();
    for (int tick = 0; tick < 4; ++tick)
        m_slider->setDCurValue(50 + tick * 0.01);
    QVERIFY(paintedArea().isEmpty());
}

void tst_ProgressSliderPainting::aHundredThousandTicks()
{
    std::vector<double> ticks;
    for (int i = 0; i < 100000; ++i)
        ticks.push_back(i * 0.0005); // half of the length
    m_slider->setTicks(ticks);
    QVERIFY(count(25, theme().quietText, kMarks - 3) >= 4);
    QCOMPARE(count(75, theme().quietText, kMarks - 3), 0);
}

void tst_ProgressSliderPainting::withoutALengthNothingButABar()
{
    m_slider->setPeaks(std::vector<float>(100, 1.0F), 1.0);
    m_slider->setTicks({0.0, 1.0});
    m_slider->setDLength(0);
    QCOMPARE(count(0, theme().quietText), 0);
    const QImage image = shot();
    QCOMPARE(image.pixel(500, kMiddle), theme().line.rgb());
}

void tst_ProgressSliderPainting::rightToLeftIsTheSame()
{
    m_slider->setPeaks(std::vector<float>(30, 1.0F), 1.0);
    m_slider->setTicks({10.0});
    const QImage before = shot();
    m_slider->setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(shot(), before);
}

void tst_ProgressSliderPainting::tinySizes()
{
    m_slider->setPeaks(std::vector<float>(30, 1.0F), 1.0);
    m_slider->setTicks({10.0});
    m_slider->setEmphasisedTicks({10.0});
    for (const QSize size : {QSize(60, 24), QSize(18, 24), QSize(5, 5), QSize(1, 1)}) {
        m_slider->resize(size);
        QVERIFY(!m_slider->grab().isNull());
    }
}

QTEST_MAIN(tst_ProgressSliderPainting)
#include "tst_progress_slider_painting.moc"
