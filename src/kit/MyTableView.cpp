// SPDX-License-Identifier: MIT
#include "kit/MyTableView.h"

#include "kit/CellEditingDelegate.h"
#include "kit/DataSourceTableModel.h"
#include "kit/QuietHeader.h"
#include "kit/TableDrops.h"
#include "kit/Theme.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <utility>

/// While it lives a selection change is not told but noted; it is told when the last one goes.
///
/// The toolkit goes on with its own selection after it told us of a change. A host that closes its
/// window when it hears of one would take the ground from under it.
class MyTableView::HeldReport
{
public:
    explicit HeldReport(MyTableView *table) : m_table(table) { ++m_table->m_heldReports; }
    HeldReport(const HeldReport &) = delete;
    HeldReport &operator=(const HeldReport &) = delete;
    ~HeldReport()
    {
        if (!m_table || --m_table->m_heldReports > 0) {
            return;
        }
        if (std::exchange(m_table->m_selectionChanged, false)) {
            m_table->reportSelection();
        }
    }

private:
    QPointer<MyTableView> m_table;
};

MyTableView::MyTableView(QWidget *parent)
    : QTableView(parent), m_model(new kit::DataSourceTableModel(this)),
      m_cellDelegate(new kit::CellEditingDelegate(this)), m_drops(new kit::TableDrops(this)),
      m_dropTipView(new DropTipView(parent ? parent : viewport()))
{
    setModel(m_model);
    setItemDelegate(m_cellDelegate);
    configure();
    wireSelection();
    applyTheme();
    placeDropTipView();
}

MyTableView::~MyTableView()
{
    delete m_dropTipView;
}

void MyTableView::configure()
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    verticalHeader()->hide();
    // One height for all rows: the view never asks a row for its own.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kit::kRowHeight);
    setHorizontalHeader(new kit::QuietHeader(this));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
        [this](int column, int, int width) { columnResized(column, width); });
}

void MyTableView::wireSelection()
{
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this](const QItemSelection &selected) { rowsSelected(selected); });
}

void MyTableView::setDataSource(const std::weak_ptr<kit::TableDataSource> &dataSource)
{
    m_model->setDataSource(dataSource);
}

QString MyTableView::dropInPrompt() const
{
    return m_dropTipView->prompt();
}

void MyTableView::setDropInPrompt(const QString &prompt)
{
    m_dropTipView->setPrompt(prompt);
}

int MyTableView::numberOfRows() const
{
    return m_model->rowCount();
}

void MyTableView::reloadData()
{
    const kit::RowRanges before = selectedRowRanges();
    {
        const QScopedValueRollback reloading(m_reloading, true);
        const bool wasEmpty = numberOfRows() == 0;
        m_model->reload();
        if (wasEmpty && numberOfRows() > 0) {
            selectSingleRow(0);
            scrollToTop();
        }
        placeDropTipView();
    }
    if (const auto delegate = reloadDelegate()) {
        delegate->tableViewReloaded(this);
    }
    if (selectedRowRanges() != before) {
        reportSelection();
    }
}

void MyTableView::redrawRow(int row)
{
    // Not by way of the model, which would be taken for a change of the values.
    if (row >= 0 && row < numberOfRows()) {
        viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    }
}

kit::RowRanges MyTableView::selectedRowRanges() const
{
    return kit::rowRanges(selectionModel()->selection());
}

std::vector<std::size_t> MyTableView::selectedRowIndexes() const
{
    return kit::rowIndexes(selectedRowRanges());
}

int MyTableView::selectedRow() const
{
    const kit::RowRanges rows = selectedRowRanges();
    return kit::containsRow(rows, m_lastAddedRow) ? m_lastAddedRow : kit::nearestRow(rows, m_lastAddedRow);
}

void MyTableView::selectSingleRow(int row)
{
    const QPointer<MyTableView> alive(this);
    // What is being typed belongs to the line that was selected when it was begun.
    commitEditing();
    if (!alive || row < 0 || row >= numberOfRows()) {
        return;
    }
    const HeldReport held(this);
    const int across = horizontalScrollBar()->value();
    m_lastAddedRow = row;
    selectionModel()->setCurrentIndex(m_model->index(row, std::max(0, currentIndex().column())),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    // A row is selected without moving sideways.
    horizontalScrollBar()->setValue(across);
}

void MyTableView::selectRows(const kit::RowRanges &rows, int selectedRow)
{
    const QPointer<MyTableView> alive(this);
    commitEditing();
    if (!alive) {
        return;
    }
    const HeldReport held(this);
    selectionModel()->select(kit::wholeRows(rows, *m_model), QItemSelectionModel::ClearAndSelect);
    const kit::RowRanges selected = selectedRowRanges();
    const int current
        = kit::containsRow(selected, selectedRow) ? selectedRow : kit::nearestRow(selected, selectedRow);
    m_lastAddedRow = current;
    if (current >= 0) {
        // The view would scroll to it; the one who selects says what is to be seen.
        const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
        selectionModel()->setCurrentIndex(
            m_model->index(current, std::max(0, currentIndex().column())), QItemSelectionModel::NoUpdate);
        horizontalScrollBar()->setValue(scrolled.x());
        verticalScrollBar()->setValue(scrolled.y());
    }
}

void MyTableView::scrollRowToVisible(int row)
{
    if (row >= 0 && row < numberOfRows()) {
        // The first column: a row is shown without moving sideways.
        const int horizontal = horizontalScrollBar()->value();
        scrollTo(m_model->index(row, 0), EnsureVisible);
        horizontalScrollBar()->setValue(horizontal);
    }
}

void MyTableView::rowsSelected(const QItemSelection &selected)
{
    if (m_reloading) {
        return;
    }
    const int added = kit::farthestEnd(kit::rowRanges(selected), m_lastAddedRow);
    m_lastAddedRow = added >= 0 ? added : selectedRow();
    if (m_heldReports > 0) {
        m_selectionChanged = true;
    } else {
        reportSelection();
    }
}

void MyTableView::reportSelection()
{
    if (const auto source = m_model->dataSource()) {
        source->tableViewSelectionDidChange(this);
    }
}

void MyTableView::applyTheme()
{
    // From the application's palette: from its own it would take back what it has set there.
    const QPalette desktop = QApplication::palette(this);
    const kit::Theme theme(desktop);
    QPalette colours = desktop;
    colours.setColor(QPalette::Highlight, theme.selection);
    colours.setColor(QPalette::HighlightedText, theme.text);
    if (colours != palette()) {
        setPalette(colours);
    }
}

void MyTableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) {
        applyTheme();
    }
}

void MyTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitFillingColumn();
    placeDropTipView();
}

void MyTableView::updateGeometries()
{
    QTableView::updateGeometries();
    // A scroll bar that came or went changed the viewport without a resize of the view.
    if (!m_fittingColumns && m_model) {
        fitFillingColumn();
    }
}

void MyTableView::placeDropTipView()
{
    if (!m_dropTipView) {
        return;
    }
    QWidget *around = parentWidget() ? parentWidget() : viewport();
    if (m_dropTipView->parentWidget() != around) {
        m_dropTipView->setParent(around);
    }
    m_dropTipView->setGeometry(QRect(viewport()->mapTo(around, QPoint(0, 0)), viewport()->size()));
    m_dropTipView->setVisible(numberOfRows() == 0 && !isHidden());
    m_dropTipView->raise();
}

bool MyTableView::event(QEvent *event)
{
    const bool handled = QTableView::event(event);
    if (event->type() == QEvent::ParentChange) {
        placeDropTipView();
    }
    return handled;
}

void MyTableView::moveEvent(QMoveEvent *event)
{
    QTableView::moveEvent(event);
    placeDropTipView();
}

void MyTableView::showEvent(QShowEvent *event)
{
    QTableView::showEvent(event);
    placeDropTipView();
}

void MyTableView::hideEvent(QHideEvent *event)
{
    QTableView::hideEvent(event);
    placeDropTipView();
}

void MyTableView::keyPressEvent(QKeyEvent *event)
{
    const auto delegate = reloadDelegate();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (delegate && plain && event->key() == Qt::Key_Space) {
        // A key that is held down must not toggle playing again and again.
        if (!event->isAutoRepeat()) {
            delegate->spaceKeyDown(this);
        }
        return;
    }
    if (delegate && plain && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)) {
        delegate->deleteFileDown(this);
        return;
    }
    const HeldReport held(this);
    QTableView::keyPressEvent(event);
}

QModelIndex MyTableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Rows are what is selected: Home and End go to the first and the last of them, not to a cell.
    const int column = std::max(0, currentIndex().column());
    if (action == MoveHome) {
        return m_model->index(0, column);
    }
    if (action == MoveEnd) {
        return m_model->index(numberOfRows() - 1, column);
    }
    return QTableView::moveCursor(action, modifiers);
}

void MyTableView::mousePressEvent(QMouseEvent *event)
{
    const HeldReport held(this);
    QTableView::mousePressEvent(event);
}

void MyTableView::mouseMoveEvent(QMouseEvent *event)
{
    const HeldReport held(this);
    QTableView::mouseMoveEvent(event);
}

void MyTableView::mouseReleaseEvent(QMouseEvent *event)
{
    const HeldReport held(this);
    QTableView::mouseReleaseEvent(event);
}

void MyTableView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
}

void MyTableView::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void MyTableView::contextMenuEvent(QContextMenuEvent *event)
{
    const auto delegate = reloadDelegate();
    if (QMenu *menu = delegate ? delegate->menuForRightClick() : nullptr) {
        menu->popup(event->globalPos());
    }
}
