// SPDX-License-Identifier: MIT
#include "kit/ProgressSliderView.h"
#include "support/QtWarnings.h"

#include <QtGui/QAccessible>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QToolTip>

#include <cmath>
#include <limits>

namespace {

class Listener : public SliderViewDelegate
{
public:
    void sliderView_beginDragAt(ProgressSliderView *, double seconds) override { note("begin", seconds); }
    void sliderView_didChangeValue(ProgressSliderView *, double seconds) override { note("change", seconds); }
    void sliderView_endDragAt(ProgressSliderView *, double seconds) override { note("end", seconds); }

    void note(const char *what, double seconds)
    {
        heard << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(seconds);
    }
    QStringList heard;
};

// Counts what is really painted.
class CountingSlider : public ProgressSliderView
{
    Q_OBJECT

public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        ProgressSliderView::paintEvent(event);
    }
};

QStringList movementTo(double seconds)
{
    return {QStringLiteral("begin %1").arg(seconds), QStringLiteral("change %1").arg(seconds),
        QStringLiteral("end %1").arg(seconds)};
}

} // namespace

class tst_ProgressSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_slider.reset(); }

    void clickIsOneMovement();
    void dragBeginsChangesAndEndsOnce();
    void dragOutsideStaysWithinTheLength();
    void tickMovesTheMarkDuringADrag();
    void otherButtonsDoNothing();
    void keysAreWholeMovements_data();
    void keysAreWholeMovements();
    void wheelCountsWholeNotches();
    void withoutALengthNothingMoves();
    void disabledMovesNothing();
    void disablingEndsADrag();
    void hidingEndsADrag();
    void settingAValueIsNoMovement();
    void wildValues();
    void delegateThatDiedIsHarmless();
    void delegateMayDestroyTheSlider_data();
    void delegateMayDestroyTheSlider();
    void delegateMayEndTheDragAtItsBeginning();
    void wheelAndKeysRestDuringADrag();
    void tipTellsTheTimeUnderThePointer();
    void unmovedMarkIsNotPaintedAgain();
    void placesAndSecondsAgree();
    void readersSeeASlider();

private:
    [[nodiscard]] QPoint at(double seconds) const
    {
        return {static_cast<int>(std::lround(m_slider->xAt(seconds))), m_slider->height() / 2};
    }
    [[nodiscard]] QStringList &heard() { return m_listener->heard; }

    std::unique_ptr<CountingSlider> m_slider;
    std::shared_ptr<Listener> m_listener;
};

void tst_ProgressSlider::init()
{
    support::failOnUnexpectedWarnings();
    m_slider = std::make_unique<CountingSlider>();
    m_listener = std::make_shared<Listener>();
    // 1000 pixels of room between the margins, 100 seconds: ten pixels are one second.
    m_slider->resize(1000, 24);
    m_slider->resize(1000 + 2 * static_cast<int>(m_slider->xAt(0)), 24);
    m_slider->setDLength(100.0);
    m_slider->setDelegate(m_listener);
    m_slider->show();
}

void tst_ProgressSlider::clickIsOneMovement()
{
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, at(25));
    QCOMPARE(heard(), movementTo(25));
    QCOMPARE(m_slider->dCurValue(), 25.0);
}

void tst_ProgressSlider::dragBeginsChangesAndEndsOnce()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    QVERIFY(m_slider->isDragging());
    QTest::mouseMove(m_slider.get(), at(20));
    QTest::mouseMove(m_slider.get(), at(30));
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, at(30));
    QVERIFY(!m_slider->isDragging());
    QCOMPARE(heard(), QStringList({"begin 10", "change 10", "change 20", "change 30", "end 30"}));
}

void tst_ProgressSlider::dragOutsideStaysWithinTheLength()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    QTest::mouseMove(m_slider.get(), QPoint(-500, 5));
    QTest::mouseMove(m_slider.get(), QPoint(5000, 5));
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, QPoint(5000, 5));
    QCOMPARE(heard(), QStringList({"begin 10", "change 10", "change 0", "change 100", "end 100"}));
}

void tst_ProgressSlider::tickMovesTheMarkDuringADrag()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    m_slider->setDCurValue(50);
    QCOMPARE(m_slider->dCurValue(), 50.0);
    // The release is where the pointer is.
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, at(10));
    QCOMPARE(heard().last(), "end 10");
}

void tst_ProgressSlider::otherButtonsDoNothing()
{
    QTest::mouseClick(m_slider.get(), Qt::RightButton, {}, at(25));
    QTest::mouseClick(m_slider.get(), Qt::MiddleButton, {}, at(25));
    QVERIFY(heard().isEmpty());
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    QTest::mouseRelease(m_slider.get(), Qt::RightButton, {}, at(10));
    QVERIFY(m_slider->isDragging());
}

void tst_ProgressSlider::keysAreWholeMovements_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("Right") << Qt::Key_Right << 50.0 << 55.0;
    QTest::newRow("Left") << Qt::Key_Left << 50.0 << 45.0;
    QTest::newRow("Up") << Qt::Key_Up << 50.0 << 55.0;
    QTest::newRow("Down") << Qt::Key_Down << 50.0 << 45.0;
    QTest::newRow("Page Up") << Qt::Key_PageUp << 50.0 << 80.0;
    QTest::newRow("Page Down") << Qt::Key_PageDown << 50.0 << 20.0;
    QTest::newRow("Home") << Qt::Key_Home << 50.0 << 0.0;
    QTest::newRow("End") << Qt::Key_End << 50.0 << 100.0;
    QTest::newRow("Left at the start") << Qt::Key_Left << 2.0 << 0.0;
    QTest::newRow("Right at the end") << Qt::Key_Right << 98.0 << 100.0;
}

void tst_ProgressSlider::keysAreWholeMovements()
{
    QFETCH(Qt::Key, key);
    QFETCH(double, from);
    QFETCH(double, to);
    m_slider->setDCurValue(from);
    QTest::keyClick(m_slider.get(), key);
    QCOMPARE(heard(), movementTo(to));
}

void tst_ProgressSlider::wheelCountsWholeNotches()
{
    m_slider->setDCurValue(50);
    const auto turn = [this](int delta) {
        QWheelEvent event(at(50), m_slider->mapToGlobal(at(50)), {}, {0, delta}, Qt::NoButton, {},
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_slider.get(), &event);
    };
    turn(60); // half a notch
    QVERIFY(heard().isEmpty());
    turn(60);
    QCOMPARE(heard(), movementTo(55));
    heard().clear();
    turn(-240);
    QCOMPARE(heard(), movementTo(45));
}

void tst_ProgressSlider::withoutALengthNothingMoves()
{
    m_slider->setDLength(0);
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, QPoint(500, 12));
    QTest::keyClick(m_slider.get(), Qt::Key_Right);
    QVERIFY(heard().isEmpty());
    QCOMPARE(m_slider->dCurValue(), 0.0);
}

void tst_ProgressSlider::disabledMovesNothing()
{
    m_slider->setEnabled(false);
    QTest::ignoreMessage(QtWarningMsg, "Mouse event \"MousePress\" not accepted by receiving widget");
    QTest::ignoreMessage(QtWarningMsg, "Mouse event \"MouseRelease\" not accepted by receiving widget");
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, at(25));
    QVERIFY(heard().isEmpty());
}

void tst_ProgressSlider::disablingEndsADrag()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    m_slider->setEnabled(false);
    QCOMPARE(heard(), movementTo(10));
    QVERIFY(!m_slider->isDragging());
}

void tst_ProgressSlider::hidingEndsADrag()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    m_slider->hide();
    QCOMPARE(heard(), movementTo(10));
}

void tst_ProgressSlider::settingAValueIsNoMovement()
{
    m_slider->setDCurValue(12.5);
    m_slider->setDLength(50);
    QVERIFY(heard().isEmpty());
    QCOMPARE(m_slider->dCurValue(), 12.5);
    QCOMPARE(m_slider->dLength(), 50.0);
}

void tst_ProgressSlider::wildValues()
{
    m_slider->setDCurValue(5);
    m_slider->setDCurValue(std::nan(""));
    QCOMPARE(m_slider->dCurValue(), 5.0);
    m_slider->setDCurValue(1e9); // kept, drawn at the end
    QCOMPARE(m_slider->xAt(m_slider->dCurValue()), m_slider->xAt(100));
    m_slider->setDCurValue(-3);
    QCOMPARE(m_slider->xAt(m_slider->dCurValue()), m_slider->xAt(0));
    for (const double length : {-1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        m_slider->setDLength(length);
        QCOMPARE(m_slider->dLength(), 0.0);
    }
    m_slider->resize(5, 5);
    QVERIFY(!m_slider->grab().isNull());
    QCOMPARE(m_slider->secondsAt(2), 0.0);
}

void tst_ProgressSlider::delegateThatDiedIsHarmless()
{
    m_listener.reset();
    QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, at(25));
    QCOMPARE(m_slider->dCurValue(), 25.0);
    QVERIFY(m_slider->delegate() == nullptr);
}

void tst_ProgressSlider::delegateMayDestroyTheSlider_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("begin") << "begin";
    QTest::newRow("change") << "change";
    QTest::newRow("end") << "end";
}

void tst_ProgressSlider::delegateMayDestroyTheSlider()
{
    class Destroyer : public SliderViewDelegate
    {
    public:
        void sliderView_beginDragAt(ProgressSliderView *, double) override { note("begin"); }
        void sliderView_didChangeValue(ProgressSliderView *, double) override { note("change"); }
        void sliderView_endDragAt(ProgressSliderView *, double) override { note("end"); }
        void note(const QString &call)
        {
            if (call == when)
                slider->reset();
        }
        QString when;
        std::unique_ptr<CountingSlider> *slider = nullptr;
    };
    QFETCH(QString, call);
    const auto destroyer = std::make_shared<Destroyer>();
    destroyer->when = call;
    destroyer->slider = &m_slider;
    m_slider->setDelegate(destroyer);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, {});
    QCoreApplication::sendEvent(m_slider.get(), &key);
    QVERIFY(m_slider == nullptr);
    init();
    m_slider->setDelegate(destroyer);
    QMouseEvent press(
        QEvent::MouseButtonPress, at(10), m_slider->mapToGlobal(at(10)), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_slider.get(), &press);
    if (m_slider != nullptr)
        m_slider->setEnabled(false); // ends it
    QVERIFY(m_slider == nullptr);
}

void tst_ProgressSlider::delegateMayEndTheDragAtItsBeginning()
{
    class Refuser : public Listener
    {
    public:
        void sliderView_beginDragAt(ProgressSliderView *slider, double seconds) override
        {
            note("begin", seconds);
            slider->setEnabled(false);
        }
    };
    const auto refuser = std::make_shared<Refuser>();
    m_slider->setDelegate(refuser);
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    QCOMPARE(refuser->heard, QStringList({"begin 10", "end 0"}));
    QVERIFY(!m_slider->isDragging());
}

void tst_ProgressSlider::wheelAndKeysRestDuringADrag()
{
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(10));
    QTest::keyClick(m_slider.get(), Qt::Key_Right);
    QWheelEvent turn(
        at(10), m_slider->mapToGlobal(at(10)), {}, {0, 120}, Qt::LeftButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_slider.get(), &turn);
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, at(10));
    QCOMPARE(heard(), movementTo(10));
}

void tst_ProgressSlider::tipTellsTheTimeUnderThePointer()
{
    QTest::mouseMove(m_slider.get(), at(75));
    QTRY_COMPARE(QToolTip::text(), "1:15");
    m_slider->setTimeText([](double seconds) { return QStringLiteral("<%1>").arg(std::lround(seconds)); });
    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, at(20));
    QCOMPARE(QToolTip::text(), "<20>");
    QTest::mouseMove(m_slider.get(), at(30));
    QCOMPARE(QToolTip::text(), "<30>");
    QTest::mouseMove(m_slider.get(), QPoint(5000, 5));
    QCOMPARE(QToolTip::text(), "<100>"); // outside it is the end
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, QPoint(5000, 5));
    QHelpEvent ask(QEvent::ToolTip, at(40), m_slider->mapToGlobal(at(40)));
    QVERIFY(QCoreApplication::sendEvent(m_slider.get(), &ask));
    QToolTip::hideText();
}

void tst_ProgressSlider::unmovedMarkIsNotPaintedAgain()
{
    m_slider->setDCurValue(10);
    QTRY_VERIFY(m_slider->paints > 0);
    QCoreApplication::processEvents();
    const int before = m_slider->paints;
    for (int tick = 0; tick < 4; ++tick)
        m_slider->setDCurValue(10 + tick * 0.01); // a tenth of a pixel each
    QCoreApplication::processEvents();
    QCOMPARE(m_slider->paints, before);
    m_slider->setDCurValue(10.2);
    QTRY_COMPARE(m_slider->paints, before + 1);
}

void tst_ProgressSlider::placesAndSecondsAgree()
{
    for (const double seconds : {0.0, 12.5, 99.9, 100.0})
        QVERIFY(qAbs(m_slider->secondsAt(m_slider->xAt(seconds)) - seconds) < 1e-9);
}

void tst_ProgressSlider::readersSeeASlider()
{
    m_slider->setAccessibleName("Position");
    m_slider->setDCurValue(40);
    QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(m_slider.get());
    QVERIFY(reader != nullptr);
    QCOMPARE(reader->role(), QAccessible::Slider);
    QCOMPARE(reader->text(QAccessible::Name), "Position");
    QAccessibleValueInterface *const value = reader->valueInterface();
    QVERIFY(value != nullptr);
    QCOMPARE(value->currentValue().toDouble(), 40.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);
    QCOMPARE(reader->text(QAccessible::Value), "0:40");
    value->setCurrentValue(60.0);
    QCOMPARE(heard(), movementTo(60));
}

QTEST_MAIN(tst_ProgressSlider)
#include "tst_progress_slider.moc"
