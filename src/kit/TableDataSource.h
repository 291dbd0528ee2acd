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
    /// Edited by what the table's text editor factory makes, instead of a plain field.
    bool usesTextEditor = false;
};

/// How a cell looks beside its value. Nothing of it is ever part of the value.
struct CellLook
{
    /// The text is drawn in the quiet text colour.
    bool quiet = false;
    /// Drawn as a chip before the text, and said before it by what reads the screen aloud.
    QString chip;
    /// What is wrong here, in a sentence: a mark before the text, the tooltip, and what is said of
    /// the cell. Plain text.
    QString problem;
    /// The row is the one that is heard now: ▸ before the text, which is drawn in the accent.
    bool current = false;
};

/// Where the caret stands in a text cell that is being edited.
struct CellCaret
{
    QString identifier;
    int row = -1;
    /// The cell's text, as it is typed so far, before and after the selection (or the caret).
    QString before;
    QString after;
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
    /// Asked once for each cell that is painted.
    [[nodiscard]] virtual kit::CellLook tableView_lookOfCell(
        MyTableView *tableView, const QString &identifier, int row)
    {
        static_cast<void>(tableView);
        static_cast<void>(identifier);
        static_cast<void>(row);
        return {};
    }
    /// Text of several lines was pasted or dropped into the text cell that is open.
    ///
    /// \param pasted  as it came, line ends included.
    /// True when the source took it, and the cell is left alone; false when it is to become one
    /// line at the caret.
    [[nodiscard]] virtual bool tableView_didPasteText_inColumn_row(
        MyTableView *tableView, const kit::CellCaret &caret, const QString &pasted)
    {
        static_cast<void>(tableView);
        static_cast<void>(caret);
        static_cast<void>(pasted);
        return false;
    }

protected:
    TableDataSource() = default;
    TableDataSource(const TableDataSource &) = default;
    TableDataSource &operator=(const TableDataSource &) = default;
};

} // namespace kit
