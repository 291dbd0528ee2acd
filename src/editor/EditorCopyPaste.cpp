// SPDX-License-Identifier: MIT
//
// Copying and pasting lines, within the editor and from other programs.
#include "editor/CommandTitles.h"
#include "editor/EditorActions.h"
#include "editor/EditorStep.h"
#include "editor/LineClipboard.h"
#include "editor/LineColumns.h"
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Localized.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

void TQLRCEditorViewCtl::copyLinesClick(QObject *sender)
{
    Q_UNUSED(sender)
    m_copiedLines = editor::copyOf(m_song, selection().rows);
    if (!m_copiedLines.empty()) {
        QGuiApplication::clipboard()->setText(editor::lrcTextOf(m_copiedLines));
    }
    refreshActions();
}

void TQLRCEditorViewCtl::pasteLinesClick(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("paste")));
    if (editor::paste(changes(), selection(), m_copiedLines)) {
        reloadDataWithLrcChanged();
    }
    const auto keys = m_keys.keys(EditorCommand::PasteTextAsLines);
    if (m_copiedLines.empty() && !keys.isEmpty()
        && !QGuiApplication::clipboard()->text().trimmed().isEmpty()) {
        tell(localized(
            QStringLiteral("No lines were copied here. %1 makes lines of the text on the clipboard."))
                 .arg(editor::keyText(keys.first())));
    }
}

void TQLRCEditorViewCtl::forgetSpellingOfCopies()
{
    for (RBSongLine &line : m_copiedLines) {
        line = editor::withoutSpelling(line);
    }
}

void TQLRCEditorViewCtl::copy(QObject *sender)
{
    copyLinesClick(sender);
}

void TQLRCEditorViewCtl::paste(QObject *sender)
{
    pasteLinesClick(sender);
}

void TQLRCEditorViewCtl::pasteTextAsLines(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("paste text")));
    if (const auto rows = editor::pasteText(changes(), selection(), QGuiApplication::clipboard()->text())) {
        reloadDataWithLrcChanged();
        selectLines({*rows});
    } else {
        tell(localized(QStringLiteral("There is no text on the clipboard.")));
    }
}

void TQLRCEditorViewCtl::selectAll(QObject *sender)
{
    Q_UNUSED(sender)
    if (m_tableView) {
        m_tableView->selectAll();
    }
}

bool TQLRCEditorViewCtl::tableView_didPasteText_inColumn_row(
    MyTableView *tableView, const kit::CellCaret &caret, const QString &pasted)
{
    Q_UNUSED(tableView)
    if (pasted.trimmed().isEmpty()) {
        return false;
    }
    const Step step(*this, localized(QStringLiteral("paste text")));
    commitEditing();
    if (const auto rows = editor::pasteIntoText(changes(), caret.row, caret.before, caret.after, pasted)) {
        reloadDataWithLrcChanged();
        selectLines({{rows->last, rows->last}});
        const QString text = tableView_objectValueForTableColumn_row(
            m_tableView, editor::textColumnIdentifier(), rows->last);
        typeAt(rows->last, text.endsWith(caret.after) ? text.size() - caret.after.size() : text.size());
    }
    return true;
}

void TQLRCEditorViewCtl::tableView_didDropText_beforeRow(MyTableView *tableView, const QString &text, int row)
{
    Q_UNUSED(tableView)
    const Step step(*this, localized(QStringLiteral("drop text")));
    if (const auto rows = editor::insertText(changes(), row, text)) {
        reloadDataWithLrcChanged();
        selectLines({*rows});
    }
}

bool TQLRCEditorViewCtl::validateMenuItem(const QAction *item) const
{
    const auto command = m_actions->commandOf(item);
    switch (command.value_or(EditorCommand::Stamp)) {
    case EditorCommand::Undo:
    case EditorCommand::Redo:
    case EditorCommand::PasteTextAsLines:
    case EditorCommand::ShowSource:
    case EditorCommand::OpenLyricFile:
    case EditorCommand::SearchLyric:
    case EditorCommand::Help:
    case EditorCommand::ShowKeys:
    case EditorCommand::PlayOrPause:
        return canPerform(*command);
    default:
        break;
    }
    if (item && item->objectName() == QLatin1String("pasteLinesClick")) {
        return !m_copiedLines.empty();
    }
    return !m_song.aryLines().empty();
}
