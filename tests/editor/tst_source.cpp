// SPDX-License-Identifier: MIT
//
// The source in the table's place: the same document, the same history, the same line.
#include "EditorOnScreen.h"
#include "editor/SourceView.h"
#include "support/QtWarnings.h"

#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

namespace {

SourceView *sourceOf(const EditorOnScreen &screen)
{
    return screen.view->findChild<SourceView *>();
}

void showSource(EditorOnScreen &screen)
{
    QVERIFY(QTest::qWaitForWindowActive(screen.view));
    QTest::keyClick(screen.table(), Qt::Key_U, Qt::ControlModifier);
    QVERIFY(sourceOf(screen)->hasFocus());
}

void type(const EditorOnScreen &screen, const QString &text)
{
    QTest::keyClicks(sourceOf(screen), text);
    QCoreApplication::processEvents();
}

} // namespace

class Source : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void showsTheTextOfTheDocumentAndTheTableAgain()
    {
        EditorOnScreen screen;
        screen.load("[ti:x][ar:y]\n[00:01.00]a\n[00:02.00]b\n");
        screen.table()->selectSingleRow(2);
        showSource(screen);
        QVERIFY(!screen.table()->isVisible());
        QCOMPARE(sourceOf(screen)->sourceText(), screen.editor->songText());
        QCOMPARE(sourceOf(screen)->caretLine(), 1);
        QVERIFY(screen.editor->action(EditorCommand::ShowSource)->isChecked());
        QTest::keyClick(sourceOf(screen), Qt::Key_Down);
        QCoreApplication::processEvents();
        QCOMPARE(screen.table()->selectedRow(), 3);
        QTest::keyClick(sourceOf(screen), Qt::Key_U, Qt::ControlModifier);
        QVERIFY(screen.table()->isVisible());
        QVERIFY(!sourceOf(screen)->isVisible());
        QVERIFY(screen.table()->hasFocus());
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:x][ar:y]\n[00:01.00]a\n[00:02.00]b\n"));
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
    }

    void theButtonShowsItToo()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        auto *button = screen.view->findChild<QAbstractButton *>(QStringLiteral("btnSource"));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(sourceOf(screen)->isVisible());
        QVERIFY(button->isChecked());
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(screen.table()->isVisible());
        QVERIFY(!button->isChecked());
    }

    void whatIsTypedIsReadAsAFileWouldBe()
    {
        EditorOnScreen screen;
        screen.load("\xEF\xBB\xBF"
                    "a\xFF\r\nb");
        showSource(screen);
        const int changes = screen.host->changes;
        type(screen, QStringLiteral("[00:01.50]"));
        QCOMPARE(screen.editor->songText(), QByteArray("\xEF\xBB\xBF[00:01.50]a\xFF\r\nb"));
        QCOMPARE(screen.times(0), QList<std::int64_t>{1500});
        QCOMPARE(screen.columnIdentifiers().size(), 3);
        QVERIFY(screen.host->changes > changes);
    }

    void typingIsUndoneFromTheSameHistory()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.editor->insertTitleTag();
        showSource(screen);
        type(screen, QStringLiteral("one"));
        type(screen, QStringLiteral(" two"));
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:a]\none twob\n"));
        QCOMPARE(screen.editor->action(EditorCommand::Undo)->text(), QStringLiteral("Undo typing"));
        QTest::keyClick(sourceOf(screen), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:a]\nb\n"));
        QCOMPARE(sourceOf(screen)->sourceText(), QByteArray("[ti:a]\nb\n"));
        QTest::keyClick(sourceOf(screen), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.editor->songText(), QByteArray("a\nb\n"));
        QTest::keyClick(sourceOf(screen), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(sourceOf(screen), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(sourceOf(screen)->sourceText(), QByteArray("[ti:a]\none twob\n"));
    }

    void typingInAnotherLineIsAnotherStep()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        showSource(screen);
        type(screen, QStringLiteral("1"));
        QTest::keyClick(sourceOf(screen), Qt::Key_Down);
        QCoreApplication::processEvents();
        type(screen, QStringLiteral("2"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("1a\nb\n"));
    }

    void aCommandActsOnTheLineOfTheCaret()
    {
        EditorOnScreen screen;
        screen.load("a\nb\nc\n");
        showSource(screen);
        screen.editor->updatePlayerProgress(3.5);
        QTest::keyClick(sourceOf(screen), Qt::Key_Down);
        QCoreApplication::processEvents();
        QTest::mouseClick(screen.editor->btnInsertTime(), Qt::LeftButton);
        QCOMPARE(sourceOf(screen)->sourceText(), QByteArray("a\n[00:03.50]b\nc\n"));
        QCOMPARE(sourceOf(screen)->caretLine(), 2);
        QTest::keyClick(sourceOf(screen), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(sourceOf(screen)->sourceText(), QByteArray("a\nc\n[00:03.50]b\n"));
        QCOMPARE(sourceOf(screen)->caretLine(), 1);
    }

    void keysThatTypeAreNotTaken()
    {
        EditorOnScreen screen;
        screen.load("ab\nc\n");
        showSource(screen);
        type(screen, QStringLiteral(" "));
        QTest::keyClick(sourceOf(screen), Qt::Key_Delete);
        QTest::keyClick(sourceOf(screen), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(screen.editor->songText(), QByteArray(" \nb\nc\n"));
        QVERIFY(screen.container->told.isEmpty());
    }

    void whatWasJustTypedIsSavedAndUndone()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        showSource(screen);
        QTest::keyClicks(sourceOf(screen), QStringLiteral("x"));
        QVERIFY(screen.editor->serializeToAudioItem());
        QCOMPARE(screen.item->lyric(), QByteArray("xa\n"));
        QTest::keyClicks(sourceOf(screen), QStringLiteral("y"));
        screen.editor->undo();
        QVERIFY(!screen.editor->songText().contains('y'));
    }

    void anotherSongTakesItsPlace()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        showSource(screen);
        type(screen, QStringLiteral("x"));
        screen.load("[00:01.00]other\n");
        QCOMPARE(sourceOf(screen)->sourceText(), QByteArray("[00:01.00]other\n"));
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
    }

    void copyAndPasteOfTheMenuAreThoseOfTheText()
    {
        EditorOnScreen screen;
        screen.load("abc\n");
        showSource(screen);
        screen.editor->action(EditorCommand::SelectAll)->trigger();
        screen.editor->action(EditorCommand::Copy)->trigger();
        QVERIFY(screen.editor->copiedLines().empty());
        QTest::keyClick(sourceOf(screen), Qt::Key_End, Qt::ControlModifier);
        screen.editor->action(EditorCommand::Paste)->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(screen.editor->songText(), QByteArray("abc\nabc\n"));
    }

    void itsProblemsAreMarked()
    {
        EditorOnScreen screen;
        screen.load("[00:05.00]a\n[00:01.00]b\n[00:09.00]c\n");
        showSource(screen);
        QCoreApplication::processEvents();
        int marked = 0;
        for (const auto &line : sourceOf(screen)->visibleLines()) {
            marked += line.hasProblem ? 1 : 0;
        }
        QCOMPARE(marked, 1);
    }

    void theViewMayOutliveTheEditor()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        showSource(screen);
        QTest::keyClicks(sourceOf(screen), QStringLiteral("x"));
        screen.host->onChanged = [&screen] { screen.editor.reset(); };
        QCoreApplication::processEvents();
        QVERIFY(!screen.editor);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    void theCaretStaysBehindWhatIsPastedIntoAnEmptySource()
    {
        EditorOnScreen screen;
        screen.load("");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QTest::keyClick(screen.view, Qt::Key_U, Qt::ControlModifier);
        type(screen, QStringLiteral("one"));
        type(screen, QStringLiteral(" two"));
        QCOMPARE(screen.editor->songText(), QByteArray("one two"));
    }
};

QTEST_MAIN(Source)
#include "tst_source.moc"
