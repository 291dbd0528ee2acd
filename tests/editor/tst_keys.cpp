// SPDX-License-Identifier: MIT
//
// The keys: what each does, and where it works.
#include "EditorOnScreen.h"
#include "kit/NoticeView.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;

/// Presses the first key that `command` has, on whatever has the keyboard.
void press(const EditorOnScreen &screen, EditorCommand command)
{
    const QKeyCombination key = screen.editor->keys().keys(command).first()[0];
    QWidget *target = QApplication::focusWidget() ? QApplication::focusWidget() : screen.view->window();
    QTest::keyClick(target, key.key(), key.keyboardModifiers());
}

} // namespace

class Keys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everyCommandOnLinesHasAKeyThatDoesIt_data()
    {
        QTest::addColumn<EditorCommand>("command");
        QTest::addColumn<QByteArray>("after");
        const auto row = [](const char *name, EditorCommand command, const char *after) {
            QTest::newRow(name) << command << QByteArray(after);
        };
        // Of "[00:05.00]a\n[00:10.00]b\nc\n" with row 1 selected and the player at 00:07.00.
        row("stamp and stay", EditorCommand::StampAndStay, "[00:05.00]a\n[00:10.00][00:07.00]b\nc\n");
        row("10 ms earlier", EditorCommand::NudgeBack10, "[00:05.00]a\n[00:09.99]b\nc\n");
        row("10 ms later", EditorCommand::NudgeForward10, "[00:05.00]a\n[00:10.01]b\nc\n");
        row("100 ms earlier", EditorCommand::NudgeBack100, "[00:05.00]a\n[00:09.90]b\nc\n");
        row("100 ms later", EditorCommand::NudgeForward100, "[00:05.00]a\n[00:10.10]b\nc\n");
        row("1 s earlier", EditorCommand::NudgeBack1000, "[00:05.00]a\n[00:09.00]b\nc\n");
        row("1 s later", EditorCommand::NudgeForward1000, "[00:05.00]a\n[00:11.00]b\nc\n");
        row("insert before", EditorCommand::InsertLineBefore, "[00:05.00]a\n[00:09.80]\n[00:10.00]b\nc\n");
        row("insert after", EditorCommand::InsertLineAfter, "[00:05.00]a\n[00:10.00]b\n[00:10.20]\nc\n");
        row("duplicate", EditorCommand::DuplicateLine, "[00:05.00]a\n[00:10.00]b\n[00:10.00]b\nc\n");
        row("delete", EditorCommand::DeleteLines, "[00:05.00]a\nc\n");
        row("move up", EditorCommand::MoveUp, "[00:10.00]b\n[00:05.00]a\nc\n");
        row("move down", EditorCommand::MoveDown, "[00:05.00]a\nc\n[00:10.00]b\n");
        row("merge", EditorCommand::MergeWithNext, "[00:05.00]a\n[00:10.00]b c\n");
        row("untag", EditorCommand::Untag, "[00:05.00]a\nb\nc\n");
    }

    void everyCommandOnLinesHasAKeyThatDoesIt()
    {
        QFETCH(EditorCommand, command);
        QFETCH(QByteArray, after);
        EditorOnScreen screen;
        screen.load("[00:05.00]a\n[00:10.00]b\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.editor->updatePlayerProgress(7.0);
        screen.table()->setFocus();
        screen.table()->selectSingleRow(1);
        const int changes = screen.host->changes;
        press(screen, command);
        QCOMPARE(screen.editor->songText(), after);
        QCOMPARE(screen.host->changes, changes + 1);
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:05.00]a\n[00:10.00]b\nc\n"));
        QCOMPARE(screen.table()->selectedRow(), 1);
    }

    void staysWhereItStamped()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        press(screen, EditorCommand::StampAndStay);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QCOMPARE(screen.container->told, QStringList{QStringLiteral("tryToPlay")});
    }

    void stepsBackToTheTimeThatWasStampedLast()
    {
        EditorOnScreen screen;
        screen.load("[00:05.00][01:05.50]a\nb\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->selectSingleRow(1);
        press(screen, EditorCommand::StepBack);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QCOMPARE(screen.container->told, QStringList{QStringLiteral("seekTo 65.5")});
        press(screen, EditorCommand::StepBack);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:05.00][01:05.50]a\nb\n"));
    }

    void playsFromTheLineWithARunUp()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\n[00:05.50]b\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        screen.table()->selectSingleRow(2);
        press(screen, EditorCommand::PlayFromLine);
        screen.table()->selectSingleRow(0);
        press(screen, EditorCommand::PlayFromLine);
        QCOMPARE(screen.container->told,
            QStringList({QStringLiteral("playFrom 3.5"), QStringLiteral("playFrom 0")}));
    }

    void spaceIsPlayOrPauseButAButtonsOwn()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        press(screen, EditorCommand::PlayOrPause);
        QCOMPARE(screen.container->told, QStringList{QStringLiteral("pressPlayPause")});
        screen.editor->btnInsertTitle()->setFocus();
        press(screen, EditorCommand::PlayOrPause);
        QCOMPARE(screen.container->told, QStringList{QStringLiteral("pressPlayPause")});
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:a]\n\n"));
    }

    void typedKeysBelongToTheTextThatIsTyped()
    {
        EditorOnScreen screen;
        screen.load("ab\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 0, true);
        QWidget *field = QApplication::focusWidget();
        QTest::keyClick(field, Qt::Key_End);
        QTest::keyClicks(field, QStringLiteral(" x"));
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClick(field, Qt::Key_Home);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClick(field, Qt::Key_Insert);
        QVERIFY(screen.table()->isEditingCell());
        QVERIFY(screen.container->told.isEmpty());
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("b\nc\n"));
    }

    void deletingAWordWhileTypingDeletesNoLine()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one two\nrest\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(2, 0, false);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete, Qt::ControlModifier);
        QVERIFY(screen.table()->isEditingCell());
        QCOMPARE(screen.editor->songLinesNum(), 2);
        screen.editor->commitEditing();
        QCOMPARE(screen.text(0), "two");
    }

    void splitsAtTheCaretAndGoesOnTyping()
    {
        EditorOnScreen screen;
        screen.load("[00:05.00]onetwo\nrest\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(2, 0, true);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        for (int character = 0; character < 3; ++character) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        }
        press(screen, EditorCommand::SplitAtCaret);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:05.00]one\ntwo\nrest\n"));
        QVERIFY(screen.table()->isEditingCell());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
        screen.editor->commitEditing();
        QCOMPARE(screen.text(1), "xtwo");
        screen.editor->undo();
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:05.00]onetwo\nrest\n"));
    }

    void aKeyHeldDownStampsOnce()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        press(screen, EditorCommand::Stamp);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QApplication::sendEvent(screen.table(), &held);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]a\nb\nc\n"));
    }

    void keysWorkFromANeighbourAndWithTheKeyboardNowhereButNotFromAHostsField()
    {
        EditorOnScreen screen;
        QWidget window;
        auto *column = new QVBoxLayout(&window);
        auto *component = new QWidget(&window);
        auto *inside = new QVBoxLayout(component);
        auto *neighbour = new QPushButton(component);
        auto *field = new QLineEdit(&window);
        inside->addWidget(screen.view);
        inside->addWidget(neighbour);
        column->addWidget(field);
        column->addWidget(component);
        screen.load("a\nb\nc\nd\n");
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        neighbour->setFocus();
        QTest::keyClick(neighbour, Qt::Key_Return);
        QCOMPARE(screen.table()->selectedRow(), 1);
        neighbour->clearFocus();
        QVERIFY(!QApplication::focusWidget());
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(screen.table()->selectedRow(), 2);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_F5, {});
        QTest::keyClick(field, Qt::Key_Delete, kCtrl);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]a\n[00:00.00]b\nc\nd\n"));
        screen.view->setParent(nullptr);
    }

    void keysSleepWhileTheEditorIsNotOnScreen()
    {
        EditorOnScreen screen;
        QWidget window;
        auto *column = new QVBoxLayout(&window);
        column->addWidget(screen.view);
        screen.load("a\nb\n");
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        screen.view->hide();
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("a\nb\n"));
        screen.view->show();
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]a\nb\n"));
        screen.view->setParent(nullptr);
    }

    void aHostChangesTheKeys()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        EditorKeys keys;
        keys.setKeys(EditorCommand::Stamp, {QKeySequence(Qt::Key_F8)});
        screen.editor->setKeys(keys);
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("a\nb\nc\n"));
        QTest::keyClick(screen.table(), Qt::Key_F8);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]a\nb\nc\n"));
        QVERIFY(screen.editor->btnInsertTime()->toolTip().contains(QStringLiteral("F8")));
    }

    void severalLinesAreNudgedTogetherAndCutAtTheStart()
    {
        EditorOnScreen screen;
        screen.load("[00:00.50]a\n[ti:t]\n[00:02.00][00:03.00]b\n[00:09.00]c\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        screen.selectRows(0, 2);
        QTest::keyClick(screen.table(), Qt::Key_Left, kCtrl | kShift);
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:00.00]a\n[ti:t]\n[00:01.00][00:02.00]b\n[00:09.00]c\n"));
        QCOMPARE(NoticeView::currentText(screen.view),
            QStringLiteral("1 time would have been before the start: it is 00:00.00 now."));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:00.50]a\n[ti:t]\n[00:02.00][00:03.00]b\n[00:09.00]c\n"));
    }
};

QTEST_MAIN(Keys)
#include "tst_keys.moc"
