// SPDX-License-Identifier: MIT
//
// Cells of a table while they are edited.
#include "kit/CellEditingDelegate.h"
#include "kit/DataSourceTableModel.h"
#include "kit/MyTableView.h"

#include <QtWidgets/QLineEdit>

QModelIndex MyTableView::editableCell(const QModelIndex &index) const
{
    const auto isEditable
        = [this](const QModelIndex &cell) { return bool(m_model->flags(cell) & Qt::ItemIsEditable); };
    if (!index.isValid() || isEditable(index)) {
        return index;
    }
    for (int column = numberOfColumns() - 1; column >= 0; --column) {
        if (const QModelIndex cell = index.siblingAtColumn(column); isEditable(cell)) {
            return cell;
        }
    }
    return index;
}

bool MyTableView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool byUser = trigger == DoubleClicked || trigger == EditKeyPressed;
    if (!byUser || isEditingCell()) {
        return QTableView::edit(index, trigger, event);
    }
    // The key edits the text of a row whose current cell cannot be edited.
    const QPersistentModelIndex cell(trigger == EditKeyPressed ? editableCell(index) : index);
    // An edit goes to the selected line, so the line that is edited has to be it.
    const QPointer<MyTableView> alive(this);
    if (cell.isValid() && cell.row() != selectedRow()) {
        selectSingleRow(cell.row());
    }
    if (!alive || !cell.isValid()) {
        return false;
    }
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    return QTableView::edit(cell, trigger, event);
}

void MyTableView::editColumn_row_select(int column, int row, bool select)
{
    const QPointer<MyTableView> alive(this);
    selectSingleRow(row);
    if (!alive) {
        return;
    }
    const QModelIndex cell = m_model->index(row, column);
    if (!cell.isValid() || !(m_model->flags(cell) & Qt::ItemIsEditable)) {
        return;
    }
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    scrollTo(cell);
    edit(cell);
    if (!select) {
        // Every editor opens with its text selected.
        if (kit::CellTextEditor *text = m_cellDelegate->textEditor()) {
            text->selectNothing();
        } else if (auto *field = qobject_cast<QLineEdit *>(m_cellDelegate->editor())) {
            field->deselect();
        }
    }
}

void MyTableView::setTextEditorFactory(const kit::CellTextEditorFactory &factory)
{
    m_cellDelegate->setTextEditorFactory([this, factory](QWidget *parent) {
        kit::CellTextEditor *editor = factory ? factory(parent) : nullptr;
        if (editor) {
            editor->setLinesHandler([this](const QString &pasted) { return offerLines(pasted); });
        }
        return editor;
    });
}

bool MyTableView::offerLines(const QString &pasted)
{
    const auto caret = caretInCell();
    const auto source = m_model->dataSource();
    return caret && source && source->tableView_didPasteText_inColumn_row(this, *caret, pasted);
}

std::optional<kit::CellCaret> MyTableView::caretInCell() const
{
    const kit::CellTextEditor *editor = m_cellDelegate->textEditor();
    const QModelIndex cell = m_cellDelegate->cell();
    if (!editor || !cell.isValid()) {
        return std::nullopt;
    }
    return kit::CellCaret{m_model->columns()[static_cast<std::size_t>(cell.column())].identifier, cell.row(),
        editor->textBeforeSelection(), editor->textAfterSelection()};
}

void MyTableView::moveCaretInCell(qsizetype position)
{
    if (kit::CellTextEditor *editor = m_cellDelegate->textEditor()) {
        editor->moveCaretTo(position);
    }
}

bool MyTableView::isEditingCell() const
{
    return m_cellDelegate->editor() != nullptr;
}

void MyTableView::abortEditing()
{
    // While the typed text is being written back its editor is still in use further up the stack;
    // the view closes it by itself afterwards.
    if (m_committing) {
        return;
    }
    if (QWidget *editor = m_cellDelegate->editor()) {
        const bool hadFocus = editor->hasFocus();
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
        if (hadFocus) {
            setFocus();
        }
    }
}

void MyTableView::commitEditing()
{
    if (m_committing) {
        return;
    }
    if (const QPointer<QWidget> editor = m_cellDelegate->editor()) {
        const QPointer<MyTableView> alive(this);
        commitData(editor);
        if (alive && editor) {
            closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }
}

void MyTableView::commitTypedText()
{
    commitData(m_cellDelegate->editor());
}

void MyTableView::commitData(QWidget *editor)
{
    if (m_committing || !editor || editor != m_cellDelegate->editor()) {
        return;
    }
    // Not the toolkit's own way, which goes on with the editor afterwards: the host hears of the
    // edit in here, and may let go of everything.
    const QPointer<MyTableView> alive(this);
    const QPointer<QWidget> field(editor);
    m_committing = true;
    // A message that takes the focus away must not commit once more.
    editor->removeEventFilter(m_cellDelegate);
    m_cellDelegate->setModelData(editor, m_model, m_cellDelegate->cell());
    if (!alive) {
        return;
    }
    m_committing = false;
    if (field) {
        field->installEventFilter(m_cellDelegate);
    }
}
