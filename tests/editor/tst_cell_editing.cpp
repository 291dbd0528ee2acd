// SPDX-License-Identifier: MIT
//
// Typing in cells, and what else may happen meanwhile.
#include "EditorOnScreen.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>

namespace {

void clickRow(const EditorOnScreen &screen, int row, Qt::KeyboardModifiers modifiers = {})
{
    const QModelIndex cell = screen.table()->model()->index(row, 1);
    QTest::mouseClick(
        screen.table()->viewport(), Qt::LeftButton, modifiers, screen.table()->visualRect(cell).center());
}

// As the toolkit gets it from a keyboard: with the character that the key makes.
bool isTakenAsTyping(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, text);
    event.ignore();
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace

class CellEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void keysThatLeaveACellKeepOrCommitItsText_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("down") << Qt::Key_Down;
        QTest::newRow("up") << Qt::Key_Up;
        QTest::newRow("page down") << Qt::Key_PageDown;
        QTest::newRow("tab") << Qt::Key_Tab;
        QTest::newRow("backtab") << Qt::Key_Backtab;
    }

    void keysThatLeaveACellKeepOrCommitItsText()
    {
        QFETCH(Qt::Key, key);
        EditorOnScreen screen;
        screen.load("one\ntwo\nthree\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 1, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTest::keyClick(QApplication::focusWidget(), key);
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), QByteArray("one\ntyped\nthree\n"));
    }

    void aClickElsewhereCommits()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\nthree\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 1, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        clickRow(screen, 2);
        QCOMPARE(screen.editor->songText(), QByteArray("one\ntyped\nthree\n"));
        QCOMPARE(screen.table()->selectedRow(), 2);
    }

    // The text went to the line that was selected next.
    void aMoveOfTheSelectionCommitsToTheLineThatWasEdited()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\nthree\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 2, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        screen.editor->selectPrevLine(false);
        QCOMPARE(screen.editor->songText(), QByteArray("one\ntwo\ntyped\n"));
        QCOMPARE(screen.table()->selectedRow(), 1);
    }

    void theDelayedEditUsesItsOwnRowAndCommitsWhatIsTypedMeanwhile()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->selectSingleRow(1);
        screen.editor->selectPrevLine(true);
        screen.table()->editColumn_row_select(1, 1, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTRY_COMPARE(screen.table()->currentIndex().row(), 0);
        QTRY_VERIFY(screen.table()->isEditingCell());
        QTest::keyClick(screen.field(), Qt::Key_Escape);
        QCOMPARE(screen.editor->songText(), QByteArray("one\ntyped\n"));
    }

    void theDelayedEditOfThePreviousLineKeepsTheEditorAlive()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\n");
        screen.table()->selectSingleRow(1);
        screen.editor->selectPrevLine(true);
        const std::weak_ptr<TQLRCEditorViewCtl> gone = screen.editor;
        screen.editor.reset();
        QVERIFY(!gone.expired());
        QTRY_VERIFY(gone.expired());
    }

    // The edit was compared with, and written to, the selected line.
    void theEditKeyOnARowThatIsNotSelectedEditsThatRow()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one\n[00:02.00]two\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        clickRow(screen, 0);
        QTest::keyClick(screen.table(), Qt::Key_Down, Qt::ControlModifier);
        QTest::keyClick(screen.table(), Qt::Key_F2);
        QVERIFY(screen.table()->isEditingCell());
        QTest::keyClick(screen.field(), Qt::Key_Return);
        QTRY_VERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]one\n[00:02.00]two\n"));
        QCOMPARE(screen.table()->selectedRow(), 1);
    }

    void theEditKeyEditsTheTextAfterALoadAndAfterAStamp()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_F2);
        QVERIFY(screen.table()->isEditingCell());
        QCOMPARE(screen.textField()->cellText(), QStringLiteral("one"));
        QTest::keyClick(screen.field(), Qt::Key_Escape);
        QTRY_VERIFY(!screen.table()->isEditingCell());
        QTest::keyClick(screen.table(), Qt::Key_Return);
        QCOMPARE(screen.times(0).size(), 1);
        QTest::keyClick(screen.table(), Qt::Key_F2);
        QVERIFY(screen.table()->isEditingCell());
        QCOMPARE(screen.table()->currentIndex().row(), 1);
    }

    void aLineLongerThanAnyFieldIsNotCut()
    {
        EditorOnScreen screen;
        const QByteArray text = QByteArray(40000, 'x') + "\n";
        screen.load(text);
        screen.table()->editColumn_row_select(1, 0, true);
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), text);
    }

    void oddCharactersSurviveAnOpenEditor_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char *text : {"a\tb",
                 "a\xE2\x80\xA8"
                 "b",
                 "a\x01"
                 "b",
                 "a\xC2\x85"
                 "b",
                 "a\xEF\xBB\xBF"
                 "b",
                 "\xF0\x9F\x98\x80",
                 "a\xFF"
                 "b",
                 "e\xCC\x81",
                 "a\x0C"
                 "b",
                 "\xEF\xBF\xBC"
                 "a"}) {
            QTest::newRow(QByteArray(text).toHex()) << QByteArray(text);
        }
    }

    void oddCharactersSurviveAnOpenEditor()
    {
        QFETCH(QByteArray, text);
        EditorOnScreen screen;
        screen.load(text + "\n");
        screen.table()->editColumn_row_select(1, 0, true);
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), text + "\n");
        screen.table()->editColumn_row_select(1, 0, true);
        screen.textField()->moveCursor(QTextCursor::End);
        QTest::keyClicks(screen.field(), QStringLiteral("z"));
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), text + "z\n");
    }

    // With a real keyboard Ctrl+S carries a control character, and Alt+F an f.
    void commandsAreNotTakenForTyping()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        screen.table()->editColumn_row_select(1, 0, true);
        QWidget *editor = screen.field();
        QVERIFY(!isTakenAsTyping(editor, Qt::Key_S, Qt::ControlModifier, QStringLiteral("\x13")));
        QVERIFY(!isTakenAsTyping(editor, Qt::Key_F, Qt::AltModifier, QStringLiteral("f")));
        QVERIFY(!isTakenAsTyping(editor, Qt::Key_Space, Qt::ControlModifier, QStringLiteral(" ")));
        QVERIFY(isTakenAsTyping(editor, Qt::Key_F, Qt::NoModifier, QStringLiteral("f")));
        QVERIFY(isTakenAsTyping(editor, Qt::Key_F, Qt::ShiftModifier, QStringLiteral("F")));
        QVERIFY(isTakenAsTyping(editor, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")));
        QVERIFY(isTakenAsTyping(editor, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r")));
        QVERIFY(
            isTakenAsTyping(editor, Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("@")));
        QVERIFY(isTakenAsTyping(editor, Qt::Key_C, Qt::ControlModifier, QStringLiteral("\x03")));
    }

    void savingByKeyWorksWhileACellIsOpen()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        QMainWindow window;
        int saves = 0;
        QAction *save = window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Save"));
        save->setShortcut(QKeySequence::Save);
        connect(save, &QAction::triggered, this, [&saves] { ++saves; });
        window.setCentralWidget(screen.view);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClick(screen.field(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(saves, 1);
        window.takeCentralWidget();
    }

    void aRefusedTimeIsToldOnceHoweverTheCellIsLeft_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("return") << 0;
        QTest::newRow("click elsewhere") << 1;
        QTest::newRow("down") << 2;
        QTest::newRow("tab") << 3;
    }

    void aRefusedTimeIsToldOnceHoweverTheCellIsLeft()
    {
        QFETCH(int, way);
        EditorOnScreen screen;
        screen.load("[00:01.00]one\n[00:02.00]two\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(screen.field(), QStringLiteral("abc"));
        int alerts = 0;
        support::whenDialogOpens([&alerts](QWidget &dialog) {
            ++alerts;
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("OK")), Qt::LeftButton);
        });
        const int before = screen.host->changes;
        switch (way) {
        case 0:
            QTest::keyClick(screen.field(), Qt::Key_Return);
            break;
        case 1:
            clickRow(screen, 1);
            break;
        case 2:
            QTest::keyClick(screen.field(), Qt::Key_Down);
            break;
        default:
            QTest::keyClick(screen.field(), Qt::Key_Tab);
        }
        QTRY_COMPARE(alerts, 1);
        QTRY_COMPARE(screen.host->changes, before + 1);
        QCoreApplication::processEvents();
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]one\n[00:02.00]two\n"));
    }

    void theRowClickedLastIsTheSelectedRow()
    {
        EditorOnScreen screen;
        QByteArray text;
        for (int line = 0; line < 12; ++line) {
            text += "line\n";
        }
        screen.load(text);
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        clickRow(screen, 2);
        clickRow(screen, 10, Qt::ShiftModifier);
        QCOMPARE(screen.table()->selectedRow(), 10);
        clickRow(screen, 5, Qt::ShiftModifier);
        QCOMPARE(screen.table()->selectedRow(), 5);
        clickRow(screen, 8, Qt::ShiftModifier);
        QCOMPARE(screen.table()->selectedRow(), 8);
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_A, Qt::ControlModifier);
        clickRow(screen, 3);
        QCOMPARE(screen.table()->selectedRow(), 3);
        clickRow(screen, 6, Qt::ShiftModifier);
        QCOMPARE(screen.table()->selectedRow(), 6);
    }

    void scrollIsKeptWhenColumnsChange_data()
    {
        QTest::addColumn<int>("currentColumn");
        QTest::newRow("text") << 2;
        QTest::newRow("time") << 1;
        QTest::newRow("number") << 0;
    }

    void scrollIsKeptWhenColumnsChange()
    {
        QFETCH(int, currentColumn);
        EditorOnScreen screen;
        QByteArray text = "[00:01.00]first\n";
        for (int line = 0; line < 500; ++line) {
            text += "line\n";
        }
        screen.load(text);
        screen.table()->setCurrentIndex(screen.table()->model()->index(0, currentColumn));
        screen.table()->verticalScrollBar()->setValue(5000);
        QCOMPARE(screen.table()->verticalScrollBar()->value(), 5000);
        screen.editor->deleteAllTags();
        QCoreApplication::processEvents();
        QCOMPARE(screen.table()->verticalScrollBar()->value(), 5000);
    }

    void aStampDoesNotScrollSideways()
    {
        EditorOnScreen screen;
        QByteArray text;
        for (int tag = 0; tag < 20; ++tag) {
            text += "[00:01.00]";
        }
        screen.load(text + "x\nb\n");
        screen.view->resize(500, 400);
        QCoreApplication::processEvents();
        QScrollBar *across = screen.table()->horizontalScrollBar();
        across->setValue(1000);
        QCOMPARE(across->value(), 1000);
        screen.table()->selectSingleRow(0);
        QCOMPARE(across->value(), 1000);
        screen.editor->insertTimeTag();
        QCoreApplication::processEvents();
        QCOMPARE(across->value(), 1000);
    }
};

QTEST_MAIN(CellEditing)
#include "tst_cell_editing.moc"
