// SPDX-License-Identifier: MIT
#include "kit/ViewController.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QProxyStyle>

namespace {

// A desktop that animates, or one that asks for less.
class AnimationStyle : public QProxyStyle
{
public:
    explicit AnimationStyle(int millis) : m_millis(millis) { }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? m_millis
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int m_millis;
};

} // namespace

class Plain : public kit::ViewController
{
    Q_OBJECT

public:
    explicit Plain(Qt::GlobalColor color) : m_color(color) { }
    int layouts = 0;

protected:
    void loadView() override
    {
        auto *const view = new QWidget;
        QPalette palette;
        palette.setColor(QPalette::Window, m_color);
        view->setPalette(palette);
        view->setAutoFillBackground(true);
        setView(view);
    }
    void viewWillLayout() override { ++layouts; }

private:
    Qt::GlobalColor m_color;
};

class Unloadable : public kit::ViewController
{
    Q_OBJECT

protected:
    void loadView() override { }
};

class tst_Transition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new AnimationStyle(200)); }
    void init();
    void cleanup();

    void swapIsCompleteOnReturn();
    void keepsTheStacking();
    void takesTheCellOfALayout();
    void newViewOfAHiddenWindowIsReady();
    void fadeShowsBothPicturesAndEnds();
    void noFadeWhenNothingIsOnScreen();
    void noFadeWhenTheDesktopAsksForNone();
    void resizeEndsTheFade();
    void secondTransitionInItsMiddle();
    void destructionInItsMiddle();
    void refusedWithoutAPlaceOrAView();

private:
    void swap(const std::shared_ptr<kit::ViewController> &from,
        const std::shared_ptr<kit::ViewController> &to, kit::Transition kind = kit::Transition::CrossFade)
    {
        m_parent->transitionFromViewController_toViewController_options_completionHandler(
            from, to, kind, [this] { ++m_completions; });
    }
    [[nodiscard]] QWidget *overlay() const { return m_window->findChild<QWidget *>("crossFade"); }
    [[nodiscard]] QColor middle() const { return m_window->grab().toImage().pixelColor(200, 100); }

    std::unique_ptr<QWidget> m_window;
    std::shared_ptr<Plain> m_parent, m_red, m_blue;
    int m_completions = 0;
};

void tst_Transition::init()
{
    support::failOnUnexpectedWarnings();
    m_completions = 0;
    m_window = std::make_unique<QWidget>();
    m_window->resize(400, 200);
    m_parent = std::make_shared<Plain>(Qt::white);
    m_red = std::make_shared<Plain>(Qt::red);
    m_blue = std::make_shared<Plain>(Qt::blue);
    m_red->view()->setParent(m_window.get());
    m_red->view()->setGeometry(10, 20, 380, 170);
    m_red->view()->show();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_Transition::cleanup()
{
    m_parent.reset();
    m_red.reset();
    m_blue.reset();
    m_window.reset();
}

void tst_Transition::swapIsCompleteOnReturn()
{
    swap(m_red, m_blue);
    QWidget *const red = m_red->view();
    QWidget *const blue = m_blue->view();
    QVERIFY(red->parentWidget() == nullptr);
    QVERIFY(red->isHidden());
    QCOMPARE(blue->parentWidget(), m_window.get());
    QCOMPARE(blue->geometry(), QRect(10, 20, 380, 170));
    QVERIFY(blue->isVisible());
    QVERIFY(m_blue->layouts > 0);
    QCOMPARE(m_completions, 0); // a picture is fading
    QTRY_COMPARE(m_completions, 1);
}

void tst_Transition::keepsTheStacking()
{
    QWidget below(m_window.get());
    QWidget above(m_window.get());
    below.lower();
    above.raise();
    swap(m_red, m_blue, kit::Transition::None);
    const QObjectList order = m_window->children();
    QVERIFY(order.indexOf(&below) < order.indexOf(m_blue->view()));
    QVERIFY(order.indexOf(m_blue->view()) < order.indexOf(&above));
}

void tst_Transition::takesTheCellOfALayout()
{
    auto *const row = new QHBoxLayout(m_window.get());
    row->addWidget(m_red->view());
    swap(m_red, m_blue, kit::Transition::None);
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), m_blue->view());
}

void tst_Transition::newViewOfAHiddenWindowIsReady()
{
    m_window->hide();
    swap(m_red, m_blue);
    QCOMPARE(m_completions, 1);
    QVERIFY(!m_blue->view()->isHidden());
    m_window->show();
    QVERIFY(m_blue->view()->isVisible());
}

void tst_Transition::fadeShowsBothPicturesAndEnds()
{
    swap(m_red, m_blue);
    QVERIFY(overlay() != nullptr);
    QCOMPARE(overlay()->geometry(), m_blue->view()->geometry());
    const QColor early = middle();
    QVERIFY2(early.red() > 0, qPrintable(early.name())); // the old picture is still to be seen
    QTRY_VERIFY(overlay() == nullptr);
    QCOMPARE(middle(), QColor(Qt::blue));
    QCOMPARE(m_completions, 1);
}

void tst_Transition::noFadeWhenNothingIsOnScreen()
{
    m_red->view()->hide();
    swap(m_red, m_blue);
    QVERIFY(overlay() == nullptr);
    QVERIFY(m_blue->view()->isHidden()); // it is where the other one was: not on screen
    QCOMPARE(m_completions, 1);
}

void tst_Transition::noFadeWhenTheDesktopAsksForNone()
{
    AnimationStyle still(0);
    m_red->view()->setStyle(&still);
    swap(m_red, m_blue);
    QVERIFY(overlay() == nullptr);
    QCOMPARE(m_completions, 1);
    m_red->view()->setStyle(nullptr);
}

void tst_Transition::resizeEndsTheFade()
{
    swap(m_red, m_blue);
    m_blue->view()->resize(100, 50);
    QCOMPARE(m_completions, 1);
    QCOMPARE(middle(), m_window->palette().color(QPalette::Window));
}

void tst_Transition::secondTransitionInItsMiddle()
{
    swap(m_red, m_blue);
    swap(m_blue, m_red);
    QCOMPARE(m_completions, 1); // the first one has ended
    QVERIFY(m_blue->view()->parentWidget() == nullptr);
    QCOMPARE(m_red->view()->parentWidget(), m_window.get());
    QTRY_COMPARE(m_completions, 2);
    QCOMPARE(middle(), QColor(Qt::red));
}

void tst_Transition::destructionInItsMiddle()
{
    swap(m_red, m_blue);
    m_red.reset();
    m_window.reset();
    QVERIFY(m_blue->view() == nullptr);
    QCOMPARE(m_completions, 1); // the window hides before it dies
}

void tst_Transition::refusedWithoutAPlaceOrAView()
{
    QWidget *const red = m_red->view();
    swap(m_red, nullptr);
    swap(nullptr, m_blue);
    swap(m_red, m_red);
    swap(m_blue, m_red); // the first has no parent
    QTest::ignoreMessage(QtWarningMsg, "no view for Unloadable");
    swap(m_red, std::make_shared<Unloadable>());
    QCOMPARE(red->parentWidget(), m_window.get());
    QVERIFY(red->isVisible());
    QCOMPARE(m_completions, 5);
}

QTEST_MAIN(tst_Transition)
#include "tst_transition.moc"
