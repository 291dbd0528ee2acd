// SPDX-License-Identifier: MIT
//
// The columns of a table and their widths.
#include "kit/DataSourceTableModel.h"
#include "kit/MyTableView.h"

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <utility>

int MyTableView::numberOfColumns() const
{
    return m_model->columnCount();
}

const std::vector<kit::TableColumn> &MyTableView::tableColumns() const
{
    return m_model->columns();
}

int MyTableView::columnWithIdentifier(const QString &identifier) const
{
    const auto &columns = m_model->columns();
    const auto found = std::find_if(columns.begin(), columns.end(),
        [&identifier](const kit::TableColumn &column) { return column.identifier == identifier; });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

void MyTableView::replaceColumnsFrom(int first, std::vector<kit::TableColumn> columns)
{
    const QScopedValueRollback reloading(m_reloading, true);
    // The selection is of whole rows: it must reach over the new columns, too.
    const kit::RowRanges rows = selectedRowRanges();
    const int row = currentIndex().row();
    const int column = std::max(0, currentIndex().column());
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    // The current cell goes with its column, and the view would follow it.
    setAutoScroll(false);
    m_model->replaceColumnsFrom(first, std::move(columns));
    selectionModel()->select(kit::wholeRows(rows, *m_model), QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(
        m_model->index(row, std::min(column, numberOfColumns() - 1)), QItemSelectionModel::NoUpdate);
    setAutoScroll(true);

    const auto &all = m_model->columns();
    for (std::size_t replaced = static_cast<std::size_t>(std::max(first, 0)); replaced < all.size();
         ++replaced) {
        const kit::TableColumn &own = all[replaced];
        setColumnWidth(static_cast<int>(replaced), m_draggedWidths.value(own.identifier, own.width));
    }
    fitFillingColumn();
    updateGeometries();
    horizontalScrollBar()->setValue(scrolled.x());
    verticalScrollBar()->setValue(scrolled.y());
}

void MyTableView::setColumnTitle(const QString &identifier, const QString &title)
{
    if (const int column = columnWithIdentifier(identifier); column >= 0) {
        m_model->setColumnTitle(column, title);
    }
}

void MyTableView::columnResized(int column, int width)
{
    if (m_fittingColumns || m_reloading || column < 0 || column >= numberOfColumns()) {
        return;
    }
    const auto &limits = m_model->columns()[static_cast<std::size_t>(column)];
    {
        const QScopedValueRollback fitting(m_fittingColumns, true);
        setColumnWidth(column, std::clamp(width, limits.minimumWidth, limits.maximumWidth));
    }
    if (!limits.fillsRemainingWidth) {
        m_draggedWidths.insert(limits.identifier, columnWidth(column));
        fitFillingColumn();
    }
}

void MyTableView::fitFillingColumn()
{
    const auto &columns = m_model->columns();
    const auto filling = std::find_if(columns.begin(), columns.end(),
        [](const kit::TableColumn &column) { return column.fillsRemainingWidth; });
    if (filling == columns.end()) {
        return;
    }
    const int column = static_cast<int>(filling - columns.begin());
    const int others = horizontalHeader()->length() - columnWidth(column);
    const QScopedValueRollback fitting(m_fittingColumns, true);
    setColumnWidth(column, std::max(filling->minimumWidth, viewport()->width() - others));
}
