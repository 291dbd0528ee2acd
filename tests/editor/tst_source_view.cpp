// SPDX-License-Identifier: MIT
#include "editor/SourceView.h"
#include "kit/Theme.h"
#include "resources/Resources.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtCore/QMimeData>
#include <QtGui/QAction>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QHelpEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

const QByteArray kSong = "\xEF\xBB\xBF[ti:Song]\r\n[00:01.00]one\n[00:02.00]two \xFF\r\n[00:03.00]three";

/// A source view in a window, before a field that the tab key goes to.
struct Screen
{
    explicit Screen(const QByteArray &bytes = kSong)
    {
        auto *column = new QVBoxLayout(&window);
        view = new SourceView;
        next = new QLineEdit;
        column->addWidget(view);
        column->addWidget(next);
        window.resize(520, 300);
        window.show();
        window.activateWindow();
        view->setFocus();
        view->setSourceText(bytes);
        QCoreApplication::processEvents();
    }
    void caretTo(int line, int column) const
    {
        QTextCursor cursor(view->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
        view->setTextCursor(cursor);
    }
    void type(const char *text) const { QTest::keyClicks(view, QString::fromUtf8(text)); }
    void compose(const QString &preedit, const QString &commit = {}) const
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(view, &event);
    }
    [[nodiscard]] int column() const { return view->textCursor().positionInBlock(); }

    QWidget window;
    SourceView *view;
    QLineEdit *next;
};

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
    void initTestCase() { resources::ensureLoaded(); }
    void init() { support::failOnUnexpectedWarnings(); }

    void whatWasNotEditedKeepsItsBytes();
    void typingIsToldOncePerTurn();
    void flushTellsNow();
    void whatLeavesTheBytesIsNotTold();
    void newBytesAreNotTold();
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

    void newBytesKeepTheCaretInItsLine();
    void newBytesKeepTheSelection();
    void newBytesKeepWhatIsOnScreen();
    void linesPutInAtTheEndLeaveTheCaret();
    void bytesFromBeforeTheTypingChangeNothing();
    void bytesOfOtherLinesAreMergedWithTheTyping();
    void bytesOfTheTypedLineDisplaceTheTyping();

    void composingIsNotTold();
    void composingGoesOnWhenOtherLinesChange();
    void composingIsKeptWhenItsLineChanges();

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

void TestSourceView::newBytesAreNotTold()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.view->setSourceText("a\nb");
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(screen.view->sourceText(), QByteArray("a\nb"));
    QCOMPARE(screen.view->document()->toRawText(),
        QStringLiteral(u"a\x2029"
                       "b"));
    screen.view->setSourceText({});
    QCOMPARE(screen.view->document()->isEmpty(), true);
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
        QMetaObject::invokeMethod(
            screen.view,
            [text] {
                auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
                QVERIFY(menu);
                for (QAction *action : menu->actions()) {
                    if (action->text() == text) {
                        menu->setActiveAction(action);
                    }
                }
                QTest::keyClick(menu, Qt::Key_Return);
            },
            Qt::QueuedConnection);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QCursor::pos());
        QCoreApplication::sendEvent(screen.view->viewport(), &event);
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

void TestSourceView::newBytesKeepTheCaretInItsLine()
{
    const Screen screen;
    screen.caretTo(2, 12);
    screen.view->setSourceText("new\nnewer\n" + kSong.mid(3));
    QCOMPARE(screen.view->caretLine(), 4);
    QCOMPARE(screen.column(), 12);
    screen.view->setSourceText(QByteArray(kSong.mid(3)).replace("[00:0", "[10:0"));
    QCOMPARE(screen.view->caretLine(), 2);
    QCOMPARE(screen.column(), 12);
    screen.view->setSourceText("[10:02.00]two \xFF\r\n");
    QCOMPARE(screen.view->caretLine(), 0);
    QCOMPARE(screen.column(), 12);
}

void TestSourceView::newBytesKeepTheSelection()
{
    const Screen screen;
    screen.caretTo(1, 10);
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ShiftModifier);
    screen.view->setSourceText(QByteArray(kSong).replace("[ti:Song]\r\n", "").replace("three", "3"));
    QCOMPARE(screen.view->textCursor().selectedText(), QStringLiteral("one"));
    QCOMPARE(screen.view->caretLine(), 0);
}

void TestSourceView::newBytesKeepWhatIsOnScreen()
{
    QByteArray song;
    for (int line = 0; line < 300; ++line) {
        song += "[00:01.00]line " + QByteArray::number(line) + "\n";
    }
    const Screen screen(song);
    screen.view->moveCaretToLine(150);
    const auto upper = [&screen] { return screen.view->cursorForPosition(QPoint(0, 0)).block().text(); };
    const QString before = upper();
    screen.view->setSourceText("a\nb\nc\n" + song + "z\n");
    QCOMPARE(upper(), before);
    screen.view->setSourceText(song.mid(song.indexOf("[00:01.00]line 9\n")));
    QCOMPARE(upper(), before);
}

void TestSourceView::linesPutInAtTheEndLeaveTheCaret()
{
    const Screen screen;
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ControlModifier);
    screen.view->setSourceText(kSong + "\nfour\nfive");
    QCOMPARE(screen.view->caretLine(), 3);
    QVERIFY(screen.view->textCursor().atBlockEnd());
}

void TestSourceView::bytesFromBeforeTheTypingChangeNothing()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.type("x");
    screen.view->setSourceText(kSong);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("[ti", "x[ti"));
}

void TestSourceView::bytesOfOtherLinesAreMergedWithTheTyping()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    QSignalSpy displaced(screen.view, &SourceView::editsDisplaced);
    screen.caretTo(2, 10);
    screen.type("x");
    screen.view->setSourceText("[ar:A]\n" + kSong.mid(3));
    QCOMPARE(screen.view->sourceText(), "[ar:A]\n" + kSong.mid(3).replace("two", "xtwo"));
    QCOMPARE(edited.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
    const QByteArray base = screen.view->sourceText();
    screen.type("y");
    screen.view->setSourceText(QByteArray(base).replace("three", "drei"));
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 2);
    QCOMPARE(screen.view->sourceText(), QByteArray(base).replace("xtwo", "xytwo").replace("three", "drei"));
    QCOMPARE(displaced.count(), 0);
}

void TestSourceView::bytesOfTheTypedLineDisplaceTheTyping()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    QSignalSpy displaced(screen.view, &SourceView::editsDisplaced);
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ControlModifier);
    screen.type("x");
    screen.view->setSourceText("[ti:Another]\nwords");
    QCOMPARE(displaced.count(), 1);
    QCOMPARE(displaced.at(0).at(0).toByteArray(), kSong + "x");
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(screen.view->sourceText(), QByteArray("[ti:Another]\nwords"));
}

void TestSourceView::composingIsNotTold()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.caretTo(1, 10);
    screen.compose(QStringLiteral("ni"));
    QCoreApplication::processEvents();
    screen.compose(QStringLiteral("nihao"));
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 0);
    QCOMPARE(screen.view->sourceText(), kSong);
    screen.compose({}, QStringLiteral("你好"));
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("]one", "]你好one"));
}

void TestSourceView::composingGoesOnWhenOtherLinesChange()
{
    const Screen screen;
    screen.caretTo(1, 10);
    screen.compose(QStringLiteral("ni"));
    const QByteArray shifted = "new\n" + kSong.mid(3).replace("[00:03", "[00:04");
    screen.view->setSourceText(shifted);
    QCOMPARE(screen.view->textCursor().block().layout()->preeditAreaText(), QStringLiteral("ni"));
    QCOMPARE(screen.view->sourceText(), shifted);
    screen.compose({}, QStringLiteral("你"));
    QCOMPARE(screen.view->sourceText(), QByteArray(shifted).replace("]one", "]你one"));
}

void TestSourceView::composingIsKeptWhenItsLineChanges()
{
    const Screen screen;
    QSignalSpy displaced(screen.view, &SourceView::editsDisplaced);
    screen.caretTo(1, 10);
    screen.compose(QStringLiteral("ni"));
    const QByteArray now = QByteArray(kSong).replace("one", "eins");
    screen.view->setSourceText(now);
    QCOMPARE(displaced.count(), 1);
    QCOMPARE(displaced.at(0).at(0).toByteArray(), QByteArray(kSong).replace("]one", "]nione"));
    QCOMPARE(screen.view->sourceText(), now);
    QVERIFY(screen.view->textCursor().block().layout()->preeditAreaText().isEmpty());
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
