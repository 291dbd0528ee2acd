// SPDX-License-Identifier: MIT
#include "EditorOnScreen.h"
#include "kit/DropTipView.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

using support::buttonTitled;
using support::textsOf;
using support::whenDialogOpens;

class LineTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void emptyDocumentHasTwoColumnsAndNoRow()
    {
        EditorOnScreen screen;
        QCOMPARE(screen.table()->numberOfRows(), 0);
        QCOMPARE(screen.columnIdentifiers(), QStringList({QStringLiteral("number"), QStringLiteral("text")}));
        QVERIFY(screen.table()->dropTipView()->isVisible());
        QCOMPARE(screen.table()->dropInPrompt(), QStringLiteral("Drag and drop the lyrics file here or"));
    }

    void columnsFollowTheLineWithMostTimes()
    {
        EditorOnScreen screen;
        const QAbstractItemModelTester tester(screen.table()->model());
        screen.load("one\n[00:01.00][00:02.00]two\n[00:03.00]three\n");
        QCOMPARE(screen.columnTitles(),
            QStringList({QStringLiteral("#"), QStringLiteral("Time point 1"), QStringLiteral("Time point 2"),
                QStringLiteral("Text")}));
        QCOMPARE(screen.editor->getToColumnsCount(), 4);
        QCOMPARE(screen.cell("time1", 0), QString());
        QCOMPARE(screen.cell("time2", 0), QString());
        QCOMPARE(screen.cell("time1", 1), QStringLiteral("00:01.00"));
        QCOMPARE(screen.cell("time2", 1), QStringLiteral("00:02.00"));
        QCOMPARE(screen.cell("time1", 2), QStringLiteral("00:03.00"));
        QCOMPARE(screen.cell("time2", 2), QString());
        QVERIFY(!screen.table()->dropTipView()->isVisible());
    }

    void timeColumnsHaveTheirWidthsAndAreCentred()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\n");
        const auto &column = screen.table()->tableColumns().at(1);
        QCOMPARE(column.minimumWidth, 80);
        QCOMPARE(column.maximumWidth, 100);
        QCOMPARE(screen.table()->columnWidth(1), 90);
        QCOMPARE(
            screen.table()->model()->index(0, 1).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
        QCOMPARE(screen.table()->model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
            int(Qt::AlignCenter));
        screen.table()->setColumnWidth(1, 300);
        QCOMPARE(screen.table()->columnWidth(1), 100);
        screen.table()->setColumnWidth(1, 10);
        QCOMPARE(screen.table()->columnWidth(1), 80);
    }

    void removingTheOnlyTimeRemovesTheTimeColumns()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        screen.editor->song().aryLines().at(0).aryTimes().removeAllObjects();
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.columnIdentifiers(), QStringList({QStringLiteral("number"), QStringLiteral("text")}));
    }

    void sameColumnCountKeepsDraggedWidths()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        screen.table()->setColumnWidth(1, 97);
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.table()->columnWidth(1), 97);
    }

    void numbersBeginAtOneAndUnknownColumnsAreEmpty()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        QCOMPARE(screen.cell("number", 0), QStringLiteral("1"));
        QCOMPARE(screen.cell("number", 1), QStringLiteral("2"));
        QCOMPARE(screen.cell("something", 0), QString());
        QCOMPARE(screen.cell("time0", 0), QString());
        QCOMPARE(screen.cell("timeless", 0), QString());
        QCOMPARE(screen.cell("text", 7), QString());
        QCOMPARE(screen.cell("text", -1), QString());
    }

    void tagLineShowsItsValue()
    {
        EditorOnScreen screen;
        screen.load("[ti:The Star]\nTwinkle\n");
        QCOMPARE(screen.cell("text", 0), QStringLiteral("The Star"));
        QCOMPARE(screen.cell("text", 1), QStringLiteral("Twinkle"));
    }

    void refusedTimeShowsAlertAndKeepsTheLine()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\n");
        const int before = screen.host->changes;
        QStringList shown;
        whenDialogOpens([&shown](QWidget &dialog) {
            shown = textsOf(dialog);
            QTest::mouseClick(buttonTitled(dialog, QStringLiteral("OK")), Qt::LeftButton);
        });
        screen.edit("time1", 0, QStringLiteral("abc"));
        QVERIFY(shown.contains(QStringLiteral("Please input the right time format[mm:ss.SS]!")));
        QCOMPARE(screen.times(0), QList<std::int64_t>({1000}));
        QCOMPARE(screen.host->changes, before + 1);
    }

    void emptyTimeGoesToTheLine()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00][00:02.00]a\n");
        const int before = screen.host->changes;
        screen.edit("time1", 0, QString());
        QCOMPARE(screen.times(0), QList<std::int64_t>({2000}));
        QCOMPARE(screen.host->changes, before + 1);
        QCOMPARE(screen.table()->numberOfColumns(), 4);
    }

    void editGoesToTheSelectedLineWhateverTheRow()
    {
        EditorOnScreen screen;
        screen.load("0\n1\n2\n3\n4\n5\n6\n");
        screen.selectRows(3, 5);
        QCOMPARE(screen.table()->selectedRow(), 5);
        screen.edit("text", 3, QStringLiteral("new"));
        QCOMPARE(screen.text(3), "3");
        QCOMPARE(screen.text(5), "new");
    }

    void nothingSelectedIsReportedAsMinusOne()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.table()->clearSelection();
        QCOMPARE(screen.host->selections.last(), QPoint(0, -1));
        const int before = screen.host->changes;
        screen.edit("text", 0, QStringLiteral("nobody"));
        QCOMPARE(screen.text(0), "a");
        QCOMPARE(screen.host->changes, before + 1);
    }

    void numberColumnCannotBeEdited()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        QVERIFY(!(screen.table()->model()->index(0, 0).flags() & Qt::ItemIsEditable));
        const int before = screen.host->changes;
        screen.edit("number", 0, QStringLiteral("7"));
        QCOMPARE(screen.editor->songText(), QByteArray("a\n"));
        QCOMPARE(screen.host->changes, before + 1);
    }

    void anEditByRealKeysReachesTheDocument()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one\ntwo\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        const QRect cell = screen.table()->visualRect(screen.table()->model()->index(1, 2));
        QTest::mouseClick(screen.table()->viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(screen.table()->viewport(), Qt::LeftButton, {}, cell.center());
        QWidget *field = screen.field();
        QVERIFY(field);
        // Neither space nor the stamp key is anything but typing here.
        QTest::keyClicks(field, QStringLiteral("zwei drei"));
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.text(1), "zwei drei");
        QCOMPARE(screen.times(1), QList<std::int64_t>());
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]one\nzwei drei\n"));
        QVERIFY(screen.container->told.isEmpty());
    }

    void committingAnUntouchedCellChangesNoByteAndTellsTheHost()
    {
        EditorOnScreen screen;
        const QByteArray odd("[0:1.345] \xff bad \xe2\x82 bytes\t\r\n[ti: x ]\n");
        screen.load(odd);
        const int before = screen.host->changes;
        screen.edit("text", 0, screen.cell("text", 0));
        screen.edit("time1", 0, screen.cell("time1", 0));
        QCOMPARE(screen.editor->songText(), odd);
        QCOMPARE(screen.host->changes, before + 2);
    }

    void bytesThatCannotBeShownSurviveAnEditBesideThem()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\xff"
                    "b c\n");
        QString typed = screen.cell("text", 0);
        typed.replace(QLatin1Char('c'), QStringLiteral("dé"));
        screen.edit("text", 0, typed);
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:01.00]a\xff"
                       "b d\xc3\xa9\n"));
    }

    void whatCannotBeShownIsMarkedAndKept_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("NUL") << QByteArray("a\0b", 3) << QStringLiteral("a\uFFFDb");
        QTest::newRow("line separator") << QByteArray("a\xe2\x80\xa8"
                                                      "b")
                                        << QStringLiteral("a b");
        QTest::newRow("cut characters")
            << QByteArray("\xe2\x82|\xf0\x9f\x8e|") << QStringLiteral("\uFFFD|\uFFFD|");
        QTest::newRow("overlong") << QByteArray("\xf0\x80\x80\x80x")
                                  << QStringLiteral("\uFFFD\uFFFD\uFFFD\uFFFDx");
        QTest::newRow("stray continuation") << QByteArray("\x80\x80 x") << QStringLiteral("\uFFFD\uFFFD x");
        QTest::newRow("beyond the plane, and wrong")
            << QByteArray("\xf0\x9f\x8e\xb5\xff") << QStringLiteral("\U0001F3B5\uFFFD");
    }

    void whatCannotBeShownIsMarkedAndKept()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, shown);
        EditorOnScreen screen;
        screen.load(stored);
        QCOMPARE(screen.cell("text", 0), shown);
        // Something typed at either end leaves the bytes in between as they are.
        screen.edit("text", 0, QStringLiteral("<") + shown);
        QCOMPARE(screen.editor->songText(), "<" + stored);
        screen.edit("text", 0, QStringLiteral("<") + shown + QStringLiteral(">"));
        QCOMPARE(screen.editor->songText(), "<" + stored + ">");
    }

    void reloadKeepsSelectionAndScrollAndReportsNothing()
    {
        EditorOnScreen screen;
        QByteArray text;
        for (int line = 0; line < 200; ++line) {
            text += "line " + QByteArray::number(line) + '\n';
        }
        screen.load(text);
        screen.selectRows(100, 103);
        screen.table()->scrollRowToVisible(120);
        const int scrolled = screen.table()->verticalScrollBar()->value();
        QVERIFY(scrolled > 0);
        const auto reports = screen.host->selections.size();
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.host->selections.size(), reports);
        QCOMPARE(screen.table()->selectedRowIndexes(), (std::vector<std::size_t>{100, 101, 102, 103}));
        QCOMPARE(screen.table()->verticalScrollBar()->value(), scrolled);
        // A new time column goes through under the same selection.
        screen.editor->song().aryLines().at(0).appendTime(5);
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.host->selections.size(), reports);
        QCOMPARE(screen.table()->selectedRow(), 103);
        QVERIFY(screen.table()->selectionModel()->isRowSelected(101));
    }

    void reloadWithFewerRowsReportsTheLostSelectionOnce()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\nd\n");
        screen.table()->selectSingleRow(3);
        const auto reports = screen.host->selections.size();
        auto &lines = screen.editor->song().aryLines();
        lines.erase(lines.begin() + 2, lines.end());
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.host->selections.size(), reports + 1);
        QCOMPARE(screen.host->selections.last(), QPoint(0, -1));
    }

    void selectedRowIsTheNearestWhenTheLastAddedIsGone()
    {
        EditorOnScreen screen;
        screen.load("0\n1\n2\n3\n4\n5\n6\n7\n8\n");
        screen.table()->selectSingleRow(2);
        screen.addRow(6);
        screen.addRow(4);
        QCOMPARE(screen.table()->selectedRow(), 4);
        screen.table()->selectionModel()->select(
            screen.table()->model()->index(4, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        // 2 and 6 are equally near: the lower.
        QCOMPARE(screen.table()->selectedRow(), 2);
    }

    void reloadDiscardsAnOpenCellEditor()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.table()->editColumn_row_select(1, 0, true);
        QVERIFY(screen.field());
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        screen.editor->reloadDataWithLrcChanged();
        QVERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.text(0), "a");
    }

    void commandFromAButtonCommitsWhatIsBeingTyped()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTest::mouseClick(screen.editor->btnInsertTime(), Qt::LeftButton);
        QCOMPARE(screen.text(0), "typed");
        QCOMPARE(screen.times(0), QList<std::int64_t>({0}));
    }

    void wordStampsAreNotShownAndStayWithTheirWords()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]<00:01.00>hel<00:01.50>lo <00:02.00>you<00:03.00>\n");
        QCOMPARE(screen.cell("text", 0), QStringLiteral("hello you"));
        QCOMPARE(screen.editor->tableView_lookOfCell(screen.table(), QStringLiteral("text"), 0).chip,
            QStringLiteral("Words"));
        screen.edit("text", 0, QStringLiteral("hello there you"));
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:01.00]<00:01.00>hel<00:01.50>lo there <00:02.00>you<00:03.00>\n"));
        screen.table()->selectAll();
        screen.editor->nudge(100);
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:01.10]<00:01.10>hel<00:01.60>lo there <00:02.10>you<00:03.10>\n"));
        screen.editor->undo();
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:01.00]<00:01.00>hel<00:01.50>lo <00:02.00>you<00:03.00>\n"));
    }
};

QTEST_MAIN(LineTable)
#include "tst_line_table.moc"
