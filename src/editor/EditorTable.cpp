// SPDX-License-Identifier: MIT
//
// The table's side of the line editor: columns, cells, edited cells, selection, refresh.
#include "editor/EditorStep.h"
#include "editor/LineColumns.h"
#include "editor/SourceView.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "editor/TextSplice.h"
#include "kit/TQAlert.h"
#include "lyrics/RBUtils.h"
#include "resources/Localized.h"

RBSongLine *TQLRCEditorViewCtl::getSongLineAtIndex(std::ptrdiff_t index)
{
    auto &lines = m_song.aryLines();
    return index < 0 || static_cast<std::size_t>(index) >= lines.size()
        ? nullptr
        : &lines[static_cast<std::size_t>(index)];
}

RBSongLine *TQLRCEditorViewCtl::getSelectedLine()
{
    return getSongLineAtIndex(m_tableView ? m_tableView->selectedRow() : -1);
}

int TQLRCEditorViewCtl::getToColumnsCount() const
{
    return static_cast<int>(editor::timeColumnCount(m_song)) + 2;
}

void TQLRCEditorViewCtl::updateTableColumns()
{
    if (!m_tableView) {
        return;
    }
    const int target = getToColumnsCount();
    if (m_tableView->numberOfColumns() == target) {
        return;
    }
    m_tableView->replaceColumnsFrom(1, editor::columnsAfterNumber(static_cast<std::size_t>(target - 2)));
}

void TQLRCEditorViewCtl::reloadDataWithLrcChanged()
{
    const auto alive = self();
    if (m_tableView) {
        m_tableView->abortEditing();
        updateTableColumns();
        m_problemRow = -1;
        updateSource();
        m_tableView->reloadData();
    }
    documentChanged();
    notifyChanged();
}

void TQLRCEditorViewCtl::notifyChanged()
{
    if (const auto host = delegate()) {
        host->lrcEditorLrcDidChanged();
    }
}

void TQLRCEditorViewCtl::commitEditing()
{
    const auto alive = self();
    if (m_tableView) {
        // Who saves goes on typing; a reload closes the cell by itself.
        m_tableView->commitTypedText();
    }
    flushSource();
}

int TQLRCEditorViewCtl::numberOfRowsInTableView(MyTableView *tableView)
{
    Q_UNUSED(tableView)
    return songLinesNum();
}

QString TQLRCEditorViewCtl::tableView_objectValueForTableColumn_row(
    MyTableView *tableView, const QString &identifier, int row)
{
    Q_UNUSED(tableView)
    const RBSongLine *line = getSongLineAtIndex(row);
    return line ? editor::cellText(*line, row, identifier) : QString();
}

void TQLRCEditorViewCtl::tableView_setObjectValue_forTableColumn_row(
    MyTableView *tableView, const QString &value, const QString &identifier, int row)
{
    Q_UNUSED(tableView)
    // The edit belongs to the selected line; in a selection of one row that is the edited row.
    Q_UNUSED(row)
    const auto alive = self();
    if (identifier == editor::textColumnIdentifier()) {
        editTextCell(value);
    } else if (editor::isTimeColumn(identifier)) {
        if (value.isEmpty() || RBUtils::isTimeString(value.toStdString())) {
            editTimeCell(value, editor::timeIndex(identifier));
        } else {
            TQAlert::OK_info(
                localized(QStringLiteral("Please input the right time format[mm:ss.SS]!")), QString());
        }
    }
    documentChanged();
    notifyChanged();
}

void TQLRCEditorViewCtl::editTimeCell(const QString &value, std::optional<std::size_t> timeIndex)
{
    if (timeIndex) {
        const Step step(*this, localized(QStringLiteral("edit time")));
        changes().change(selection().selectedRow, [&value, timeIndex](RBSongLine &line) {
            line.updateWithTimeStr_atIndex(value.toStdString(), static_cast<std::ptrdiff_t>(*timeIndex));
        });
    }
}

void TQLRCEditorViewCtl::editTextCell(const QString &value)
{
    const Step step(*this, localized(QStringLiteral("edit text")));
    changes().change(
        selection().selectedRow, [&value](RBSongLine &line) { editor::updateShownWords(line, value); });
}

void TQLRCEditorViewCtl::tableViewSelectionDidChange(MyTableView *tableView)
{
    const auto alive = self();
    if (const auto host = delegate()) {
        host->lrcEditorSelctionChanged_column(static_cast<std::int32_t>(tableView->selectedRow()), 0);
    }
    moveCaretToSelectedRow();
    showTicksSoon();
}

void TQLRCEditorViewCtl::tableViewReloaded(QObject *sender)
{
    Q_UNUSED(sender)
}

QMenu *TQLRCEditorViewCtl::menuForRightClick()
{
    return tableRightMenu();
}

void TQLRCEditorViewCtl::deleteFileDown(QObject *sender)
{
    Q_UNUSED(sender)
    deleteLineTag(nullptr);
}
