// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CellTextEditor.h"
#include "kit/DropTipView.h"
#include "kit/RowSelection.h"
#include "kit/TableDataSource.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QTableView>

#include <memory>
#include <optional>

class MyTableView;
class QMenu;

namespace kit {
class CellEditingDelegate;
class DataSourceTableModel;
class TableDrops;
} // namespace kit

class MyTableView;

/// What a table asks of, and tells, the controller that owns its rows.
class MyTableViewDelegate
{
public:
    virtual ~MyTableViewDelegate() = default;

    /// The menu for a right click or the menu key; null for none.
    [[nodiscard]] virtual QMenu *menuForRightClick() = 0;
    /// Delete or Backspace was pressed in the table.
    virtual void deleteFileDown(QObject *sender) { static_cast<void>(sender); }
    /// The space key was pressed in the table.
    virtual void spaceKeyDown(QObject *sender) { static_cast<void>(sender); }
    /// The table was reloaded.
    virtual void tableViewReloaded(QObject *sender) { static_cast<void>(sender); }
    /// Files were dropped on the rows; `paths` are local and never empty. The drag is over, and an
    /// open cell editor was committed.
    virtual void tableView_didDropFiles(MyTableView *tableView, const QStringList &paths)
    {
        static_cast<void>(tableView);
        static_cast<void>(paths);
    }
    /// Text was dropped between two rows: before `row`, which is the number of rows for the end.
    /// `text` is as it came and never empty. The drag is over, and an open cell editor was committed.
    virtual void tableView_didDropText_beforeRow(MyTableView *tableView, const QString &text, int row)
    {
        static_cast<void>(tableView);
        static_cast<void>(text);
        static_cast<void>(row);
    }

protected:
    MyTableViewDelegate() = default;
    MyTableViewDelegate(const MyTableViewDelegate &) = default;
    MyTableViewDelegate &operator=(const MyTableViewDelegate &) = default;
};

/// A table of whole rows with columns told apart by identifier, cells from a data source, and a
/// view over it that invites a drop while it is empty.
///
/// A reload keeps the selected rows that still exist, the current row and the scroll position;
/// it tells of a selection change only when the set of selected rows did change, once, after the
/// reload is complete. A reload that fills an empty table selects row 0.
class MyTableView : public QTableView
{
    Q_OBJECT

public:
    explicit MyTableView(QWidget *parent = nullptr);
    ~MyTableView() override;

    /// Both are held weakly.
    void setDataSource(const std::weak_ptr<kit::TableDataSource> &dataSource);
    void setReloadDelegate(const std::weak_ptr<MyTableViewDelegate> &delegate)
    {
        m_reloadDelegate = delegate;
    }
    [[nodiscard]] std::shared_ptr<MyTableViewDelegate> reloadDelegate() const
    {
        return m_reloadDelegate.lock();
    }

    [[nodiscard]] QString dropInPrompt() const;
    void setDropInPrompt(const QString &prompt);
    [[nodiscard]] DropTipView *dropTipView() const { return m_dropTipView; }

    [[nodiscard]] int numberOfColumns() const;
    /// As of the last reload.
    [[nodiscard]] int numberOfRows() const;
    [[nodiscard]] const std::vector<kit::TableColumn> &tableColumns() const;
    /// −1 when there is none.
    [[nodiscard]] int columnWithIdentifier(const QString &identifier) const;
    /// Keeps the columns before `first` as they are and puts `columns` in the place of the rest.
    /// A width that the user gave to a column of the same identifier, ever, holds over its own.
    void replaceColumnsFrom(int first, std::vector<kit::TableColumn> columns);
    void setColumnTitle(const QString &identifier, const QString &title);

    void reloadData();
    /// Asks for the look and the value of one row's cells again. An open editor stays.
    void redrawRow(int row);

    /// Takes drags of these types from now on, when there is a row to drop on: local files
    /// ("text/uri-list"), else text ("text/plain"), which the delegate is told of; any other type
    /// is accepted and carries nothing.
    void registerForDraggedTypes(const QStringList &mimeTypes);
    [[nodiscard]] QStringList registeredDraggedTypes() const;

    /// The row added to the selection last, if it is still selected; otherwise the nearest
    /// selected row, the lower on ties; −1 when nothing is selected.
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] kit::RowRanges selectedRowRanges() const;
    /// Ascending.
    [[nodiscard]] std::vector<std::size_t> selectedRowIndexes() const;
    /// Selects `row` alone and makes it the current row; nothing for a row that does not exist.
    void selectSingleRow(int row);
    /// Selects `rows` alone; `selectedRow`, if it is one of them, counts as added last and is the current
    /// row. Rows that do not exist are left out; no rows clear the selection.
    void selectRows(const kit::RowRanges &rows, int selectedRow);
    void scrollRowToVisible(int row);

    /// Makes the editors of the columns with `usesTextEditor`; without one they are plain fields.
    void setTextEditorFactory(const kit::CellTextEditorFactory &factory);
    /// Opens the cell's editor, its text selected; nothing for a cell that does not exist or
    /// cannot be edited.
    void editColumn_row_select(int column, int row, bool select);
    [[nodiscard]] bool isEditingCell() const;
    /// Where the caret stands; nothing unless a text editor is open.
    [[nodiscard]] std::optional<kit::CellCaret> caretInCell() const;
    /// Before the character at `position`, from 0. Nothing unless a text editor is open.
    void moveCaretInCell(qsizetype position);
    /// Closes an open cell editor and discards what was typed.
    void abortEditing();
    /// Closes an open cell editor and commits what was typed.
    void commitEditing();
    /// Commits what was typed so far; the editor stays open.
    void commitTypedText();

protected:
    using QTableView::edit;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    [[nodiscard]] QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyboardSearch(const QString &search) override { Q_UNUSED(search) }
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void commitData(QWidget *editor) override;
    void updateGeometries() override;

private:
    class HeldReport;

    void configure();
    void applyTheme();
    void wireSelection();
    void rowsSelected(const QItemSelection &selected);
    void reportSelection();
    void columnResized(int column, int width);
    void fitFillingColumn();
    [[nodiscard]] QModelIndex editableCell(const QModelIndex &index) const;
    void placeDropTipView();
    [[nodiscard]] bool offerLines(const QString &pasted);

    std::weak_ptr<MyTableViewDelegate> m_reloadDelegate;
    kit::DataSourceTableModel *m_model = nullptr;
    kit::CellEditingDelegate *m_cellDelegate = nullptr;
    kit::TableDrops *m_drops = nullptr;
    // Beside the table, not in it: what reads the screen aloud knows a table's cells only.
    QPointer<DropTipView> m_dropTipView;
    // By identifier: columns come and go with the document.
    QHash<QString, int> m_draggedWidths;
    int m_lastAddedRow = -1;
    int m_heldReports = 0;
    bool m_selectionChanged = false;
    bool m_reloading = false;
    bool m_committing = false;
    bool m_fittingColumns = false;
};
