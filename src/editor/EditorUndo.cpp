// SPDX-License-Identifier: MIT
//
// Taking back and doing again, and what of the table comes back with the lines.
#include "editor/TQLRCEditorViewCtl.h"

#include <QtWidgets/QScrollBar>

void TQLRCEditorViewCtl::undo(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    commitEditing();
    if (const auto state = m_history.undo()) {
        showState(*state);
    }
}

void TQLRCEditorViewCtl::redo(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    commitEditing();
    if (const auto state = m_history.redo()) {
        showState(*state);
    }
}

editor::LineSelection TQLRCEditorViewCtl::selection() const
{
    if (!m_tableView) {
        return {};
    }
    return {m_tableView->selectedRow(), m_tableView->selectedRowRanges()};
}

editor::TableState TQLRCEditorViewCtl::tableState() const
{
    if (!m_tableView) {
        return {};
    }
    const auto [selectedRow, rows] = selection();
    return {rows, selectedRow, m_tableView->verticalScrollBar()->value()};
}

void TQLRCEditorViewCtl::showState(const editor::TableState &state)
{
    reloadDataWithLrcChanged();
    if (m_tableView) {
        m_tableView->selectRows(state.rows, state.selectedRow);
    }
    if (m_tableView) {
        m_tableView->verticalScrollBar()->setValue(state.scroll);
    }
}

void TQLRCEditorViewCtl::selectLines(const kit::RowRanges &rows)
{
    if (m_tableView && !rows.empty()) {
        m_tableView->selectRows(rows, rows.back().last);
    }
    if (m_tableView && !rows.empty()) {
        m_tableView->scrollRowToVisible(rows.front().first);
        m_tableView->scrollRowToVisible(rows.back().last);
    }
}
