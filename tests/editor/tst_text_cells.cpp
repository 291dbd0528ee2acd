// SPDX-License-Identifier: MIT
//
// The text column: chips, the text view that edits it, and what is dropped on the table.
#include "EditorOnScreen.h"
#include "kit/Theme.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>

namespace {

/// An editor that takes the lines that are pasted into a cell.
class TakingEditor final : public TQLRCEditorViewCtl
{
public:
    bool tableView_didPasteText_inColumn_row(
        MyTableView *, const kit::CellCaret &caret, const QString &pasted) override
    {
        taken
            = QStringList({caret.identifier, QString::number(caret.row), caret.before, caret.after, pasted});
        return true;
    }
    QStringList taken;
};

// The leftmost column of `picture`, from `from` on, that has ink, and the first row that has.
QPoint inkStart(const QImage &picture, int from, const QColor &ground)
{
    QPoint start(picture.width(), picture.height());
    for (int x = from; x < picture.width(); ++x) {
        for (int y = 1; y < picture.height() - 2; ++y) {
            if (qGray(picture.pixel(x, y)) < qGray(ground.rgb()) / 2) {
                start = QPoint(std::min(start.x(), x), std::min(start.y(), y));
            }
        }
    }
    return start;
}

QRect textCell(const EditorOnScreen &screen, int row)
{
    const int column = screen.table()->columnWithIdentifier(QStringLiteral("text"));
    return screen.table()->visualRect(screen.table()->model()->index(row, column));
}

void openText(const EditorOnScreen &screen, int row, bool select = true)
{
    screen.table()->editColumn_row_select(
        screen.table()->columnWithIdentifier(QStringLiteral("text")), row, select);
}

} // namespace

class TextCells : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void tagLinesHaveAChipAndTheirValueAlone_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("chip");
        QTest::addColumn<QString>("value");
        QTest::newRow("title") << QByteArray("[ti: The Star]") << "Title"
                               << "The Star";
        QTest::newRow("artist") << QByteArray("[AR:Traditional]") << "Artist"
                                << "Traditional";
        QTest::newRow("album") << QByteArray("[al:]") << "Album"
                               << "";
        QTest::newRow("editor") << QByteArray("[by:me]") << "Edited by"
                                << "me";
        QTest::newRow("another tag") << QByteArray("[offset:+500]") << ""
                                     << "[offset:+500]";
        QTest::newRow("a lyric") << QByteArray("Twinkle") << ""
                                 << "Twinkle";
    }

    void tagLinesHaveAChipAndTheirValueAlone()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, chip);
        QFETCH(QString, value);
        EditorOnScreen screen;
        screen.load(line + "\n");
        const auto look = [&screen](const char *column) {
            return screen.editor->tableView_lookOfCell(screen.table(), QString::fromLatin1(column), 0);
        };
        QCOMPARE(look("text").chip, chip);
        QCOMPARE(look("number").chip, QString());
        QVERIFY(look("number").quiet);
        QCOMPARE(look("text").quiet, chip.isEmpty() && value.startsWith(QLatin1Char('[')));
        QVERIFY(look("text").problem.isEmpty() && !look("number").current);
        QCOMPARE(screen.cell("text", 0), value);
        openText(screen, 0);
        QCOMPARE(screen.textField()->cellText(), value);
        QCOMPARE(screen.textField()->accessibleDescription(), chip);
        QCOMPARE(screen.textField()->accessibleName(), QStringLiteral("Text"));
    }

    void theTextStaysWhereItStandsWhenItsCellOpens_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("plain") << QByteArray("HHHH text");
        QTest::newRow("behind a chip") << QByteArray("[ti:HHHH text]");
        QTest::newRow("from the right") << QByteArray("\xd7\x9b\xd7\x95\xd7\x9b\xd7\x91");
        QTest::newRow("from the right, with a chip") << QByteArray("[ti:\xd7\x9b\xd7\x95\xd7\x9b\xd7\x91]");
        QTest::newRow("longer than the cell") << QByteArray("HHHH text ").repeated(50);
    }

    void theTextStaysWhereItStandsWhenItsCellOpens()
    {
        QFETCH(QByteArray, line);
        EditorOnScreen screen;
        screen.load(line + "\nother\n");
        screen.table()->selectSingleRow(1);
        const QRect cell = textCell(screen, 0);
        const QColor panel = kit::Theme(screen.table()).panel;
        const QImage closed = screen.table()->viewport()->grab(cell).toImage();
        openText(screen, 0, false);
        QWidget *field = screen.field();
        QVERIFY(cell.contains(field->geometry()));
        screen.textField()->setCaretWidth(0);
        screen.textField()->moveCursor(QTextCursor::Start);
        const QImage open = screen.table()->viewport()->grab(cell).toImage();
        const int from = std::max(0, field->geometry().left() - cell.left());
        // The chip lies to the right of a text that begins there.
        const QImage closedText = closed.copy(0, 0, field->geometry().right() - cell.left(), closed.height());
        const QImage openText = open.copy(0, 0, closedText.width(), open.height());
        const QPoint before = inkStart(closedText, from, panel);
        QVERIFY(before.x() < closedText.width());
        QCOMPARE(inkStart(openText, from, panel), before);
        QCOMPARE(screen.table()->rowHeight(0), kit::kRowHeight);
    }

    void everythingIsSelectedOnlyWhenAsked()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        openText(screen, 0, true);
        QCOMPARE(screen.textField()->textCursor().selectedText(), QStringLiteral("one"));
        screen.table()->abortEditing();
        openText(screen, 0, false);
        QVERIFY(!screen.textField()->textCursor().hasSelection());
        QCOMPARE(screen.textField()->textCursor().position(), 3);
    }

    void escapeDiscardsAndReturnCommitsWithoutAStamp()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        openText(screen, 0);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTest::keyClick(screen.field(), Qt::Key_Escape);
        QVERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.editor->songText(), QByteArray("one\n"));
        openText(screen, 0);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTest::keyClick(screen.field(), Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(!screen.table()->isEditingCell());
        QCOMPARE(screen.editor->songText(), QByteArray("typed\n"));
        QVERIFY(screen.table()->hasFocus());
    }

    void tabGoesFromTheTimeToTheTextAndBack()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one\n[00:02.00]two\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClick(screen.timeField(), Qt::Key_Tab);
        QVERIFY(screen.textField());
        QTest::keyClicks(screen.textField(), QStringLiteral("eins"));
        QTest::keyClick(screen.textField(), Qt::Key_Backtab);
        QVERIFY(screen.timeField());
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]eins\n[00:02.00]two\n"));
    }

    void aHundredThousandCharactersSurviveAnOpenCell()
    {
        EditorOnScreen screen;
        const QByteArray text = QByteArray("lorem\xC2\xA0ipsum ").repeated(8000) + "end";
        screen.load(text + "\n");
        openText(screen, 0, false);
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), text + "\n");
        openText(screen, 0, false);
        QTest::keyClick(screen.field(), Qt::Key_Z);
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), text + "z\n");
    }

    void theCaretIsKnownInTextCellsOnly()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one two\n");
        QVERIFY(!screen.table()->caretInCell());
        screen.table()->editColumn_row_select(1, 0, true);
        QVERIFY(!screen.table()->caretInCell());
        openText(screen, 0, false);
        for (int step = 0; step < 3; ++step) {
            QTest::keyClick(screen.field(), Qt::Key_Left);
        }
        const auto caret = screen.table()->caretInCell();
        QVERIFY(caret);
        QCOMPARE(caret->identifier, QStringLiteral("text"));
        QCOMPARE(caret->row, 0);
        QCOMPARE(caret->before, QStringLiteral("one "));
        QCOMPARE(caret->after, QStringLiteral("two"));
        screen.table()->abortEditing();
        QVERIFY(!screen.table()->caretInCell());
    }

    void pastedLinesAreOfferedWithTheCaret()
    {
        const EditorOnScreen forms; // makes the text views known to forms
        const auto editor = std::make_shared<TakingEditor>();
        editor->view()->resize(900, 300);
        editor->view()->show();
        editor->flushWithOriginalSongText("one\ntwo three\n");
        editor->tableView()->editColumn_row_select(1, 1, false);
        auto *field = editor->tableView()->findChild<views::CellTextView *>();
        QTest::keyClick(field, Qt::Key_Home);
        QTest::keyClick(field, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        QGuiApplication::clipboard()->setText(QStringLiteral("a\nb"));
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(editor->taken,
            QStringList({QStringLiteral("text"), QStringLiteral("1"), QString(), QStringLiteral("three"),
                QStringLiteral("a\nb")}));
        QVERIFY(editor->tableView()->isEditingCell());
        editor->commitEditing();
        QCOMPARE(editor->songText(), QByteArray("one\ntwo three\n"));
    }

    void theContextMenuOfAnOpenCellIsTheTexts()
    {
        EditorOnScreen screen;
        screen.load("one two\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        openText(screen, 0, false);
        QWidget *viewport = screen.textField()->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10}, viewport->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(viewport, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(screen.table()->isEditingCell());
        auto *all = menu->findChild<QAction *>(QStringLiteral("select-all"));
        QVERIFY(all);
        all->trigger();
        menu->close();
        QVERIFY(screen.table()->isEditingCell());
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        screen.editor->commitEditing();
        QCOMPARE(screen.editor->songText(), QByteArray("typed\n"));
    }

    void aLyricFileIsDroppedOnTheRows()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        QCOMPARE(screen.table()->registeredDraggedTypes(),
            QStringList({QStringLiteral("text/uri-list"), QStringLiteral("TableLrcDragType"),
                QStringLiteral("text/plain")}));
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("song.lrc")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[00:01.00]other\n");
        file.close();
        const support::DraggedFiles files({file.fileName(), folder.filePath(QStringLiteral("none.lrc"))});
        QWidget *rows = screen.table()->viewport();
        const int before = screen.host->changes;
        QVERIFY(support::dragInto(rows, files));
        QVERIFY(support::dropOnto(rows, files));
        QCOMPARE(screen.host->changes, before);
        QTRY_COMPARE(screen.editor->songText(), QByteArray("[00:01.00]other\n"));
        QCOMPARE(screen.host->changes, before + 1);
        QVERIFY(screen.editor->isLrcChanged());
    }

    void filesDroppedOnAnOpenCellAreTheTables()
    {
        EditorOnScreen screen;
        screen.load("one\n");
        openText(screen, 0);
        QVERIFY(support::dragInto(
            screen.textField()->viewport(), support::DraggedFiles({QStringLiteral("/a.lrc")})));
        support::dragOut(screen.table()->viewport());
        QCOMPARE(screen.textField()->cellText(), QStringLiteral("one"));
    }

    void draggedWidthsStayWhenTheNumberOfTimesChanges()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\nb\n");
        screen.table()->setColumnWidth(0, 70);
        screen.table()->setColumnWidth(1, 97);
        screen.editor->song().aryLines().at(1).appendTime(5);
        screen.editor->song().aryLines().at(1).appendTime(6);
        screen.editor->reloadDataWithLrcChanged();
        QCOMPARE(screen.table()->columnWidth(0), 70);
        QCOMPARE(screen.table()->columnWidth(1), 97);
        QCOMPARE(screen.table()->columnWidth(2), 90);
        screen.editor->deleteAllTags();
        QCOMPARE(screen.table()->numberOfColumns(), 2);
        screen.editor->restoreAllClick();
        QCOMPARE(screen.table()->columnWidth(1), 97);
    }
};

QTEST_MAIN(TextCells)
#include "tst_text_cells.moc"
