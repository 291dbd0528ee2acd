// SPDX-License-Identifier: MIT
//
// Copying and pasting lines, words from other programs, and the table's menu.
#include "EditorOnScreen.h"
#include "editor/EditorActions.h"
#include "support/QtWarnings.h"

#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>

namespace {

QAction *itemTitled(const QMenu &menu, const QString &title)
{
    for (QAction *item : menu.actions()) {
        if (item->text() == title) {
            return item;
        }
        if (item->menu()) {
            if (QAction *inside = itemTitled(*item->menu(), title)) {
                return inside;
            }
        }
    }
    return nullptr;
}

/// Opens the menu by a right click in the table.
QMenu *openMenu(const EditorOnScreen &screen)
{
    QWidget *viewport = screen.table()->viewport();
    const QPoint at = screen.table()->visualRect(screen.table()->model()->index(0, 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
    QApplication::sendEvent(viewport, &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

} // namespace

class CopyPaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        support::failOnUnexpectedWarnings();
        QGuiApplication::clipboard()->clear();
    }

    void linesAreCopiedInTheOrderOfTheDocumentWithoutTellingTheHost()
    {
        EditorOnScreen screen;
        screen.load("0\n1\n2\n3\n4\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->selectSingleRow(4);
        screen.addRow(1);
        screen.addRow(2);
        const int changes = screen.host->changes;
        QTest::keyClick(screen.table(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(screen.host->changes, changes);
        QCOMPARE(screen.editor->copiedLines().size(), std::size_t(3));
        QCOMPARE(screen.editor->copiedLines()[0].lineText(), std::string_view("1"));
        QCOMPARE(screen.editor->copiedLines()[2].lineText(), std::string_view("4"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1\n2\n4\n"));
        QCOMPARE(screen.table()->selectedRowRanges(), (kit::RowRanges{{1, 2}, {4, 4}}));
    }

    void otherProgramsGetLrcWithTimes()
    {
        EditorOnScreen screen;
        screen.load("[ti:T]\n[00:01.50]a\nb\n");
        screen.table()->selectAll();
        screen.editor->copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("[ti:T]\n[00:01.50]a\nb\n"));
    }

    void pastedLinesStandBelowTheHighestRowAndFollowItsTime()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00][00:05.00]x\ny\n[01:00.00]anchor\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.selectRows(0, 1);
        QTest::keyClick(screen.table(), Qt::Key_C, Qt::ControlModifier);
        screen.selectRows(0, 0);
        screen.addRow(2);
        const int changes = screen.host->changes;
        QTest::keyClick(screen.table(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(screen.host->changes, changes + 1);
        QCOMPARE(screen.editor->songText(),
            QByteArray("[00:01.00][00:05.00]x\ny\n[01:00.00]anchor\n[01:00.20]x\n[01:00.40]y\n"));
        QCOMPARE(screen.table()->selectedRowRanges(), (kit::RowRanges{{0, 0}, {2, 2}}));
    }

    void aPasteIsIndependentOfLaterEditsAndOfAnotherPaste()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->copyLinesClick();
        screen.edit("text", 0, QStringLiteral("changed"));
        screen.editor->pasteLinesClick();
        screen.table()->selectSingleRow(1);
        screen.edit("text", 1, QStringLiteral("pasted"));
        screen.table()->selectSingleRow(0);
        screen.editor->pasteLinesClick();
        QCOMPARE(screen.editor->songText(), QByteArray("changed\na\npasted\n"));
    }

    void theBufferOutlivesTheItem()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->copyLinesClick();
        screen.load("b\n");
        screen.editor->pasteLinesClick();
        QCOMPARE(screen.editor->songText(), QByteArray("b\na\n"));
    }

    void linesOfAnotherSongGetTheLineEndsOfThisOne()
    {
        EditorOnScreen screen;
        screen.load("[0:1.5]a\r\nb\r\n");
        screen.table()->selectAll();
        screen.editor->copyLinesClick();
        screen.load("x\ny\n");
        screen.editor->pasteLinesClick();
        QCOMPARE(screen.editor->songText(), QByteArray("x\n[00:01.50]a\nb\ny\n"));
    }

    void copyingNothingEmptiesTheBufferAndPastingItOnlyTellsTheHost()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->copyLinesClick();
        screen.table()->clearSelection();
        screen.editor->copyLinesClick();
        QVERIFY(screen.editor->copiedLines().empty());
        int changes = screen.host->changes;
        screen.editor->pasteLinesClick();
        QCOMPARE(screen.host->changes, changes);
        screen.table()->selectSingleRow(0);
        changes = screen.host->changes;
        screen.editor->paste();
        QCOMPARE(screen.host->changes, changes + 1);
        QCOMPARE(screen.editor->songText(), QByteArray("a\n"));
    }

    void menuItemsAreValidatedByTheLinesAndTheBuffer()
    {
        EditorOnScreen screen;
        const auto item = [](const char *operation) {
            auto action = std::make_unique<QAction>();
            action->setObjectName(QLatin1String(operation));
            return action;
        };
        const auto isOffered = [&screen, &item](const char *operation) {
            return screen.editor->validateMenuItem(item(operation).get());
        };
        screen.load("");
        for (const char *operation : {"copyLinesClick", "pasteLinesClick", "copy", "paste", "deleteClick",
                 "insertLineAfter", "insertTimeTag", "anything"}) {
            QVERIFY2(!isOffered(operation), operation);
        }
        QVERIFY(!isOffered("undo"));
        QVERIFY(isOffered("showSource"));
        QVERIFY(isOffered("openLyricFile"));
        screen.load("a\n");
        for (const char *operation : {"copyLinesClick", "copy", "paste", "deleteClick", "insertLineAfter",
                 "insertTimeTag", "anything"}) {
            QVERIFY2(isOffered(operation), operation);
        }
        QVERIFY(!isOffered("pasteLinesClick"));
        screen.editor->copyLinesClick();
        QVERIFY(isOffered("pasteLinesClick"));
        screen.editor->deleteAllClick();
        QVERIFY(isOffered("pasteLinesClick"));
        QVERIFY(!isOffered("paste"));
        QVERIFY(isOffered("undo"));
        QVERIFY(!isOffered("redo"));
        screen.editor->undo();
        QVERIFY(isOffered("redo"));
    }

    void theMenuHasEveryCommandAndItsKey()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QMenu *menu = openMenu(screen);
        QVERIFY(menu);
        QCOMPARE(menu, screen.editor->tableRightMenu());
        for (const EditorCommand command : EditorKeys::allCommands()) {
            const QAction *item = screen.editor->action(command);
            QVERIFY2(itemTitled(*menu, item->text()) == item, qPrintable(item->text()));
            const auto keys = screen.editor->keys().keys(command);
            QCOMPARE(item->shortcut(), keys.isEmpty() ? QKeySequence() : keys.first());
        }
        menu->close();
    }

    void aCommandChosenFromTheMenuIsRun_data()
    {
        QTest::addColumn<EditorCommand>("command");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("delete") << EditorCommand::DeleteLines << QByteArray("[00:02.00]b\n");
        QTest::newRow("delete all") << EditorCommand::DeleteAllLines << QByteArray();
        QTest::newRow("duplicate") << EditorCommand::DuplicateLine
                                   << QByteArray("[00:01.00]a\n[00:01.00]a\n[00:02.00]b\n");
        QTest::newRow("title") << EditorCommand::MakeTitle << QByteArray("[ti:a]\n[00:02.00]b\n");
        QTest::newRow("album") << EditorCommand::MakeAlbum << QByteArray("[al:a]\n[00:02.00]b\n");
        QTest::newRow("untag all") << EditorCommand::UntagAll << QByteArray("a\nb\n");
    }

    void aCommandChosenFromTheMenuIsRun()
    {
        QFETCH(EditorCommand, command);
        QFETCH(QByteArray, after);
        EditorOnScreen screen;
        screen.load("[00:01.00]a\n[00:02.00]b\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QMenu *menu = openMenu(screen);
        QVERIFY(menu);
        auto *within = menu;
        QAction *item = screen.editor->action(command);
        if (!menu->actions().contains(item)) {
            for (QAction *entry : menu->actions()) {
                if (entry->menu() && entry->menu()->actions().contains(item)) {
                    menu->setActiveAction(entry);
                    QTest::keyClick(menu, Qt::Key_Right);
                    within = entry->menu();
                }
            }
        }
        QVERIFY(within->isVisible());
        QTest::mouseClick(within, Qt::LeftButton, {}, within->actionGeometry(item).center());
        QCOMPARE(screen.editor->songText(), after);
    }

    void textFromOtherProgramsBecomesLines()
    {
        EditorOnScreen screen;
        screen.load("first\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QGuiApplication::clipboard()->setText(QStringLiteral("one\r\n\r\n[00:02.50]two\r\n"));
        QTest::keyClick(screen.table(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("first\none\n\n[00:02.50]two\n"));
        QCOMPARE(screen.table()->selectedRowRanges(), (kit::RowRanges{{1, 3}}));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("first\n"));
        QCOMPARE(screen.table()->selectedRowRanges(), (kit::RowRanges{{0, 0}}));
    }

    void textBecomesTheFirstLinesOfAnEmptyDocument()
    {
        EditorOnScreen screen;
        screen.load("");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo"));
        QTest::keyClick(screen.view, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("one\ntwo\n"));
    }

    void severalLinesPastedIntoACellBecomeLines()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]ae\nrest\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(2, 0, true);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QGuiApplication::clipboard()->setText(QStringLiteral("b\nc\nd"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]ab\nc\nde\nrest\n"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]ae\nrest\n"));
    }

    void whatWasTypedBeforeAPasteOfSeveralLinesIsKept()
    {
        EditorOnScreen screen;
        screen.load("old\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("new "));
        QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("new one\ntwo\n"));
    }
};

QTEST_MAIN(CopyPaste)
#include "tst_copy_paste.moc"
