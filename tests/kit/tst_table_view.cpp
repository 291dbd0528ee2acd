// SPDX-License-Identifier: MIT
//
// How cells look, what is dropped on rows, and widths that stay.
#include "kit/MyTableView.h"
#include "kit/Theme.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>

using support::DraggedFiles;

namespace {

class Source final : public kit::TableDataSource
{
public:
    int numberOfRowsInTableView(MyTableView *) override { return rows; }
    QString tableView_objectValueForTableColumn_row(MyTableView *, const QString &column, int row) override
    {
        ++valuesAsked;
        return column == "number" ? QString::number(row + 1) : values.value(row, "some text");
    }
    void tableView_setObjectValue_forTableColumn_row(
        MyTableView *, const QString &value, const QString &, int row) override
    {
        values.insert(row, value);
        told << "set " + value;
    }
    kit::CellLook tableView_lookOfCell(MyTableView *, const QString &column, int row) override
    {
        ++looksAsked;
        return looks.value({column, row});
    }

    int rows = 40;
    int valuesAsked = 0;
    int looksAsked = 0;
    QMap<int, QString> values;
    QMap<std::pair<QString, int>, kit::CellLook> looks;
    QStringList told;
};

class Delegate final : public MyTableViewDelegate
{
public:
    explicit Delegate(QStringList &log) : told(log) { }
    QMenu *menuForRightClick() override { return nullptr; }
    void tableView_didDropFiles(MyTableView *, const QStringList &paths) override
    {
        told << "files " + paths.join(' ');
    }
    void tableView_didDropText_beforeRow(MyTableView *, const QString &text, int row) override
    {
        told << QString("text %1 before %2").arg(text).arg(row);
    }
    QStringList &told;
};

kit::TableColumn column(const QString &identifier, int width)
{
    kit::TableColumn made;
    made.identifier = made.title = identifier;
    made.minimumWidth = 40;
    made.width = width;
    made.maximumWidth = 400;
    return made;
}

struct Table
{
    Table()
    {
        view.setDataSource(source);
        view.setReloadDelegate(delegate);
        auto number = column("number", 60);
        number.alignment = Qt::AlignCenter;
        auto text = column("text", 200);
        text.fillsRemainingWidth = true;
        view.replaceColumnsFrom(0, {number, column("time1", 90), text});
        view.registerForDraggedTypes({"text/uri-list", "OwnType", "text/plain"});
        view.reloadData();
        view.clearSelection();
        view.resize(500, 300);
        view.show();
    }
    [[nodiscard]] QModelIndex cell(int row, const QString &identifier) const
    {
        return view.model()->index(row, view.columnWithIdentifier(identifier));
    }
    [[nodiscard]] QImage picture(int row, const QString &identifier)
    {
        return view.viewport()->grab(view.visualRect(cell(row, identifier))).toImage();
    }
    // What a screen reader gets.
    [[nodiscard]] QString spoken(int row, const QString &identifier, QAccessible::Text what)
    {
        auto *table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
        return table->cellAt(row, view.columnWithIdentifier(identifier))->text(what);
    }
    [[nodiscard]] QPoint inRow(int row, double share) const
    {
        const QRect place = view.visualRect(cell(row, "text"));
        return {place.left() + 20, place.top() + static_cast<int>(place.height() * share)};
    }

    std::shared_ptr<Source> source = std::make_shared<Source>();
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>(source->told);
    MyTableView view;
};

// The leftmost and rightmost column of `picture` with so many pixels like `color`; −1 for none.
QPoint extentOf(const QImage &picture, const QColor &color, int pixels = 1)
{
    QPoint extent(-1, -1);
    for (int x = 0; x < picture.width(); ++x) {
        int found = 0;
        for (int y = 0; y < picture.height() - 2; ++y) {
            const QColor pixel = picture.pixelColor(x, y);
            found += qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green())
                    + qAbs(pixel.blue() - color.blue())
                < 12;
        }
        if (found >= pixels) {
            extent = extent.x() < 0 ? QPoint(x, x) : QPoint(extent.x(), x);
        }
    }
    return extent;
}

// A chip is filled from top to bottom; the edges of letters have its colour by chance.
QPoint chipExtent(const QImage &picture, const kit::Theme &theme)
{
    return extentOf(picture, theme.chip, 8);
}

// As it comes from another program: the drag first.
bool dropOn(MyTableView &view, const QMimeData &data, const QPoint &place)
{
    return support::dragAt(view.viewport(), place, data) && support::dropAt(view.viewport(), place, data);
}

bool dropOn(MyTableView &view, const QMimeData &data)
{
    return dropOn(view, data, view.viewport()->rect().center());
}

QMimeData *textData(const QString &text)
{
    auto *made = new QMimeData;
    made->setText(text);
    return made;
}

} // namespace

class tst_TableView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aRepaintedCellIsAskedForOnce();
    void chipIsDrawnAndSpokenAndNoPartOfTheValue();
    void chipOfARightToLeftTextStandsAtItsRight();
    void everyTextBeginsAtItsOwnSideInAnyWindow();
    void longChipLeavesRoomForTheText();
    void problemIsAMarkATooltipAndSpoken();
    void problemIsNeverTakenForMarkup();
    void problemStandsBeforeACentredText();
    void currentRowIsMarkedBesideItsNumber();
    void redrawingARowKeepsAnOpenEditor();
    void droppedFilesAreToldOnceTheDragIsOver();
    void droppedTextGoesBetweenTheRows_data();
    void droppedTextGoesBetweenTheRows();
    void textBehindTheLastRowGoesToTheEnd();
    void filesWinOverText();
    void whatIsAcceptedDependsOnWhatIsRegistered();
    void ownTypeCarriesNothing();
    void withoutADelegateNothingIsAccepted();
    void aDropCommitsWhatIsTyped();
    void theDragIsShownAndLeavesNoTrace();
    void draggingTextNearAnEdgeScrolls();
    void draggedWidthsStayWhenColumnsComeAndGo();
    void homeAndEndGoToTheFirstAndTheLastRow();
};

void tst_TableView::aRepaintedCellIsAskedForOnce()
{
    Table table;
    QVERIFY(QTest::qWaitForWindowExposed(&table.view));
    QCoreApplication::processEvents();
    table.source->looks.insert({"text", 1}, {true, "Title", "problem", true});
    table.source->valuesAsked = table.source->looksAsked = 0;
    table.view.viewport()->repaint(table.view.visualRect(table.cell(1, "text")));
    QCOMPARE(table.source->valuesAsked, 1);
    QCOMPARE(table.source->looksAsked, 1);
}

void tst_TableView::chipIsDrawnAndSpokenAndNoPartOfTheValue()
{
    Table table;
    const QImage plain = table.picture(1, "text");
    table.source->looks.insert({"text", 1}, {false, "Title", {}, false});
    const kit::Theme theme(&table.view);
    const QPoint chip = chipExtent(table.picture(1, "text"), theme);
    QCOMPARE(chipExtent(plain, theme), QPoint(-1, -1));
    QVERIFY(chip.x() >= kit::kCellMargin && chip.x() <= kit::kCellMargin + 2);
    const QPoint before = extentOf(plain, theme.text);
    const QPoint after = extentOf(table.picture(1, "text"), theme.text);
    QVERIFY(after.x() > chip.y());
    QCOMPARE(after.y() - after.x(), before.y() - before.x());
    QCOMPARE(table.cell(1, "text").data().toString(), "some text");
    QCOMPARE(table.spoken(1, "text", QAccessible::Name), "Title: some text");
    QCOMPARE(table.spoken(2, "text", QAccessible::Name), "some text");
}

void tst_TableView::chipOfARightToLeftTextStandsAtItsRight()
{
    Table table;
    table.source->values.insert(1, QString::fromUtf8("כוכב קטן"));
    const kit::Theme theme(&table.view);
    const int width = table.picture(1, "text").width();
    QVERIFY(extentOf(table.picture(1, "text"), theme.text).x() > width / 2);
    table.source->looks.insert({"text", 1}, {false, "Title", {}, false});
    const QPoint chip = chipExtent(table.picture(1, "text"), theme);
    QVERIFY(chip.y() > width - kit::kCellMargin - 6);
    QVERIFY(extentOf(table.picture(1, "text"), theme.text).y() < chip.x());
}

void tst_TableView::everyTextBeginsAtItsOwnSideInAnyWindow()
{
    Table table;
    table.view.setLayoutDirection(Qt::RightToLeft);
    table.source->values.insert(1, QString::fromUtf8("12. some text,"));
    table.source->values.insert(2, QString::fromUtf8("12. כוכב קטן,"));
    table.source->values.insert(3, "12");
    const kit::Theme theme(&table.view);
    const int middle = table.picture(1, "text").width() / 2;
    QVERIFY(extentOf(table.picture(1, "text"), theme.text).y() < middle);
    QVERIFY(extentOf(table.picture(2, "text"), theme.text).x() > middle);
    QVERIFY(extentOf(table.picture(3, "text"), theme.text).x() > middle);
}

void tst_TableView::longChipLeavesRoomForTheText()
{
    Table table;
    table.source->looks.insert({"text", 1}, {false, QString("long ").repeated(100), {}, false});
    const QImage picture = table.picture(1, "text");
    const kit::Theme theme(&table.view);
    QVERIFY(chipExtent(picture, theme).y() <= picture.width() / 2);
    QVERIFY(extentOf(picture, theme.text).x() > picture.width() / 2);
}

void tst_TableView::problemIsAMarkATooltipAndSpoken()
{
    Table table;
    const kit::Theme theme(&table.view);
    QCOMPARE(extentOf(table.picture(1, "text"), theme.warning), QPoint(-1, -1));
    table.source->looks.insert({"text", 1}, {false, "Title", "Too long", false});
    const QImage picture = table.picture(1, "text");
    const QPoint mark = extentOf(picture, theme.warning);
    QVERIFY(mark.x() >= kit::kCellMargin);
    QVERIFY(mark.y() < chipExtent(picture, theme).x());
    QCOMPARE(table.cell(1, "text").data(Qt::ToolTipRole).toString(), "Too long");
    QCOMPARE(table.spoken(1, "text", QAccessible::Description), "Too long");
}

void tst_TableView::problemIsNeverTakenForMarkup()
{
    Table table;
    table.source->looks.insert({"text", 1}, {false, {}, "<b>bold</b>", false});
    const QString tip = table.cell(1, "text").data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains("&lt;b&gt;bold"), qPrintable(tip));
}

void tst_TableView::problemStandsBeforeACentredText()
{
    Table table;
    const kit::Theme theme(&table.view);
    const QPoint before = extentOf(table.picture(1, "number"), theme.text);
    table.source->looks.insert({"number", 1}, {false, {}, "Earlier than the line above", false});
    const QImage picture = table.picture(1, "number");
    QCOMPARE(extentOf(picture, theme.text), before);
    const QPoint mark = extentOf(picture, theme.warning);
    QVERIFY(mark.x() > 0 && mark.y() < before.x());
    QVERIFY(before.x() - mark.y() < 10);
}

void tst_TableView::currentRowIsMarkedBesideItsNumber()
{
    Table table;
    const kit::Theme theme(&table.view);
    QCOMPARE(extentOf(table.picture(1, "number"), theme.accentText), QPoint(-1, -1));
    const QPoint number = extentOf(table.picture(1, "number"), theme.text);
    table.source->looks.insert({"number", 1}, {true, {}, {}, true});
    QVERIFY(extentOf(table.picture(1, "number"), theme.accentText).x() < number.x() - 5);
    QCOMPARE(table.cell(1, "number").data().toString(), "2");
    QVERIFY(!table.spoken(1, "number", QAccessible::Description).isEmpty());
    table.source->looks.insert({"number", 1}, {true, {}, "Wrong", true});
    QVERIFY(table.spoken(1, "number", QAccessible::Description).startsWith("Wrong. "));
}

void tst_TableView::redrawingARowKeepsAnOpenEditor()
{
    Table table;
    QVERIFY(QTest::qWaitForWindowExposed(&table.view));
    table.view.editColumn_row_select(2, 1, true);
    auto *field = table.view.findChild<QLineEdit *>();
    QTest::keyClicks(field, "typed");
    QCoreApplication::processEvents();
    table.source->looksAsked = 0;
    table.view.redrawRow(1);
    table.view.redrawRow(99);
    QTRY_VERIFY(table.source->looksAsked > 0);
    QVERIFY(table.view.isEditingCell());
    QCOMPARE(field->text(), "typed");
}

void tst_TableView::droppedFilesAreToldOnceTheDragIsOver()
{
    Table table;
    const DraggedFiles files({"/a/b.lrc", "https://example.org/c.lrc", "/d e.txt"});
    QVERIFY(support::dragInto(table.view.viewport(), files));
    QVERIFY(support::dropOnto(table.view.viewport(), files));
    QVERIFY(table.source->told.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(table.source->told, QStringList("files /a/b.lrc /d e.txt"));
    QVERIFY(!dropOn(table.view, DraggedFiles({"https://example.org/c.lrc"})));
}

void tst_TableView::droppedTextGoesBetweenTheRows_data()
{
    QTest::addColumn<double>("share");
    QTest::addColumn<int>("before");
    QTest::newRow("upper half") << 0.2 << 3;
    QTest::newRow("lower half") << 0.8 << 4;
}

void tst_TableView::droppedTextGoesBetweenTheRows()
{
    QFETCH(double, share);
    QFETCH(int, before);
    Table table;
    const std::unique_ptr<QMimeData> text(textData("one\ntwo\n"));
    QVERIFY(dropOn(table.view, *text, table.inRow(3, share)));
    QVERIFY(table.source->told.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(table.source->told, QStringList(QString("text one\ntwo\n before %1").arg(before)));
}

void tst_TableView::textBehindTheLastRowGoesToTheEnd()
{
    Table table;
    table.source->rows = 2;
    table.view.reloadData();
    const std::unique_ptr<QMimeData> text(textData("x"));
    QVERIFY(dropOn(table.view, *text, {50, 250}));
    // A row that goes before the drop is told of is no place any more.
    table.source->rows = 1;
    table.view.reloadData();
    QCoreApplication::processEvents();
    QCOMPARE(table.source->told, QStringList("text x before 1"));
}

void tst_TableView::filesWinOverText()
{
    Table table;
    DraggedFiles both({"/a.lrc"});
    both.setText("/a.lrc");
    QVERIFY(dropOn(table.view, both));
    QCoreApplication::processEvents();
    QCOMPARE(table.source->told, QStringList("files /a.lrc"));
}

void tst_TableView::whatIsAcceptedDependsOnWhatIsRegistered()
{
    Table table;
    QCOMPARE(table.view.registeredDraggedTypes(), QStringList({"text/uri-list", "OwnType", "text/plain"}));
    const std::unique_ptr<QMimeData> text(textData("x"));
    const DraggedFiles files({"/a.lrc"});
    table.view.registerForDraggedTypes({"text/plain"});
    QVERIFY(!support::dragInto(table.view.viewport(), files));
    QVERIFY(support::dragInto(table.view.viewport(), *text));
    table.view.registerForDraggedTypes({"text/uri-list"});
    QVERIFY(support::dragInto(table.view.viewport(), files));
    QVERIFY(!support::dragInto(table.view.viewport(), *text));
    table.view.registerForDraggedTypes({});
    QVERIFY(!support::dragInto(table.view.viewport(), files));
}

void tst_TableView::ownTypeCarriesNothing()
{
    Table table;
    QMimeData own;
    own.setData("OwnType", "anything");
    QVERIFY(support::dragInto(table.view.viewport(), own));
    QVERIFY(support::dropOnto(table.view.viewport(), own));
    QCoreApplication::processEvents();
    QVERIFY(table.source->told.isEmpty());
    QMimeData strange;
    strange.setData("StrangeType", "anything");
    QVERIFY(!support::dragInto(table.view.viewport(), strange));
}

void tst_TableView::withoutADelegateNothingIsAccepted()
{
    Table table;
    const DraggedFiles files({"/a.lrc"});
    QVERIFY(support::dragInto(table.view.viewport(), files));
    table.delegate.reset(); // between the drag and the drop
    QVERIFY(!support::dropOnto(table.view.viewport(), files));
    QVERIFY(!support::dragInto(table.view.viewport(), files));
}

void tst_TableView::aDropCommitsWhatIsTyped()
{
    Table table;
    table.view.editColumn_row_select(2, 1, true);
    QTest::keyClicks(table.view.findChild<QLineEdit *>(), "typed");
    QVERIFY(dropOn(table.view, DraggedFiles({"/a.lrc"})));
    QCoreApplication::processEvents();
    QCOMPARE(table.source->told, QStringList({"set typed", "files /a.lrc"}));
}

void tst_TableView::theDragIsShownAndLeavesNoTrace()
{
    Table table;
    const auto picture = [&table] { return table.view.grab().toImage(); };
    const QImage calm = picture();
    support::dragInto(table.view.viewport(), DraggedFiles({"/a.lrc"}));
    const QImage files = picture();
    QVERIFY(files != calm);
    support::dragOut(table.view.viewport());
    QCOMPARE(picture(), calm);
    const std::unique_ptr<QMimeData> text(textData("x"));
    support::dragInto(table.view.viewport(), *text);
    const QImage line = picture();
    QVERIFY(line != calm && line != files);
    support::dropOnto(table.view.viewport(), *text);
    QCOMPARE(picture(), calm);
}

void tst_TableView::draggingTextNearAnEdgeScrolls()
{
    Table table;
    QScrollBar *bar = table.view.verticalScrollBar();
    const std::unique_ptr<QMimeData> text(textData("x"));
    QVERIFY(support::dragAt(table.view.viewport(), {50, table.view.viewport()->height() - 3}, *text));
    QTRY_VERIFY(bar->value() >= 64);
    QVERIFY(support::dragAt(table.view.viewport(), {50, 3}, *text));
    QTRY_COMPARE(bar->value(), 0);
    support::dragOut(table.view.viewport());
}

void tst_TableView::homeAndEndGoToTheFirstAndTheLastRow()
{
    Table table;
    table.view.selectSingleRow(5);
    QTest::keyClick(&table.view, Qt::Key_End);
    QCOMPARE(table.view.selectedRow(), 39);
    QTest::keyClick(&table.view, Qt::Key_Home);
    QCOMPARE(table.view.selectedRow(), 0);
    QTest::keyClick(&table.view, Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(table.view.selectedRowRanges(), (kit::RowRanges{{0, 39}}));
}

void tst_TableView::draggedWidthsStayWhenColumnsComeAndGo()
{
    Table table;
    // The user's way: by the border between two titles.
    QWidget *header = table.view.horizontalHeader()->viewport();
    const int border = table.view.columnViewportPosition(1) + table.view.columnWidth(1) - 1;
    QTest::mousePress(header, Qt::LeftButton, {}, QPoint(border, 10));
    QTest::mouseMove(header, QPoint(border + 20, 10));
    QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(border + 20, 10));
    QCOMPARE(table.view.columnWidth(1), 110);
    auto text = column("text", 200);
    text.fillsRemainingWidth = true;
    table.view.replaceColumnsFrom(1, {column("time1", 90), column("time2", 90), text});
    QCOMPARE(table.view.columnWidth(1), 110);
    QCOMPARE(table.view.columnWidth(2), 90);
    table.view.replaceColumnsFrom(1, {text});
    table.view.replaceColumnsFrom(1, {column("time1", 90), text});
    QCOMPARE(table.view.columnWidth(1), 110);
    QCOMPARE(table.view.columnWidth(0) + 110 + table.view.columnWidth(2), table.view.viewport()->width());
}

QTEST_MAIN(tst_TableView)
#include "tst_table_view.moc"
