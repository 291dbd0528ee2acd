// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/Qt>

class MyTableView;

namespace kit {

/// One column of a table; told apart by `identifier`.
struct TableColumn
{
    QString identifier;
    QString title;
    /// Logical pixels.
    int minimumWidth = 0;
    int width = 0;
    int maximumWidth = 0;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool editable = true;
    /// Takes the width that the others leave, never less than its minimum.
    bool fillsRemainingWidth = false;
};

/// Where a table gets its cells from and where edited ones go. Rows are from 0; columns are
/// named by their identifier.
class TableDataSource
{
public:
    virtual ~TableDataSource() = default;

    [[nodiscard]] virtual int numberOfRowsInTableView(MyTableView *tableView) = 0;
    /// What the cell shows; an empty string for a row or column that does not exist.
    [[nodiscard]] virtual QString tableView_objectValueForTableColumn_row(
        MyTableView *tableView, const QString &identifier, int row)
        = 0;
    /// The user committed `value` in a cell.
    virtual void tableView_setObjectValue_forTableColumn_row(
        MyTableView *tableView, const QString &value, const QString &identifier, int row)
        = 0;
    /// The set of selected rows changed, by the user or by the program.
    virtual void tableViewSelectionDidChange(MyTableView *tableView) { static_cast<void>(tableView); }
    /// True when the cell's text is drawn in the quiet text colour.
    [[nodiscard]] virtual bool tableView_isQuietCell(
        MyTableView *tableView, const QString &identifier, int row)
    {
        static_cast<void>(tableView);
        static_cast<void>(identifier);
        static_cast<void>(row);
        return false;
    }

protected:
    TableDataSource() = default;
    TableDataSource(const TableDataSource &) = default;
    TableDataSource &operator=(const TableDataSource &) = default;
};

} // namespace kit
