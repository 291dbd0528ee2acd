// SPDX-License-Identifier: MIT
#include "kit/Theme.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"
#include "views/CellTextView.h"

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

using views::CellTextView;

namespace {

const QString kHebrew = QString::fromUtf8("כוכב קטן, איך אתה");

struct Field
{
    explicit Field(const QString &text = {})
    {
        view.setTextPlace(8, 8, 32);
        view.resize(200, 31);
        view.setCellText(text);
        window.resize(300, 100);
        view.setParent(&window);
        window.show();
        view.setFocus();
    }
    void paste(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    }
    [[nodiscard]] bool isCaretInSight() const { return view.viewport()->rect().contains(view.cursorRect()); }

    QWidget window;
    CellTextView view{nullptr};
};

int pixelsLike(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    }
    return count;
}

} // namespace

class tst_CellTextView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everyCharacterComesBack_data();
    void everyCharacterComesBack();
    void whatIsTypedBesideOddCharactersLeavesThem_data() { everyCharacterComesBack_data(); }
    void whatIsTypedBesideOddCharactersLeavesThem();
    void oneLineWhateverItHolds_data() { everyCharacterComesBack_data(); }
    void oneLineWhateverItHolds();
    void aLongLineComesBack();
    void keysOfTheTableAreLetGo_data();
    void keysOfTheTableAreLetGo();
    void undoTakesBackTypingAndNoMore();
    void pastedLinesBecomeOneUnlessTaken_data();
    void pastedLinesBecomeOneUnlessTaken();
    void takenLinesAreHandedOverAsTheyCame();
    void whoeverTakesTheLinesMayCloseTheView();
    void droppedLinesAreHandedOverAfterTheDrag();
    void droppedWordsGoWhereTheyFall();
    void droppedFilesAreNotTaken();
    void copyingKeepsTheCharacters();
    void inputMethodsBringNoLineBreak();
    void partsAroundTheSelection();
    void theCaretStaysInSight_data();
    void theCaretStaysInSight();
    void aRightToLeftTextBeginsAtTheRight();
    void clicksInTheMarginsCount();
    void caretHasTheAccentColourWhileFocused();
    void contextMenuWorks();
};

void tst_CellTextView::everyCharacterComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("no-break space") << QStringLiteral("a\u00A0b");
    QTest::newRow("line separator") << QStringLiteral("a\u2028b");
    QTest::newRow("paragraph separator") << QStringLiteral("\u2029a\u2029");
    QTest::newRow("line feed") << QStringLiteral("a\nb");
    QTest::newRow("carriage return") << QStringLiteral("a\r\nb\r");
    QTest::newRow("next line") << QStringLiteral("a\u0085b");
    QTest::newRow("frame marks") << QStringLiteral("a\uFDD0b\uFDD1");
    QTest::newRow("object") << QStringLiteral("\uFFFCa");
    QTest::newRow("NUL and controls") << QStringLiteral("a\u0001\u0002b") + QChar(0);
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("emoji") << QStringLiteral("\U0001F600\U0001F468\u200D\U0001F469");
    QTest::newRow("combining") << QStringLiteral("e\u0301o\u0308");
    QTest::newRow("lone surrogate") << QStringLiteral("a") + QChar(0xD800);
    QTest::newRow("right to left") << kHebrew + QStringLiteral("\u200F\u202E");
    QTest::newRow("byte-order mark") << QStringLiteral("\uFEFFa");
    QTest::newRow("blanks") << QStringLiteral("  a  b  ");
    QTest::newRow("markup") << QStringLiteral("<b>a</b>&amp;");
}

void tst_CellTextView::everyCharacterComesBack()
{
    QFETCH(QString, text);
    const Field field(text);
    QCOMPARE(field.view.cellText(), text);
    QVERIFY(!field.view.document()->isUndoAvailable());
}

void tst_CellTextView::whatIsTypedBesideOddCharactersLeavesThem()
{
    QFETCH(QString, text);
    Field field(text);
    QTest::keyClick(&field.view, Qt::Key_Z);
    QCOMPARE(field.view.cellText(), text + "z");
    QTest::keyClick(&field.view, Qt::Key_Home);
    QTest::keyClick(&field.view, Qt::Key_Y);
    QCOMPARE(field.view.cellText(), "y" + text + "z");
    QTest::keyClick(&field.view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field.view, Qt::Key_Delete);
    QCOMPARE(field.view.cellText(), QString());
    QTest::keyClick(&field.view, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.view.cellText(), "y" + text + "z");
}

void tst_CellTextView::oneLineWhateverItHolds()
{
    QFETCH(QString, text);
    const Field field(text);
    QCOMPARE(field.view.document()->blockCount(), 1);
    QCOMPARE(field.view.document()->firstBlock().layout()->lineCount(), 1);
}

void tst_CellTextView::aLongLineComesBack()
{
    const QString text = QStringLiteral("lorem\u00A0ipsum ").repeated(100'000 / 12);
    Field field(text);
    QCOMPARE(field.view.cellText(), text);
    QTest::keyClick(&field.view, Qt::Key_Z);
    QCOMPARE(field.view.cellText(), text + "z");
    QVERIFY(field.isCaretInSight());
}

void tst_CellTextView::keysOfTheTableAreLetGo_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifier>("modifier");
    for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
        for (const auto key :
            {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown})
            QTest::newRow(qPrintable(QKeySequence(key | modifier).toString())) << key << modifier;
    }
}

void tst_CellTextView::keysOfTheTableAreLetGo()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifier, modifier);
    Field field("text");
    QKeyEvent event(QEvent::KeyPress, key, modifier, key == Qt::Key_Return ? "\r" : QString());
    event.setAccepted(true);
    static_cast<QObject &>(field.view).event(&event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(field.view.cellText(), "text");
    QCOMPARE(field.view.document()->blockCount(), 1);
}

void tst_CellTextView::undoTakesBackTypingAndNoMore()
{
    Field field("given\u00A0");
    QTest::keyClicks(&field.view, "xyz");
    QTest::keyClick(&field.view, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.view.cellText(), QStringLiteral("given\u00A0"));
    QTest::keyClick(&field.view, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.view.cellText(), QStringLiteral("given\u00A0"));
    QTest::keyClick(&field.view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field.view.cellText(), QStringLiteral("given\u00A0xyz"));
}

void tst_CellTextView::pastedLinesBecomeOneUnlessTaken_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("offered");
    QTest::newRow("a word") << "word"
                            << "word" << false;
    QTest::newRow("a whole line") << "line\n"
                                  << "line" << false;
    QTest::newRow("a whole line of another system") << "line\r\n"
                                                    << "line" << false;
    QTest::newRow("two lines") << "one\ntwo"
                               << "one two" << true;
    QTest::newRow("two whole lines") << "one\r\ntwo\r\n"
                                     << "one two" << true;
    QTest::newRow("separators") << QStringLiteral("one\u2028two\u2029three") << "one two three" << true;
    QTest::newRow("a blank line") << "one\n\ntwo"
                                  << "one  two" << true;
    QTest::newRow("marks of documents") << QStringLiteral("a\uFDD0b") << QStringLiteral("a\uFFFDb") << false;
    QTest::newRow("no-break space") << QStringLiteral("a\u00A0b") << QStringLiteral("a\u00A0b") << false;
}

void tst_CellTextView::pastedLinesBecomeOneUnlessTaken()
{
    QFETCH(QString, pasted);
    QFETCH(QString, line);
    QFETCH(bool, offered);
    Field field("<>");
    QTest::keyClick(&field.view, Qt::Key_Left);
    int offers = 0;
    field.view.setLinesHandler([&offers](const QString &) {
        ++offers;
        return false;
    });
    field.paste(pasted);
    QCOMPARE(field.view.cellText(), "<" + line + ">");
    QCOMPARE(offers, offered ? 1 : 0);
    QCOMPARE(field.view.document()->blockCount(), 1);
}

void tst_CellTextView::takenLinesAreHandedOverAsTheyCame()
{
    Field field("text");
    QString taken;
    field.view.setLinesHandler([&taken](const QString &pasted) {
        taken = pasted;
        return true;
    });
    field.paste("one\r\ntwo\r\n");
    QCOMPARE(taken, "one\r\ntwo\r\n");
    QCOMPARE(field.view.cellText(), "text");
}

void tst_CellTextView::whoeverTakesTheLinesMayCloseTheView()
{
    QWidget window;
    auto *view = new CellTextView(&window);
    view->setCellText("text");
    window.show();
    int offers = 0;
    view->setLinesHandler([&offers, view](const QString &) {
        ++offers;
        delete view;
        return false;
    });
    const std::unique_ptr<QMimeData> lines(new QMimeData);
    lines->setText("one\ntwo");
    QVERIFY(support::dragInto(view->viewport(), *lines));
    QVERIFY(support::dropOnto(view->viewport(), *lines));
    QCoreApplication::processEvents();
    QCOMPARE(offers, 1);
}

void tst_CellTextView::droppedLinesAreHandedOverAfterTheDrag()
{
    Field field("text");
    QStringList offers;
    field.view.setLinesHandler([&](const QString &pasted) {
        offers << pasted << field.view.textBeforeSelection() << field.view.textAfterSelection();
        return false;
    });
    QMimeData lines;
    lines.setText("one\ntwo");
    const QPoint start(3, 15);
    QVERIFY(support::dragAt(field.view.viewport(), start, lines));
    QVERIFY(support::dropAt(field.view.viewport(), start, lines));
    QVERIFY(offers.isEmpty());
    QCOMPARE(field.view.cellText(), "text");
    QCoreApplication::processEvents();
    QCOMPARE(offers, QStringList({"one\ntwo", "", "text"}));
    QCOMPARE(field.view.cellText(), "one twotext");
}

void tst_CellTextView::droppedWordsGoWhereTheyFall()
{
    Field field("text");
    QMimeData word;
    word.setText("word ");
    QVERIFY(support::dragAt(field.view.viewport(), {3, 15}, word));
    QVERIFY(support::dropAt(field.view.viewport(), {3, 15}, word));
    QCOMPARE(field.view.cellText(), "word text");
}

void tst_CellTextView::droppedFilesAreNotTaken()
{
    Field field("text");
    QVERIFY(!support::dragInto(field.view.viewport(), support::DraggedFiles({"/a.lrc"})));
}

void tst_CellTextView::copyingKeepsTheCharacters()
{
    Field field(QStringLiteral("a\u00A0b\u2028c d"));
    QTest::keyClick(&field.view, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&field.view, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&field.view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field.view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("a\u00A0b\u2028c d"));
    QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
}

void tst_CellTextView::inputMethodsBringNoLineBreak()
{
    Field field("a");
    QInputMethodEvent event;
    event.setCommitString("b\nc");
    QApplication::sendEvent(&field.view, &event);
    QCOMPARE(field.view.cellText(), "ab c");
    QCOMPARE(field.view.document()->blockCount(), 1);
}

void tst_CellTextView::partsAroundTheSelection()
{
    Field field(QStringLiteral("ab\u2028cd"));
    QCOMPARE(field.view.textBeforeSelection(), QStringLiteral("ab\u2028cd"));
    QCOMPARE(field.view.textAfterSelection(), QString());
    QTest::keyClick(&field.view, Qt::Key_Left);
    QTest::keyClick(&field.view, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(field.view.textBeforeSelection(), QStringLiteral("ab\u2028"));
    QCOMPARE(field.view.textAfterSelection(), "d");
    field.view.selectWholeText();
    QCOMPARE(field.view.textBeforeSelection() + field.view.textAfterSelection(), QString());
    field.view.selectNothing();
    QVERIFY(!field.view.textCursor().hasSelection());
}

void tst_CellTextView::theCaretStaysInSight_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("left to right") << QString("a line that goes on ").repeated(15);
    QTest::newRow("right to left") << kHebrew.repeated(15);
    QTest::newRow("without blanks") << QString::fromUtf8("光る夜に小さな星よ").repeated(15);
}

void tst_CellTextView::theCaretStaysInSight()
{
    QFETCH(QString, text);
    Field field(text);
    for (const auto key : {Qt::Key_End, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&field.view, key);
        QVERIFY(field.isCaretInSight());
    }
    QTest::keyClicks(&field.view, "more");
    QVERIFY(field.isCaretInSight());
    field.view.resize(120, 31);
    QVERIFY(field.isCaretInSight());
    QVERIFY(!field.view.horizontalScrollBar()->isVisible());
    QCOMPARE(field.view.verticalScrollBar()->maximum(), 0);
}

void tst_CellTextView::aRightToLeftTextBeginsAtTheRight()
{
    Field field(kHebrew);
    QTest::keyClick(&field.view, Qt::Key_Home);
    QCOMPARE(field.view.cursorRect().left(), field.view.viewport()->width() - 8);
    QTest::keyClick(&field.view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field.view, Qt::Key_X);
    QTest::keyClick(&field.view, Qt::Key_Home);
    QCOMPARE(field.view.cursorRect().left(), 8);
}

void tst_CellTextView::clicksInTheMarginsCount()
{
    Field field("text");
    QTest::mouseClick(field.view.viewport(), Qt::LeftButton, {}, QPoint(2, 1));
    QCOMPARE(field.view.textBeforeSelection(), QString());
    QTest::mouseClick(field.view.viewport(), Qt::LeftButton, {}, QPoint(190, 29));
    QCOMPARE(field.view.textBeforeSelection(), "text");
}

void tst_CellTextView::caretHasTheAccentColourWhileFocused()
{
    Field field("");
    QVERIFY(QTest::qWaitForWindowActive(&field.window));
    const QColor accent = kit::Theme(&field.view).focus;
    QTRY_VERIFY(pixelsLike(field.view.grab().toImage(), accent) > 0);
    QTest::keyClick(&field.view, Qt::Key_Home); // shown anew after each key
    const int caret = pixelsLike(field.view.grab().toImage(), accent);
    QCOMPARE(caret % 3, 0);
    QVERIFY(caret >= 3 * 10);
    field.view.clearFocus();
    QCOMPARE(pixelsLike(field.view.grab().toImage(), accent), 0);
}

void tst_CellTextView::contextMenuWorks()
{
    Field field("text");
    QVERIFY(QTest::qWaitForWindowActive(&field.window));
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, {20, 15}, field.view.viewport()->mapToGlobal(QPoint(20, 15)));
    QApplication::sendEvent(field.view.viewport(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(field.view.hasFocus());
    auto *all = menu->findChild<QAction *>("select-all");
    QVERIFY(all);
    all->trigger();
    menu->close();
    QCOMPARE(field.view.textCursor().selectedText(), "text");
}

QTEST_MAIN(tst_CellTextView)
#include "tst_cell_text_view.moc"
