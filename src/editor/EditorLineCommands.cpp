// SPDX-License-Identifier: MIT
//
// The commands that make lines, take them out and move them.
#include "editor/EditorStep.h"
#include "editor/LineColumns.h"
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Localized.h"

namespace {

QString countedName(const QString &one, const QString &many, const kit::RowRanges &rows)
{
    int count = 0;
    for (const kit::RowRange &range : rows) {
        count += range.last - range.first + 1;
    }
    return count == 1 ? one : many.arg(count);
}

} // namespace

void TQLRCEditorViewCtl::deleteClick(QObject *sender)
{
    Q_UNUSED(sender)
    const auto rows = selection().rows;
    const Step step(*this,
        countedName(
            localized(QStringLiteral("delete line")), localized(QStringLiteral("delete %1 lines")), rows));
    changes().remove(rows);
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::deleteAllClick(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("delete all lines")));
    changes().removeAll();
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::insertLineBefore(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("new line")));
    if (editor::insertBefore(changes(), selection())) {
        reloadDataWithLrcChanged();
    }
}

void TQLRCEditorViewCtl::insertLineAfter(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("new line")));
    if (editor::insertAfter(changes(), selection())) {
        reloadDataWithLrcChanged();
        selectNextLine(false);
    }
}

void TQLRCEditorViewCtl::duplicateLine(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("duplicate")));
    if (editor::duplicate(changes(), selection())) {
        reloadDataWithLrcChanged();
    }
}

void TQLRCEditorViewCtl::moveLinesUp(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("move up")));
    if (const auto rows = editor::moveUp(changes(), selection().rows)) {
        reloadDataWithLrcChanged();
        selectLines(*rows);
    }
}

void TQLRCEditorViewCtl::moveLinesDown(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("move down")));
    if (const auto rows = editor::moveDown(changes(), selection().rows)) {
        reloadDataWithLrcChanged();
        selectLines(*rows);
    }
}

void TQLRCEditorViewCtl::mergeLines(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("merge")));
    if (const auto row = editor::merge(changes(), selection().rows)) {
        reloadDataWithLrcChanged();
        selectLines({{*row, *row}});
    }
}

void TQLRCEditorViewCtl::splitLine(QObject *sender)
{
    Q_UNUSED(sender)
    const auto caret = m_tableView ? m_tableView->caretInCell() : std::nullopt;
    if (!caret) {
        tell(localized(QStringLiteral("A line is split at the caret: edit its text first.")));
        return;
    }
    const Step step(*this, localized(QStringLiteral("split")));
    commitEditing();
    if (editor::split(changes(), caret->row, caret->before, caret->after)) {
        reloadDataWithLrcChanged();
    }
    if (m_tableView) {
        m_tableView->editColumn_row_select(m_tableView->numberOfColumns() - 1, caret->row + 1, false);
        m_tableView->moveCaretInCell(0);
    }
}
