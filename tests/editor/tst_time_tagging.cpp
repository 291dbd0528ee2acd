// SPDX-License-Identifier: MIT
#include "EditorOnScreen.h"
#include "support/QtWarnings.h"
#include "views/RBNoResponseTextFiled.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

#include <limits>

namespace {

QByteArray numberedLines(int count)
{
    QByteArray text;
    for (int line = 0; line < count; ++line) {
        text += QByteArray::number(line) + '\n';
    }
    return text;
}

} // namespace

class TimeTagging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void labelReadsZeroBeforeTheFirstTick()
    {
        EditorOnScreen screen;
        QCOMPARE(screen.editor->lblTabTime()->text(), QStringLiteral("[00:00.00]"));
    }

    void secondsBecomeMillisecondsByTruncation_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::newRow("01:23.46") << 83.456;
        QTest::newRow("01:23.46 ") << 83.4569;
        QTest::newRow("00:01.00") << 1.001;
        QTest::newRow("01:00.00") << 59.996;
        QTest::newRow("123:45.67") << 7425.67;
        QTest::newRow("00:00.00") << -3.0;
        QTest::newRow("00:00.00 ") << std::numeric_limits<double>::quiet_NaN();
    }

    void secondsBecomeMillisecondsByTruncation()
    {
        QFETCH(double, seconds);
        EditorOnScreen screen;
        screen.editor->updatePlayerProgress(seconds);
        QCOMPARE(screen.editor->lblTabTime()->text(),
            QLatin1Char('[') + QString::fromLatin1(QTest::currentDataTag()).trimmed() + QLatin1Char(']'));
    }

    void stampGoesToTheSelectedLineAndMovesOn()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\n");
        screen.editor->updatePlayerProgress(12.34);
        const int before = screen.host->changes;
        screen.editor->insertTimeTag();
        QCOMPARE(screen.container->told, QStringList({QStringLiteral("tryToPlay")}));
        QCOMPARE(screen.times(0), QList<std::int64_t>({12340}));
        QCOMPARE(screen.table()->selectedRow(), 1);
        QCOMPARE(screen.host->changes, before + 1);
        QCOMPARE(screen.host->selections.last(), QPoint(0, 1));
        QCOMPARE(screen.editor->songText(), QByteArray("[00:12.34]one\ntwo\n"));
    }

    void aSecondStampIsAppendedAndMakesAColumn()
    {
        EditorOnScreen screen;
        screen.load("[00:30.00]one\ntwo\n");
        screen.editor->updatePlayerProgress(10.0);
        screen.editor->insertTimeTag();
        QCOMPARE(screen.times(0), QList<std::int64_t>({30000, 10000}));
        QCOMPARE(screen.columnIdentifiers(),
            QStringList({QStringLiteral("number"), QStringLiteral("time1"), QStringLiteral("time2"),
                QStringLiteral("text")}));
    }

    void stampOnTheEmptyDocumentMakesAndStampsItsFirstLine()
    {
        EditorOnScreen screen;
        screen.editor->updatePlayerProgress(1.5);
        screen.editor->insertTimeTag();
        // The table selects the line that fills it, so the stamp has somewhere to go.
        QCOMPARE(screen.editor->songLinesNum(), 2);
        QCOMPARE(screen.times(0), QList<std::int64_t>({1500}));
        QCOMPARE(screen.table()->selectedRow(), 1);
    }

    void stampOnTheLastLineAppendsAnEmptyOne()
    {
        EditorOnScreen screen;
        screen.load(numberedLines(30));
        screen.table()->selectSingleRow(29);
        screen.editor->updatePlayerProgress(2.0);
        screen.editor->insertTimeTag();
        QCOMPARE(screen.times(29), QList<std::int64_t>({2000}));
        QCOMPARE(screen.editor->songLinesNum(), 31);
        QCOMPARE(screen.text(30), "");
        QCOMPARE(screen.table()->selectedRow(), 30);
        QVERIFY(screen.table()->viewport()->rect().contains(
            screen.table()->visualRect(screen.table()->model()->index(30, 0))));
    }

    void fiveLinesOfLookAheadAreScrolledIntoView()
    {
        EditorOnScreen screen;
        screen.view->resize(900, 64 + 30 + 32 * 6);
        screen.load(numberedLines(20));
        screen.table()->selectSingleRow(3);
        screen.editor->insertTimeTag();
        QCOMPARE(screen.table()->selectedRow(), 4);
        const auto inView = [&screen](int row) {
            return screen.table()->viewport()->rect().contains(
                screen.table()->visualRect(screen.table()->model()->index(row, 0)));
        };
        QVERIFY(inView(9));
        QVERIFY(!inView(11));
    }

    void lookAheadEndsAtTheLastRow()
    {
        EditorOnScreen screen;
        screen.load(numberedLines(6));
        screen.table()->selectSingleRow(3);
        screen.editor->insertTimeTag();
        QCOMPARE(screen.editor->songLinesNum(), 6);
        QVERIFY(screen.table()->viewport()->rect().contains(
            screen.table()->visualRect(screen.table()->model()->index(5, 0))));
    }

    void severalSelectedStampTheLastAddedAndMoveBelowTheLowest()
    {
        EditorOnScreen screen;
        screen.load(numberedLines(10));
        screen.table()->selectSingleRow(4);
        screen.addRow(3);
        screen.addRow(2);
        screen.editor->updatePlayerProgress(1.0);
        screen.editor->insertTimeTag();
        QCOMPARE(screen.times(2), QList<std::int64_t>({1000}));
        QCOMPARE(screen.times(4), QList<std::int64_t>());
        QCOMPARE(screen.table()->selectedRowIndexes(), std::vector<std::size_t>({5}));
    }

    void aStampedTagLineIsALyricLine()
    {
        EditorOnScreen screen;
        screen.load("[ti:The Star]\n");
        screen.editor->updatePlayerProgress(1.0);
        screen.editor->insertTimeTag();
        QVERIFY(!screen.editor->song().aryLines().at(0).isProperty());
        QCOMPARE(screen.cell("text", 0), QStringLiteral("The Star"));
        QCOMPARE(screen.cell("time1", 0), QStringLiteral("00:01.00"));
    }

    void withoutASelectionNothingIsStampedYetTheHostIsTold()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.table()->clearSelection();
        const int before = screen.host->changes;
        screen.editor->insertTimeTag();
        QCOMPARE(screen.editor->songText(), QByteArray("a\nb\n"));
        QCOMPARE(screen.host->changes, before + 1);
        QCOMPARE(screen.table()->selectedRow(), -1);
    }

    void aLabelThatCannotBeReadStampsZero()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->lblTabTime()->setText(QStringLiteral("[soon]"));
        screen.editor->insertTimeTag();
        QCOMPARE(screen.times(0), QList<std::int64_t>({0}));
    }

    void previousLineStopsAtTheTop()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.editor->selectPrevLine(true);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QVERIFY(!screen.table()->isEditingCell());
        screen.table()->clearSelection();
        screen.editor->selectPrevLine(true);
        QCOMPARE(screen.table()->selectedRow(), -1);
    }

    void previousLineOpensItsTextForTyping()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        screen.table()->selectSingleRow(1);
        screen.editor->selectPrevLine(true);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QVERIFY(!screen.table()->isEditingCell());
        QTRY_VERIFY(screen.table()->isEditingCell());
        QCOMPARE(screen.table()->currentIndex(), screen.table()->model()->index(0, 2));
        QCOMPARE(screen.textField()->textCursor().selectedText(), QStringLiteral("a"));
    }

    void previousLineGoesAboveTheFirstSelected()
    {
        EditorOnScreen screen;
        screen.load(numberedLines(10));
        screen.selectRows(5, 8);
        screen.editor->selectPrevLine(false);
        QCOMPARE(screen.table()->selectedRowIndexes(), std::vector<std::size_t>({4}));
    }

    void spaceInTheTablePressesPlay()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_Space);
        QCOMPARE(screen.container->told, QStringList({QStringLiteral("pressPlayPause")}));
        QVERIFY(!screen.table()->isEditingCell());
    }

    void enterStampsAndTheButtonDoes()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        screen.editor->updatePlayerProgress(3.0);
        QTest::keyClick(screen.table(), Qt::Key_Return);
        QTRY_COMPARE(screen.times(0), QList<std::int64_t>({3000}));
        screen.editor->updatePlayerProgress(4.0);
        QTest::mouseClick(screen.editor->btnInsertTime(), Qt::LeftButton, {},
            screen.editor->lblTabTime()->geometry().center());
        QCOMPARE(screen.times(1), QList<std::int64_t>({4000}));
    }

    void theStampIsTakenAtTheKeyPress()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        screen.editor->updatePlayerProgress(3.0);
        QTest::keyPress(screen.table(), Qt::Key_Return);
        screen.editor->updatePlayerProgress(9.0);
        QTest::keyRelease(screen.table(), Qt::Key_Return);
        QCOMPARE(screen.times(0), QList<std::int64_t>({3000}));
    }

    void aTickThatChangesNoTextPaintsNothing()
    {
        EditorOnScreen screen;
        QVERIFY(QTest::qWaitForWindowExposed(screen.view));
        struct Paints : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                count += event->type() == QEvent::Paint ? 1 : 0;
                return QObject::eventFilter(watched, event);
            }
            int count = 0;
        } paints;
        screen.editor->updatePlayerProgress(1.001);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        screen.editor->lblTabTime()->installEventFilter(&paints);
        screen.editor->updatePlayerProgress(1.0015);
        screen.editor->updatePlayerProgress(1.002);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 0);
        screen.editor->updatePlayerProgress(2.0);
        QTRY_COMPARE(paints.count, 1);
    }

    void theHostMayDestroyTheEditorWhileItIsStamping()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.host->onChanged = [&screen] { screen.editor.reset(); };
        const auto editor = screen.editor.get();
        QTest::mouseClick(editor->btnInsertTime(), Qt::LeftButton);
        QVERIFY(!screen.editor);
    }
};

QTEST_MAIN(TimeTagging)
#include "tst_time_tagging.moc"
