// SPDX-License-Identifier: MIT
#include "support/QtWarnings.h"
#include "views/LyricLayout.h"
#include "views/RBMenuDisabledTextView.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QScrollBar>

#include <cmath>
#include <numeric>
#include <random>

namespace {

/// A desktop that asks for motion, or for none.
class Motion : public QProxyStyle
{
public:
    explicit Motion(bool wanted) : m_wanted(wanted) { }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? (m_wanted ? 200 : 0)
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    bool m_wanted;
};

/// Lines of which every seventh is so long that it wraps.
QString lines(int count)
{
    QStringList all;
    for (int line = 0; line < count; ++line)
        all.append(
            QString("line %1").arg(line) + QString(line % 7 == 3 ? 90 : 0, u'w').replace("www", "ww "));
    return all.join(u'\n');
}

std::shared_ptr<views::LyricText> plain(const QString &text)
{
    return std::make_shared<views::PlainLyricText>(text);
}

struct OnScreen
{
    explicit OnScreen(bool motion = false) : style(motion)
    {
        view.setStyle(&style);
        view.resize(400, 300);
        view.show();
    }
    /// Makes line `line` current, as a player does.
    void show(int line)
    {
        const QStringList all = view.toPlainText().split(u'\n');
        int location = 0;
        for (int i = 0; i < line; ++i)
            location += int(all.at(i).size()) + 1;
        view.setSelectedRange({location, int(all.at(line).size())});
        view.scrollSelectionIntoView();
    }
    [[nodiscard]] bool isInMiddleThird() const
    {
        const int height = view.viewport()->height();
        const QRect rect = view.selectedLineRect();
        return rect.top() >= height / 3 && rect.bottom() < height - height / 3;
    }

    Motion style;
    RBMenuDisabledTextView view;
};

} // namespace

class tst_LyricView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void heightsAreThoseThatWereSet();
    void linesAreFoundByCharacter();
    void rowsAreHigherThanTheirLetters();
    void onlyWhatIsAskedForIsLaidOut();
    void theFirstLineBeginsInTheMiddleThird();
    void everyLineStandsInTheMiddleThird();
    void aLineHigherThanTheViewIsReadFromItsBeginning();
    void resizingKeepsTheLineInTheMiddle();
    void itGlidesWhereTheDesktopAnimates();
    void linesFasterThanTheGlideStayInSight();
    void itGoesAtOnceWhereTheDesktopDoesNot();
    void itGoesFarAwayAtOnce();
    void theWheelEndsAGlide();
    void theWheelScrollsNothingBeneath();
    void theSameSelectionIsNotDrawnAgain();
    void onlyTheLinesThatChangeAreDrawn();
    void aRangeBehindTheTextIsCut();
    void aNewTextBeginsAtItsBeginning();
    void screenReadersHearTheLine();
};

void tst_LyricView::heightsAreThoseThatWereSet()
{
    std::mt19937 random(7);
    for (const int count : {1, 2, 3, 8, 100}) {
        views::LineHeights heights;
        heights.reset(count, 20);
        std::vector<int> expected(std::size_t(count), 20);
        for (int round = 0; round < 200; ++round) {
            const auto line = int(random() % unsigned(count));
            expected[std::size_t(line)] = 1 + int(random() % 90U);
            heights.setHeight(line, expected[std::size_t(line)]);
            const int total = std::accumulate(expected.begin(), expected.end(), 0);
            QCOMPARE(heights.total(), total);
            const int top = std::accumulate(expected.begin(), expected.begin() + line, 0);
            QCOMPARE(heights.top(line), top);
            QCOMPARE(heights.height(line), expected[std::size_t(line)]);
            QCOMPARE(heights.lineAt(top), line);
            QCOMPARE(heights.lineAt(top + expected[std::size_t(line)] - 1), line);
            QCOMPARE(heights.lineAt(-5), 0);
            QCOMPARE(heights.lineAt(total + 5), count - 1);
        }
    }
    QCOMPARE(views::LineHeights().lineAt(0), -1);
    QCOMPARE(views::LineHeights().total(), 0);
}

void tst_LyricView::linesAreFoundByCharacter()
{
    views::LyricLayout layout;
    layout.setText(plain("ab\n\ncde"));
    layout.setLook(QFont(), 300, Qt::AlignLeft);
    QCOMPARE(layout.lineCount(), 3);
    QCOMPARE(layout.rangeOfLine(0), (views::TextRange{0, 2}));
    QCOMPARE(layout.rangeOfLine(1), (views::TextRange{3, 0}));
    QCOMPARE(layout.rangeOfLine(2), (views::TextRange{4, 3}));
    const QList<int> lineOf = {0, 0, 0, 1, 2, 2, 2, 2};
    for (int position = 0; position < lineOf.size(); ++position)
        QCOMPARE(layout.lineOf(position), lineOf.at(position));
    layout.setText(plain(QString()));
    QCOMPARE(layout.lineCount(), 1);
    QCOMPARE(layout.rangeOfLine(0), views::TextRange());
}

void tst_LyricView::rowsAreHigherThanTheirLetters()
{
    QFont font;
    font.setPixelSize(16);
    views::LyricLayout layout;
    layout.setText(plain("one\n" + QString(300, u'm')));
    layout.setLook(font, 300, Qt::AlignLeft);
    QVERIFY(layout.layOut(0, 1)); // the second is more than a row
    const int row = int(std::lround(QFontMetrics(font).height() * 1.2));
    QCOMPARE(layout.heightOf(0), row);
    QVERIFY(layout.heightOf(1) >= 5 * row);
    QCOMPARE(layout.heightOf(1) % row, 0);
    QCOMPARE(layout.top(1), row);
}

void tst_LyricView::onlyWhatIsAskedForIsLaidOut()
{
    views::LyricLayout layout;
    layout.setText(plain(lines(100000)));
    layout.setLook(QFont(), 300, Qt::AlignLeft);
    QCOMPARE(layout.lineCount(), 100000);
    QCOMPARE(layout.laidOutLines(), 0U);
    layout.layOut(500, 520);
    QCOMPARE(layout.laidOutLines(), 21U);
    const int height = layout.heightOf(507);
    layout.keepOnly(510, 515);
    QCOMPARE(layout.laidOutLines(), 6U);
    QCOMPARE(layout.heightOf(507), height);
    layout.setLook(QFont(), 300, Qt::AlignLeft); // the same
    QCOMPARE(layout.laidOutLines(), 6U);
    layout.setLook(QFont(), 301, Qt::AlignLeft);
    QCOMPARE(layout.laidOutLines(), 0U);
}

void tst_LyricView::theFirstLineBeginsInTheMiddleThird()
{
    OnScreen screen;
    screen.view.setPlainText("one\ntwo");
    QCOMPARE(screen.view.selectedLineRect().top(), 100);
    QVERIFY(screen.isInMiddleThird());
}

void tst_LyricView::everyLineStandsInTheMiddleThird()
{
    for (const QSize size : {QSize(400, 300), QSize(300, 401), QSize(900, 620)}) {
        OnScreen screen;
        screen.view.resize(size);
        screen.view.setPlainText(lines(60));
        for (int line = 0; line < 60; ++line) {
            screen.show(line);
            QVERIFY2(screen.isInMiddleThird(), qPrintable(QString::number(line)));
        }
        for (int line = 59; line >= 0; line -= 11) {
            screen.show(line);
            QVERIFY2(screen.isInMiddleThird(), qPrintable(QString::number(line)));
        }
    }
}

void tst_LyricView::aLineHigherThanTheViewIsReadFromItsBeginning()
{
    OnScreen screen;
    screen.view.setPlainText("one\ntwo\n" + QString(3000, u'm') + "\nfour");
    screen.show(2);
    QVERIFY(screen.view.selectedLineRect().height() > 300);
    QCOMPARE(screen.view.selectedLineRect().top(), 0);
}

void tst_LyricView::resizingKeepsTheLineInTheMiddle()
{
    OnScreen screen;
    screen.view.setPlainText(lines(200));
    screen.show(90);
    for (const QSize size : {QSize(250, 300), QSize(250, 600), QSize(800, 240), QSize(480, 330)}) {
        screen.view.resize(size);
        QVERIFY2(screen.isInMiddleThird(), qPrintable(QString::number(size.width())));
    }
}

void tst_LyricView::itGlidesWhereTheDesktopAnimates()
{
    OnScreen screen(true);
    screen.view.setPlainText(lines(60));
    screen.show(12);
    QVERIFY(screen.view.isGliding());
    QCOMPARE(screen.view.verticalScrollBar()->value(), 0); // on the way
    QVERIFY(screen.isInMiddleThird()); // where it goes to
    QTRY_VERIFY(!screen.view.isGliding());
    QVERIFY(screen.isInMiddleThird());
    QVERIFY(screen.view.verticalScrollBar()->value() > 0);
    // The next line before the last one has come: on to that one.
    screen.show(13);
    screen.show(14);
    QTRY_VERIFY(!screen.view.isGliding());
    QVERIFY(screen.isInMiddleThird());
}

void tst_LyricView::linesFasterThanTheGlideStayInSight()
{
    OnScreen screen(true);
    screen.view.setPlainText(lines(200));
    for (int line = 10; line < 100; ++line)
        screen.show(line); // none has the time to glide
    const int seen = screen.view.verticalScrollBar()->value();
    QTRY_VERIFY(!screen.view.isGliding());
    const int due = screen.view.verticalScrollBar()->value();
    QVERIFY2(std::abs(due - seen) < screen.view.viewport()->height() / 3,
        qPrintable(QStringLiteral("%1 instead of %2").arg(seen).arg(due)));
}

void tst_LyricView::itGoesAtOnceWhereTheDesktopDoesNot()
{
    OnScreen screen;
    screen.view.setPlainText(lines(60));
    screen.show(12);
    QVERIFY(!screen.view.isGliding());
    QVERIFY(screen.view.verticalScrollBar()->value() > 0);
    QVERIFY(screen.isInMiddleThird());
}

void tst_LyricView::itGoesFarAwayAtOnce()
{
    OnScreen screen(true);
    screen.view.setPlainText(lines(1000));
    screen.show(900);
    QVERIFY(!screen.view.isGliding());
    QVERIFY(screen.isInMiddleThird());
}

namespace {

void turnWheel(QWidget *widget, int angle)
{
    const QPointF place(50, 50);
    QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, angle}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

void tst_LyricView::theWheelEndsAGlide()
{
    OnScreen screen(true);
    screen.view.setPlainText(lines(60));
    screen.show(12);
    turnWheel(screen.view.viewport(), -120);
    QVERIFY(!screen.view.isGliding());
    const int there = screen.view.verticalScrollBar()->value();
    QVERIFY(there > 0);
    screen.show(13); // and the next line takes it back
    QTRY_VERIFY(!screen.view.isGliding());
    QVERIFY(screen.isInMiddleThird());
}

void tst_LyricView::theWheelScrollsNothingBeneath()
{
    class Parent : public QWidget
    {
    public:
        int turns = 0;

    protected:
        void wheelEvent(QWheelEvent *) override { ++turns; }
    } parent;
    RBMenuDisabledTextView view(&parent);
    view.resize(300, 200);
    view.setPlainText("short");
    parent.show();
    turnWheel(view.viewport(), 120);
    turnWheel(view.viewport(), -120);
    QCOMPARE(parent.turns, 0);
}

namespace {

/// The area of each paint of a widget.
class Paints : public QObject
{
public:
    explicit Paints(QWidget *widget) : QObject(widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            areas.append(static_cast<QPaintEvent *>(event)->rect());
        return false;
    }
    QList<QRect> areas;
};

} // namespace

void tst_LyricView::theSameSelectionIsNotDrawnAgain()
{
    OnScreen screen;
    screen.view.setPlainText(lines(10));
    screen.view.setSelectedRange({0, 6});
    QApplication::processEvents();
    Paints paints(screen.view.viewport());
    screen.view.setSelectedRange({0, 6});
    QApplication::processEvents();
    QVERIFY(paints.areas.isEmpty());
}

void tst_LyricView::onlyTheLinesThatChangeAreDrawn()
{
    OnScreen screen;
    screen.view.setPlainText("one\ntwo\nthree\nfour");
    screen.view.setSelectedRange({0, 3});
    QApplication::processEvents();
    Paints paints(screen.view.viewport());
    const int row = screen.view.selectedLineRect().height();
    screen.view.setSelectedRange({4, 3});
    QApplication::processEvents();
    QCOMPARE(paints.areas, (QList<QRect>{QRect(0, 100, 400, 2 * row)}));
}

void tst_LyricView::aRangeBehindTheTextIsCut()
{
    OnScreen screen;
    screen.view.setPlainText("one\ntwo");
    screen.view.setSelectedRange({4, 100});
    QCOMPARE(screen.view.selectedText(), "two");
    screen.view.setSelectedRange({100, 3});
    QCOMPARE(screen.view.selectedRange(), (views::TextRange{7, 0}));
    screen.view.setSelectedRange({-3, 5});
    QCOMPARE(screen.view.selectedRange().location, 0);
}

void tst_LyricView::aNewTextBeginsAtItsBeginning()
{
    OnScreen screen;
    screen.view.setPlainText(lines(60));
    screen.show(50);
    screen.view.setPlainText(lines(60)); // also where lines turn out to be higher than a row
    QCOMPARE(screen.view.verticalScrollBar()->value(), 0);
    screen.view.setPlainText("other\ntext");
    QCOMPARE(screen.view.selectedRange(), views::TextRange());
    QCOMPARE(screen.view.verticalScrollBar()->value(), 0);
    QCOMPARE(screen.view.toPlainText(), "other\ntext");
}

void tst_LyricView::screenReadersHearTheLine()
{
    OnScreen screen;
    screen.view.setPlainText("one\ntwo");
    screen.view.setSelectedRange({4, 3});
    QAccessibleInterface *const told = QAccessible::queryAccessibleInterface(&screen.view);
    QVERIFY(told != nullptr);
    QCOMPARE(told->role(), QAccessible::Document);
    QCOMPARE(told->text(QAccessible::Value), "two");
    QCOMPARE(told->text(QAccessible::Description), "one\ntwo");
    QVERIFY(told->state().readOnly);
}

QTEST_MAIN(tst_LyricView)
#include "tst_lyric_view.moc"
