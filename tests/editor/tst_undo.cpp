// SPDX-License-Identifier: MIT
//
// Undo and redo as a user meets them: by keys, through the screen and through the host's menu.
#include "EditorOnScreen.h"
#include "support/QtWarnings.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QScrollBar>

namespace {

void press(const EditorOnScreen &screen, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
{
    QTest::keyClick(screen.table(), key, modifiers);
}

QByteArray manyLines(int count)
{
    QByteArray text;
    for (int line = 0; line < count; ++line) {
        text += "line " + QByteArray::number(line) + '\n';
    }
    return text;
}

} // namespace

class Undo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aStampItsNewLineAndTheSelectionAreOneStep()
    {
        EditorOnScreen screen;
        screen.load("[0:1.5] only");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.editor->updatePlayerProgress(12.34);
        screen.table()->setFocus();
        press(screen, Qt::Key_Return, Qt::NoModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("[0:1.5][00:12.34] only\n\n"));
        QCOMPARE(screen.table()->selectedRow(), 1);
        QCOMPARE(screen.editor->action(EditorCommand::Undo)->text(), QStringLiteral("Undo stamp"));

        press(screen, Qt::Key_Z);
        QCOMPARE(screen.editor->songText(), QByteArray("[0:1.5] only"));
        QVERIFY(!screen.editor->isLrcChanged());
        QCOMPARE(screen.table()->selectedRow(), 0);
        QCOMPARE(screen.columnIdentifiers().size(), 3);
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());

        press(screen, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("[0:1.5][00:12.34] only\n\n"));
        QCOMPARE(screen.table()->selectedRow(), 1);
    }

    void theFirstStampOfAnEmptyDocumentIsOneStep()
    {
        EditorOnScreen screen;
        screen.load("");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QTest::keyClick(screen.view, Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]\n\n"));
        QTest::keyClick(screen.view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.editor->songText(), QByteArray());
        QVERIFY(!screen.editor->isLrcChanged());
    }

    void manyStampsGoBackOneByOneToTheBytesThatWereOpened()
    {
        EditorOnScreen screen;
        const QByteArray text = "\xEF\xBB\xBF[ti: x ]\r\na\xFF\nb\r\n\r\nc";
        screen.load(text);
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        for (int stamp = 0; stamp < 9; ++stamp) {
            screen.editor->updatePlayerProgress(stamp);
            press(screen, Qt::Key_Return, Qt::NoModifier);
        }
        for (int stamp = 0; stamp < 9; ++stamp) {
            QVERIFY(screen.editor->isLrcChanged());
            press(screen, Qt::Key_Z);
        }
        QCOMPARE(screen.editor->songText(), text);
        QVERIFY(!screen.editor->isLrcChanged());
        QVERIFY(!screen.editor->serializeToAudioItem() || screen.item->lyric() == text);
    }

    void selectionAndScrollComeBack()
    {
        EditorOnScreen screen;
        screen.load(manyLines(200));
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->selectRows({{100, 102}, {105, 105}}, 105);
        screen.table()->verticalScrollBar()->setValue(3000);
        const int scroll = screen.table()->verticalScrollBar()->value();
        press(screen, Qt::Key_Delete);
        QCOMPARE(screen.editor->songLinesNum(), 196);
        QCOMPARE(screen.editor->action(EditorCommand::Undo)->text(), QStringLiteral("Undo delete 4 lines"));
        screen.table()->selectSingleRow(0);
        screen.table()->scrollToTop();
        press(screen, Qt::Key_Z);
        QCOMPARE(screen.editor->songText(), manyLines(200));
        QCOMPARE(screen.table()->selectedRowRanges(), (kit::RowRanges{{100, 102}, {105, 105}}));
        QCOMPARE(screen.table()->selectedRow(), 105);
        QCOMPARE(screen.table()->verticalScrollBar()->value(), scroll);
    }

    void whatIsTypedInACellIsUndoneFirst()
    {
        EditorOnScreen screen;
        screen.load("one\ntwo\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.editor->deleteAllTags();
        screen.edit("text", 0, QStringLiteral("typed"));
        QCOMPARE(screen.editor->action(EditorCommand::Undo)->text(), QStringLiteral("Undo edit text"));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("more"));
        screen.editor->action(EditorCommand::Undo)->trigger();
        QVERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.text(0), "typed");
        screen.editor->undo();
        QCOMPARE(screen.text(0), "one");
        screen.editor->undo();
        QCOMPARE(screen.text(0), "one");
    }

    void aCellThatWasOnlyLookedAtIsNoStep()
    {
        EditorOnScreen screen;
        screen.load("[0:1.5] one\xFF\n");
        screen.edit("text", 0, screen.cell("text", 0));
        screen.edit("time1", 0, screen.cell("time1", 0));
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
        QCOMPARE(screen.editor->songText(), QByteArray("[0:1.5] one\xFF\n"));
    }

    void restoringAndDeletingAllCanBeUndone()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        screen.edit("text", 0, QStringLiteral("changed"));
        const QByteArray changed = screen.editor->songText();
        screen.editor->restoreAllClick();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]a\nb\n"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), changed);
        screen.editor->deleteAllClick();
        QCOMPARE(screen.editor->songLinesNum(), 0);
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), changed);
        screen.editor->redo();
        QCOMPARE(screen.editor->songLinesNum(), 0);
        screen.editor->restoreAllClick();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]a\nb\n"));
    }

    void aDroppedAndADownloadedLyricCanBeUndone()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("a.lrc")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("[00:09.00]dropped\n") > 0);
        file.close();
        EditorOnScreen screen;
        screen.load("mine\n");
        screen.editor->loadWithFileUrl(QUrl::fromLocalFile(file.fileName()));
        QCOMPARE(screen.text(0), "dropped");
        screen.editor->flushWithSongText("[00:01.00]downloaded\n");
        screen.editor->undo();
        QCOMPARE(screen.text(0), "dropped");
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("mine\n"));
    }

    void anotherItemOrANewOriginalBeginsANewHistory()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->deleteAllClick();
        screen.editor->flushWithOriginalSongText("b\n");
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
        screen.editor->deleteAllClick();
        screen.editor->flushWithSongText("c\n");
        screen.editor->flushWithAudioItem(std::make_shared<standin::Item>());
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("c\n"));
    }

    void theHostIsToldOnceForEachUndo()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.editor->deleteAllTags();
        screen.editor->deleteClick();
        const int before = screen.host->changes;
        screen.editor->undo();
        QCOMPARE(screen.host->changes, before + 1);
        screen.editor->undo();
        QCOMPARE(screen.host->changes, before + 1);
        screen.editor->redo();
        QCOMPARE(screen.host->changes, before + 2);
    }

    void aHostThatUndoesWhileItIsToldOfAStampChangesNothing()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.host->onChanged = [&screen] { screen.editor->undo(); };
        screen.editor->insertTimeTag();
        screen.host->onChanged = {};
        QCOMPARE(screen.editor->songText(), QByteArray("[00:00.00]a\nb\n"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("a\nb\n"));
    }

    void aHostMayLetGoOfTheEditorWhenItIsToldOfAnUndo()
    {
        auto host = std::make_shared<standin::Host>();
        auto editor = TQLRCEditorViewCtl::init();
        editor->setDelegate(host);
        editor->view()->show();
        editor->flushWithOriginalSongText("a\n");
        editor->deleteClick();
        const std::weak_ptr<TQLRCEditorViewCtl> watched = editor;
        host->onChanged = [&editor] { editor.reset(); };
        QAction *undo = editor->action(EditorCommand::Undo);
        undo->trigger();
        QVERIFY(watched.expired());
    }

    void withoutAViewItWorksAsWell()
    {
        const auto editor = TQLRCEditorViewCtl::init();
        editor->flushWithOriginalSongText("a\n");
        editor->deleteAllClick();
        editor->undo();
        QCOMPARE(editor->songText(), QByteArray("a\n"));
    }

    void undoOfAChangeOfAllLinesLeavesTheViewWhereItWas()
    {
        EditorOnScreen screen;
        screen.load(manyLines(200));
        screen.table()->selectAll();
        screen.table()->verticalScrollBar()->setValue(0);
        screen.editor->deleteAllClick();
        screen.editor->undo();
        QCOMPARE(screen.table()->verticalScrollBar()->value(), 0);
    }
};

QTEST_MAIN(Undo)
#include "tst_undo.moc"
