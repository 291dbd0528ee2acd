// SPDX-License-Identifier: MIT
#include "kit/NoticeView.h"
#include "kit/Theme.h"
#include "support/QtWarnings.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

// What screen readers were alerted to.
QStringList alerted;

// A desktop that animates, or one that asks for less.
class AnimationStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? millis
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

    int millis = 0;
};

} // namespace

// The offscreen platform has no screen reader, and the toolkit asks nobody then. The notice sends
// its events here instead.
void QAccessible::updateAccessibility(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::Alert)
        alerted.append(event->accessibleInterface()->text(QAccessible::Name));
}

class tst_NoticeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void liesOverTheLowerEdge();
    void goesByItselfAfterSomeSeconds();
    void longTextsStayLonger();
    void nextMessageTakesItsPlace();
    void clickTakesItAway();
    void emptyTextTakesItAway();
    void staysWhileTheMouseIsOnIt();
    void neverTakesTheFocus();
    void clicksBesideItReachWhatIsBeneath();
    void movesWithItsParent();
    void wrapsInANarrowParent();
    void textIsNoMarkup();
    void readableInLightAndDark_data();
    void readableInLightAndDark();
    void screenReadersAreTold();
    void fadesOnlyWhereTheDesktopAnimates();
    void eachWidgetHasItsOwn();
    void nothingToLieOver();
    void goesWithItsParent();

private:
    [[nodiscard]] NoticeView *notice() const { return m_window->findChild<NoticeView *>(); }
    [[nodiscard]] QTimer *timer() const { return notice()->findChild<QTimer *>(); }
    void say(const QString &text) { NoticeView::show(m_window.get(), text); }

    AnimationStyle *m_style = nullptr;
    std::unique_ptr<QWidget> m_window;
    QPushButton *m_button = nullptr;
    QLineEdit *m_field = nullptr;
};

void tst_NoticeView::initTestCase()
{
    m_style = new AnimationStyle;
    QApplication::setStyle(m_style);
}

void tst_NoticeView::init()
{
    support::failOnUnexpectedWarnings();
    m_style->millis = 0;
    m_window = std::make_unique<QWidget>();
    m_window->resize(600, 300);
    m_button = new QPushButton("beneath", m_window.get());
    m_button->setGeometry(0, 0, 600, 300);
    m_field = new QLineEdit(m_window.get());
    m_field->setGeometry(10, 10, 100, 30);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_field->setFocus();
}

void tst_NoticeView::cleanup()
{
    m_window.reset();
}

void tst_NoticeView::liesOverTheLowerEdge()
{
    QVERIFY(NoticeView::currentText(m_window.get()).isNull());
    say("2 times were cut at 00:00.00");
    QCOMPARE(NoticeView::currentText(m_window.get()), "2 times were cut at 00:00.00");
    QVERIFY(notice()->isVisible());
    const QRect frame = notice()->geometry();
    QVERIFY(m_window->rect().contains(frame));
    QVERIFY(qAbs(frame.center().x() - m_window->rect().center().x()) <= 1);
    QCOMPARE(m_window->height() - 1 - frame.bottom(), kit::kSpacingLarge);
    QVERIFY(frame.height() < 60);
    QVERIFY(frame.width() < 400);
}

void tst_NoticeView::goesByItselfAfterSomeSeconds()
{
    say("gone soon");
    QVERIFY(timer()->isActive());
    QVERIFY(timer()->isSingleShot());
    QVERIFY(timer()->interval() >= 4000 && timer()->interval() < 6000);
    const QPointer<NoticeView> shown = notice();
    timer()->start(0); // the seconds pass
    QTRY_VERIFY(shown.isNull());
    QVERIFY(NoticeView::currentText(m_window.get()).isNull());
}

void tst_NoticeView::longTextsStayLonger()
{
    say("short");
    const int shortly = timer()->interval();
    say(QString(60, 'x'));
    QVERIFY(timer()->interval() > shortly + 3000);
    say(QString(6000, 'x'));
    QCOMPARE(timer()->interval(), 12'000);
}

void tst_NoticeView::nextMessageTakesItsPlace()
{
    say("first");
    say("the second one is longer");
    QCOMPARE(m_window->findChildren<NoticeView *>().size(), 1);
    QCOMPARE(NoticeView::currentText(m_window.get()), "the second one is longer");
    QVERIFY(notice()->width() > notice()->fontMetrics().horizontalAdvance("the second one is longer"));
}

void tst_NoticeView::clickTakesItAway()
{
    say("click me");
    const QPointer<NoticeView> shown = notice();
    QSignalSpy clicks(m_button, &QPushButton::clicked);
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, shown->geometry().center());
    QVERIFY(NoticeView::currentText(m_window.get()).isNull());
    QTRY_VERIFY(shown.isNull());
    QCOMPARE(clicks.size(), 0);
    say("one more");
    QCOMPARE(NoticeView::currentText(m_window.get()), "one more");
}

void tst_NoticeView::emptyTextTakesItAway()
{
    say("shown");
    say(QString());
    QVERIFY(NoticeView::currentText(m_window.get()).isNull());
    say(QString()); // nothing is there, nothing comes
    QVERIFY(NoticeView::currentText(m_window.get()).isNull());
}

void tst_NoticeView::staysWhileTheMouseIsOnIt()
{
    say("read me slowly");
    const QPoint on = notice()->rect().center();
    QEnterEvent enter(on, on, on);
    QApplication::sendEvent(notice(), &enter);
    QVERIFY(!timer()->isActive());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(notice(), &leave);
    QVERIFY(timer()->isActive());
}

void tst_NoticeView::neverTakesTheFocus()
{
    say("not me");
    QCOMPARE(notice()->focusPolicy(), Qt::NoFocus);
    QVERIFY(m_field->hasFocus());
    QVERIFY(m_window->isActiveWindow());
    QTest::keyClicks(QApplication::focusWidget(), "abc");
    QCOMPARE(m_field->text(), "abc");
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, notice()->geometry().center());
    QVERIFY(m_field->hasFocus());
}

void tst_NoticeView::clicksBesideItReachWhatIsBeneath()
{
    say("small");
    const QRect frame = notice()->geometry();
    QSignalSpy clicks(m_button, &QPushButton::clicked);
    for (const QPoint &place :
        {QPoint(frame.left() - 2, frame.center().y()), QPoint(frame.right() + 2, frame.center().y()),
            QPoint(frame.center().x(), frame.top() - 2), QPoint(frame.center().x(), frame.bottom() + 2)}) {
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, place);
    }
    QCOMPARE(clicks.size(), 4);
    QCOMPARE(NoticeView::currentText(m_window.get()), "small");
}

void tst_NoticeView::movesWithItsParent()
{
    say("follows");
    m_window->resize(900, 500);
    QTRY_COMPARE(m_window->height() - 1 - notice()->geometry().bottom(), kit::kSpacingLarge);
    QVERIFY(qAbs(notice()->geometry().center().x() - m_window->rect().center().x()) <= 1);
}

void tst_NoticeView::wrapsInANarrowParent()
{
    say("A text of several words that fits one line of a wide window");
    const int oneLine = notice()->height();
    m_window->setMinimumSize(1, 1);
    m_window->resize(180, 300);
    QTRY_VERIFY(notice()->width() <= 180 - 2 * kit::kSpacingLarge);
    QVERIFY(notice()->height() > oneLine);
    QVERIFY(m_window->rect().contains(notice()->geometry()));
    m_window->resize(30, 30); // no room at all
    QTRY_VERIFY(notice()->height() <= 30);
}

void tst_NoticeView::textIsNoMarkup()
{
    say("<b>a</b> & b");
    const QImage shown = notice()->grab().toImage();
    say("a & b");
    QVERIFY(notice()->grab().toImage() != shown);
    QCOMPARE(notice()->accessibleName(), "a & b");
}

void tst_NoticeView::readableInLightAndDark_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("ink");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(0x1e, 0x1f, 0x22) << QColor(0xe6, 0xe6, 0xe6);
}

void tst_NoticeView::readableInLightAndDark()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, ink);
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, ink);
    m_window->setPalette(palette);
    say("MMMM");
    const QImage shown = notice()->grab().toImage();
    const QColor panel = shown.pixelColor(shown.width() / 2, 4);
    double best = 1.0;
    for (int x = 0; x < shown.width(); ++x)
        best = std::max(best, kit::contrastRatio(panel, shown.pixelColor(x, shown.height() / 2)));
    QVERIFY2(best >= 4.5, qPrintable(QString::number(best)));
    const QColor outline = shown.pixelColor(shown.width() / 2, 0);
    QVERIFY(kit::contrastRatio(ground, outline) >= 2.9);
}

void tst_NoticeView::screenReadersAreTold()
{
    alerted.clear();
    say("told aloud");
    QCOMPARE(alerted, QStringList{"told aloud"});
    QCOMPARE(QAccessible::queryAccessibleInterface(notice())->role(), QAccessible::AlertMessage);
    say("and once more");
    QCOMPARE(alerted, (QStringList{"told aloud", "and once more"}));
}

void tst_NoticeView::fadesOnlyWhereTheDesktopAnimates()
{
    say("still");
    QCOMPARE(notice()->findChild<QVariantAnimation *>()->state(), QAbstractAnimation::Stopped);
    say(QString());
    QTRY_VERIFY(notice() == nullptr);
    m_style->millis = 200;
    say("moving");
    QCOMPARE(notice()->findChild<QVariantAnimation *>()->state(), QAbstractAnimation::Running);
    QTRY_COMPARE(notice()->findChild<QVariantAnimation *>()->state(), QAbstractAnimation::Stopped);
}

void tst_NoticeView::eachWidgetHasItsOwn()
{
    say("of the window");
    NoticeView::show(m_button, "of the button");
    QCOMPARE(NoticeView::currentText(m_window.get()), "of the window");
    QCOMPARE(NoticeView::currentText(m_button), "of the button");
}

void tst_NoticeView::nothingToLieOver()
{
    NoticeView::show(nullptr, "nowhere");
    QVERIFY(NoticeView::currentText(nullptr).isNull());
}

void tst_NoticeView::goesWithItsParent()
{
    say("short life");
    const QPointer<NoticeView> shown = notice();
    m_window.reset();
    QVERIFY(shown.isNull());
}

QTEST_MAIN(tst_NoticeView)
#include "tst_notice_view.moc"
