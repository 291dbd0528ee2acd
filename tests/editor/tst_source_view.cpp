// SPDX-License-Identifier: MIT
#include "editor/SourceOnScreen.h"
#include "kit/Theme.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtCore/QMimeData>
#include <QtGui/QAction>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QHelpEvent>
#include <QtGui/QTextBlock>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>

namespace {

using source::kSong;
using source::Screen;

bool hasColour(const QImage &image, const QColor &colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                return true;
            }
        }
    }
    return false;
}

class TestSourceView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void whatWasNotEditedKeepsItsBytes();
    void typingIsToldOncePerTurn();
    void flushTellsNow();
    void whatLeavesTheBytesIsNotTold();
    void returnTypesTheLineEndOfTheDocument();
    void tabLeavesTheView();
    void historyKeysAreLeftToTheWindow_data();
    void historyKeysAreLeftToTheWindow();
    void typingIsTakenByNoShortcut_data();
    void typingIsTakenByNoShortcut();
    void otherKeysAreShortcuts();
    void pasteIsPlainText();
    void copyKeepsNoBreakSpaces();
    void cutAndSelectAllByTheirKeys();
    void contextMenuCutsAndPastes();
    void filesAreNotTaken();
    void textIsDropped();
    void whatCannotBeShownIsShownAsAMark();

    void caretLineIsTold();
    void caretIsMovedToALine();
    void problemsAreMarked();
    void problemsHaveATooltip();
    void coloursFollowThePalette();
    void caretIsInTheAccent();
    void hasANameForAssistiveTools();
};

void TestSourceView::whatWasNotEditedKeepsItsBytes()
{
    const Screen screen;
    QCOMPARE(screen.view->sourceText(), kSong);
    screen.caretTo(2, 11);
    screen.type("x");
    QTest::keyClick(screen.view, Qt::Key_End);
    screen.type("!");
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("two \xFF", "txwo \xFF!"));
}

void TestSourceView::typingIsToldOncePerTurn()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.caretTo(1, 0);
    screen.type("abc");
    QTest::keyClick(screen.view, Qt::Key_Backspace);
    QCOMPARE(edited.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("[00:01", "ab[00:01"));
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
}

void TestSourceView::flushTellsNow()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.view->flushEdits();
    QCOMPARE(edited.count(), 0);
    screen.type("x");
    screen.view->flushEdits();
    QCOMPARE(edited.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
}

void TestSourceView::whatLeavesTheBytesIsNotTold()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.type("x");
    QTest::keyClick(screen.view, Qt::Key_Backspace);
    QTest::keyClick(screen.view, Qt::Key_Down);
    QTest::keyClick(screen.view, Qt::Key_Right, Qt::ShiftModifier);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(screen.view->sourceText(), kSong);
}

void TestSourceView::returnTypesTheLineEndOfTheDocument()
{
    const Screen screen;
    screen.caretTo(1, 13);
    QTest::keyClick(screen.view, Qt::Key_Return);
    screen.type("a");
    QTest::keyClick(screen.view, Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    screen.type("b");
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("one\n", "one\na\r\nb\r\n"));
    QCOMPARE(screen.view->document()->blockCount(), 6);
}

void TestSourceView::tabLeavesTheView()
{
    const Screen screen;
    QTRY_VERIFY(screen.view->hasFocus());
    QTest::keyClick(screen.view, Qt::Key_Tab);
    QVERIFY(screen.next->hasFocus());
    QCOMPARE(screen.view->sourceText(), kSong);
}

void TestSourceView::historyKeysAreLeftToTheWindow_data()
{
    QTest::addColumn<QKeySequence>("keys");
    for (const char *keys : {"Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+Y"}) {
        QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
}

void TestSourceView::historyKeysAreLeftToTheWindow()
{
    QFETCH(QKeySequence, keys);
    Screen screen;
    QTRY_VERIFY(screen.view->hasFocus());
    screen.type("x");
    QAction action;
    action.setShortcut(keys);
    screen.window.addAction(&action);
    QSignalSpy triggered(&action, &QAction::triggered);
    QTest::keySequence(screen.view, keys);
    QCOMPARE(triggered.count(), 1);
    QVERIFY(screen.view->sourceText().contains("x[ti"));
    screen.window.removeAction(&action);
    QTest::keySequence(screen.view, keys);
    QVERIFY(screen.view->sourceText().contains("x[ti"));
}

void TestSourceView::typingIsTakenByNoShortcut_data()
{
    QTest::addColumn<QKeySequence>("keys");
    for (const char *keys : {"Space", "A", "1", "Return", "Enter", "Shift+Return", "Backspace", "Delete",
             "Left", "Right", "Up", "Down", "Home", "End", "Shift+Right", "Ctrl+Right", "Ctrl+Left",
             "Ctrl+Shift+Left", "Ctrl+Home", "Ctrl+End", "Ctrl+Backspace", "Ctrl+Delete", "PgDown", "Ctrl+C",
             "Ctrl+X", "Ctrl+V", "Ctrl+A", "[", "?"}) {
        QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
}

void TestSourceView::typingIsTakenByNoShortcut()
{
    QFETCH(QKeySequence, keys);
    Screen screen;
    QTRY_VERIFY(screen.view->hasFocus());
    QAction action;
    action.setShortcut(keys);
    screen.window.addAction(&action);
    QSignalSpy triggered(&action, &QAction::triggered);
    QTest::keySequence(screen.view, keys);
    QCOMPARE(triggered.count(), 0);
    // It is a shortcut where nobody types.
    screen.view->setEnabled(false);
    screen.next->hide();
    screen.window.setFocus();
    QTest::keySequence(&screen.window, keys);
    QCOMPARE(triggered.count(), 1);
}

void TestSourceView::otherKeysAreShortcuts()
{
    Screen screen;
    QTRY_VERIFY(screen.view->hasFocus());
    for (const char *keys : {"F5", "Esc", "Ctrl+Return", "Ctrl+S", "Ctrl+E", "Alt+Left", "Ctrl+Space"}) {
        QAction action;
        action.setShortcut(QKeySequence(QString::fromLatin1(keys)));
        screen.window.addAction(&action);
        QSignalSpy triggered(&action, &QAction::triggered);
        QTest::keySequence(screen.view, action.shortcut());
        QVERIFY2(triggered.count() == 1, keys);
    }
    QCOMPARE(screen.view->sourceText(), kSong);
}

void TestSourceView::pasteIsPlainText()
{
    const Screen screen;
    auto *data = new QMimeData;
    data->setHtml(QStringLiteral("<b>x</b><br>y"));
    data->setText(QStringLiteral(u"x\r\ny\x2028z\x0001"));
    QApplication::clipboard()->setMimeData(data);
    screen.caretTo(1, 10);
    QTest::keySequence(screen.view, QKeySequence::Paste);
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("one", "x\r\ny\r\nz\xEF\xBF\xBDone"));
    QCOMPARE(screen.view->textCursor().charFormat().fontWeight(), int(QFont::Normal));
}

void TestSourceView::copyKeepsNoBreakSpaces()
{
    const Screen screen("a\xC2\xA0"
                        "b\r\nc");
    QTest::keySequence(screen.view, QKeySequence::SelectAll);
    QTest::keySequence(screen.view, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(),
        QStringLiteral(u"a\x00A0"
                       "b\nc"));
    QVERIFY(!QApplication::clipboard()->mimeData()->hasHtml());
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ControlModifier);
    QTest::keySequence(screen.view, QKeySequence::Paste);
    QCOMPARE(screen.view->sourceText(),
        QByteArray("a\xC2\xA0"
                   "b\r\nca\xC2\xA0"
                   "b\r\nc"));
}

void TestSourceView::cutAndSelectAllByTheirKeys()
{
    const Screen screen;
    QTest::keySequence(screen.view, QKeySequence::SelectAll);
    QTest::keySequence(screen.view, QKeySequence::Cut);
    QCOMPARE(screen.view->sourceText(), QByteArray("\xEF\xBB\xBF"));
    QTest::keyClick(screen.view, Qt::Key_Return);
    QCOMPARE(screen.view->sourceText(), QByteArray("\xEF\xBB\xBF\r\n"));
}

void TestSourceView::contextMenuCutsAndPastes()
{
    const Screen screen;
    const auto choose = [&screen](const QString &text) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QCursor::pos());
        QCoreApplication::sendEvent(screen.view->viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction *action : menu->actions()) {
            if (action->text() == text) {
                menu->setActiveAction(action);
            }
        }
        QTest::keyClick(menu, Qt::Key_Return);
    };
    choose(QStringLiteral("Select all"));
    choose(QStringLiteral("Cut"));
    QCOMPARE(screen.view->sourceText(), QByteArray("\xEF\xBB\xBF"));
    choose(QStringLiteral("Paste"));
    QVERIFY(screen.view->sourceText().contains("]one\r\n"));
}

void TestSourceView::filesAreNotTaken()
{
    const Screen screen;
    const support::DraggedFiles files({QStringLiteral("/song.mp3")});
    QVERIFY(!support::dragInto(screen.view->viewport(), files));
    QCOMPARE(screen.view->sourceText(), kSong);
}

void TestSourceView::textIsDropped()
{
    const Screen screen("ab");
    QMimeData text;
    text.setText(QStringLiteral("x"));
    text.setHtml(QStringLiteral("<h1>x</h1>"));
    QVERIFY(support::dragInto(screen.view->viewport(), text));
    QVERIFY(support::dropOnto(screen.view->viewport(), text));
    QCOMPARE(screen.view->sourceText(), QByteArray("abx"));
}

void TestSourceView::whatCannotBeShownIsShownAsAMark()
{
    const Screen screen("a");
    // As an assistive tool may put it in.
    QTextCursor(screen.view->document()).insertText(QStringLiteral(u"\x0001"));
    QCOMPARE(screen.view->sourceText(),
        QByteArray("\x01"
                   "a"));
    QCOMPARE(screen.view->document()->toRawText(),
        QStringLiteral(u"\xFFFD"
                       "a"));
}

void TestSourceView::caretLineIsTold()
{
    const Screen screen;
    QSignalSpy lines(screen.view, &SourceView::caretLineChanged);
    QTest::keyClick(screen.view, Qt::Key_Down);
    QTest::keyClick(screen.view, Qt::Key_Right);
    QTest::keyClick(screen.view, Qt::Key_Down);
    QCOMPARE(lines.count(), 2);
    QCOMPARE(lines.at(1).at(0).toInt(), 2);
    screen.view->setSourceText("new\n" + kSong);
    QCOMPARE(lines.count(), 3);
    QCOMPARE(lines.at(2).at(0).toInt(), 3);
}

void TestSourceView::caretIsMovedToALine()
{
    const Screen screen;
    screen.view->moveCaretToLine(2);
    QCOMPARE(screen.view->caretLine(), 2);
    screen.caretTo(2, 5);
    screen.view->moveCaretToLine(2);
    QCOMPARE(screen.column(), 5);
    screen.view->moveCaretToLine(99);
    QCOMPARE(screen.view->caretLine(), 3);
    screen.view->moveCaretToLine(-1);
    QCOMPARE(screen.view->caretLine(), 0);
}

void TestSourceView::problemsAreMarked()
{
    const Screen screen("[00:02.00][00:01.00]a\nplain\n[00:03.00]b");
    bool isWrong = true;
    screen.view->setProblemFinder(
        [&isWrong](int line) { return isWrong && line < 2 ? QStringLiteral("Not in order") : QString(); });
    QCoreApplication::processEvents();
    QStringList marked;
    for (const QTextEdit::ExtraSelection &selection : screen.view->extraSelections()) {
        QCOMPARE(selection.format.underlineStyle(), QTextCharFormat::WaveUnderline);
        marked.append(selection.cursor.selectedText());
    }
    QCOMPARE(marked,
        QStringList({QStringLiteral("[00:02.00]"), QStringLiteral("[00:01.00]"), QStringLiteral("plain")}));
    QCOMPARE(screen.view->accessibleDescription(), QStringLiteral("Not in order"));
    const QColor warning = kit::Theme(screen.view).warning;
    const QWidget *margin = screen.view->findChild<QWidget *>(QStringLiteral("margin"));
    QVERIFY(hasColour(const_cast<QWidget *>(margin)->grab().toImage(), warning));
    isWrong = false;
    screen.view->refreshProblems();
    QCoreApplication::processEvents();
    QVERIFY(screen.view->extraSelections().isEmpty());
    QVERIFY(screen.view->accessibleDescription().isEmpty());
    QVERIFY(!hasColour(const_cast<QWidget *>(margin)->grab().toImage(), warning));
}

void TestSourceView::problemsHaveATooltip()
{
    const Screen screen;
    screen.view->setProblemFinder(
        [](int line) { return line == 1 ? QStringLiteral("Too early") : QString(); });
    QCoreApplication::processEvents();
    const auto lines = screen.view->visibleLines();
    const auto pointAt = [&](QWidget *widget, std::size_t line) {
        const QPoint place(3, lines.at(line).top + 3);
        QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
        QCoreApplication::sendEvent(widget, &event);
        return QToolTip::text();
    };
    QCOMPARE(pointAt(screen.view->viewport(), 1), QStringLiteral("Too early"));
    QToolTip::hideText();
    QCOMPARE(
        pointAt(screen.view->findChild<QWidget *>(QStringLiteral("margin")), 1), QStringLiteral("Too early"));
    QCOMPARE(screen.view->visibleLines().size(), std::size_t(4));
}

void TestSourceView::coloursFollowThePalette()
{
    Screen screen("[00:01.00]a");
    const auto colours = [&screen] { return screen.view->viewport()->grab().toImage(); };
    const QColor before = kit::Theme(screen.view).accentText;
    QVERIFY(hasColour(colours(), kit::Theme(screen.view).panel));
    QPalette dark = screen.window.palette();
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Text, QColor(0xEE, 0xEE, 0xEE));
    screen.window.setPalette(dark);
    QVERIFY(kit::Theme(screen.view).accentText != before);
    QVERIFY(kit::Theme(screen.view).isDark);
    const auto formats = screen.view->document()->firstBlock().layout()->formats();
    QCOMPARE(formats.constFirst().format.foreground().color(), kit::Theme(screen.view).accentText);
}

void TestSourceView::caretIsInTheAccent()
{
    const Screen screen("a");
    QTRY_VERIFY(screen.view->hasFocus());
    QTest::keyClick(screen.view, Qt::Key_End);
    QVERIFY(hasColour(screen.view->viewport()->grab().toImage(), kit::Theme(screen.view).accent));
    screen.next->setFocus();
    QVERIFY(!hasColour(screen.view->viewport()->grab().toImage(), kit::Theme(screen.view).accent));
}

void TestSourceView::hasANameForAssistiveTools()
{
    const Screen screen;
    QCOMPARE(screen.view->accessibleName(), QStringLiteral("LRC source"));
}

} // namespace

QTEST_MAIN(TestSourceView)
#include "tst_source_view.moc"
