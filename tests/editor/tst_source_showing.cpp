// SPDX-License-Identifier: MIT
//
// What stays as it was while bytes are handed in, the user types and an input method composes.
#include "editor/SourceOnScreen.h"
#include "lyrics/Generator.h"
#include "support/QtWarnings.h"

#include <QtGui/QClipboard>
#include <QtGui/QTextLayout>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QApplication>

#include <array>

namespace {

using source::kSong;
using source::Screen;

class TestSourceShowing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void newBytesKeepTheCaretInItsLine();
    void newBytesInAnEmptyTextLeaveTheCaretAtItsBeginning();
    void newBytesKeepTheSelection();
    void newBytesKeepWhatIsOnScreen();
    void linesPutInAtTheEndLeaveTheCaret();
    void bytesFromBeforeTheTypingChangeNothing();
    void bytesOfOtherLinesAreMergedWithTheTyping();
    void bytesOfTheTypedLineDisplaceTheTyping();
    void composingIsNotTold();
    void composingGoesOnWhenOtherLinesChange();
    void composingIsKeptWhenItsLineChanges();
    void anyKeysLeaveWhatTheBytesSay();
    void newBytesAreNotTold();
};

void TestSourceShowing::newBytesKeepTheCaretInItsLine()
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

void TestSourceShowing::newBytesInAnEmptyTextLeaveTheCaretAtItsBeginning()
{
    const Screen screen("a\nb\n");
    QCOMPARE(screen.view->textCursor().position(), 0);
}

void TestSourceShowing::newBytesKeepTheSelection()
{
    const Screen screen;
    screen.caretTo(1, 10);
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ShiftModifier);
    screen.view->setSourceText(QByteArray(kSong).replace("[ti:Song]\r\n", "").replace("three", "3"));
    QCOMPARE(screen.view->textCursor().selectedText(), QStringLiteral("one"));
    QCOMPARE(screen.view->caretLine(), 0);
}

void TestSourceShowing::newBytesKeepWhatIsOnScreen()
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

void TestSourceShowing::linesPutInAtTheEndLeaveTheCaret()
{
    const Screen screen;
    QTest::keyClick(screen.view, Qt::Key_End, Qt::ControlModifier);
    screen.view->setSourceText(kSong + "\nfour\nfive");
    QCOMPARE(screen.view->caretLine(), 3);
    QVERIFY(screen.view->textCursor().atBlockEnd());
}

void TestSourceShowing::bytesFromBeforeTheTypingChangeNothing()
{
    const Screen screen;
    QSignalSpy edited(screen.view, &SourceView::sourceEdited);
    screen.type("x");
    screen.view->setSourceText(kSong);
    QCoreApplication::processEvents();
    QCOMPARE(edited.count(), 1);
    QCOMPARE(screen.view->sourceText(), QByteArray(kSong).replace("[ti", "x[ti"));
}

void TestSourceShowing::bytesOfOtherLinesAreMergedWithTheTyping()
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

void TestSourceShowing::bytesOfTheTypedLineDisplaceTheTyping()
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

void TestSourceShowing::composingIsNotTold()
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

void TestSourceShowing::composingGoesOnWhenOtherLinesChange()
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

void TestSourceShowing::composingIsKeptWhenItsLineChanges()
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

void TestSourceShowing::anyKeysLeaveWhatTheBytesSay()
{
    generate::Random random(91);
    const Screen screen(QByteArray{});
    QByteArray known;
    // A host that takes over what it is told of.
    QObject::connect(screen.view, &SourceView::sourceEdited, &screen.window, [&known, &screen] {
        known = screen.view->sourceText();
        screen.view->setSourceText(known);
    });
    const auto anyText = [&random] { return QByteArray::fromStdString(generate::anyText(random, 6, false)); };
    QApplication::clipboard()->setText(QStringLiteral(u"a\r\n\xFFFD"
                                                      "\x8D70"));
    constexpr std::array<int, 12> kKeys
        = {Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right,
            Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_V, Qt::Key_X};
    for (int round = 0; round < 3000; ++round) {
        const auto key = static_cast<Qt::Key>(kKeys[random.below(kKeys.size())]);
        const bool isCommand = key == Qt::Key_V || key == Qt::Key_X;
        const bool isSelecting = !isCommand && random.oneIn(3);
        QTest::keyClick(screen.view, key,
            isCommand ? Qt::ControlModifier : (isSelecting ? Qt::ShiftModifier : Qt::NoModifier));
        if (random.oneIn(3)) {
            QCoreApplication::processEvents();
            QCOMPARE(known, screen.view->sourceText());
        }
        if (random.oneIn(20)) {
            screen.view->flushEdits();
            known = random.oneIn(2) ? anyText() : anyText() + known;
            screen.view->setSourceText(known);
            QCOMPARE(screen.view->sourceText(), known);
        }
        QString shown = screen.view->document()->toRawText();
        shown.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
        QCOMPARE(shown, editor::SourceText(screen.view->sourceText()).shown());
    }
}

void TestSourceShowing::newBytesAreNotTold()
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

} // namespace

QTEST_MAIN(TestSourceShowing)
#include "tst_source_showing.moc"
