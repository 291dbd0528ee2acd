// SPDX-License-Identifier: MIT
//
// The commands as keys and menus run them.
#include "editor/EditorActions.h"
#include "editor/KeyListDialog.h"
#include "editor/TQLRCEditorViewCtl.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTextEdit>

#include <map>

namespace {

// Commands that leave the line where it was being typed in, or take it along.
bool goesOnTyping(EditorCommand command)
{
    using enum EditorCommand;
    switch (command) {
    case NudgeBack10:
    case NudgeForward10:
    case NudgeBack100:
    case NudgeForward100:
    case NudgeBack1000:
    case NudgeForward1000:
    case DuplicateLine:
    case MoveUp:
    case MoveDown:
    case MergeWithNext:
        return true;
    default:
        return false;
    }
}

} // namespace

void TQLRCEditorViewCtl::buildActions()
{
    m_actions = std::make_unique<editor::EditorActions>([this](EditorCommand command) { perform(command); },
        [this](EditorCommand command) { return canPerform(command); });
    m_actions->setKeys(m_keys);
    connect(&m_history.stack(), &QUndoStack::indexChanged, this, [this] {
        m_actions->setStepNames(m_history.stack().undoText(), m_history.stack().redoText());
        m_actions->refresh();
    });
    m_tableRightMenu = m_actions->buildMenu([this](const QAction *item) { return validateMenuItem(item); });
}

void TQLRCEditorViewCtl::refreshActions()
{
    m_actions->refresh();
    refreshSearchButton();
}

QAction *TQLRCEditorViewCtl::action(EditorCommand command) const
{
    return m_actions->action(command);
}

void TQLRCEditorViewCtl::setKeys(const EditorKeys &keys)
{
    m_keys = keys;
    m_actions->setKeys(keys);
    refreshToolTips();
}

void TQLRCEditorViewCtl::showKeys(QObject *sender)
{
    Q_UNUSED(sender)
    editor::KeyListDialog::run(m_keys, viewIfLoaded());
}

bool TQLRCEditorViewCtl::canPerform(EditorCommand command) const
{
    using enum EditorCommand;
    switch (command) {
    case Stamp:
    case StampAndStay:
    case PlayOrPause:
    case OpenLyricFile:
    case ShowSource:
    case Preview:
    case ShowKeys:
        return true;
    case SearchLyric:
        return canSearch();
    case Help:
        return hasHelpPage();
    case Undo:
        return m_history.stack().canUndo();
    case Redo:
        return m_history.stack().canRedo();
    case PasteTextAsLines:
        return true;
    case RestoreAll:
        return !m_song.aryLines().empty() || !m_originSong.aryLines().empty();
    default:
        return !m_song.aryLines().empty();
    }
}

void TQLRCEditorViewCtl::perform(EditorCommand command)
{
    using enum EditorCommand;
    static const std::map<EditorCommand, Action> operations = {
        {Stamp, &TQLRCEditorViewCtl::pressStamp},
        {StampAndStay, &TQLRCEditorViewCtl::insertTimeTagAndStay},
        {StepBack, &TQLRCEditorViewCtl::stepBack},
        {PlayFromLine, &TQLRCEditorViewCtl::playFromLine},
        {PlayOrPause, &TQLRCEditorViewCtl::spaceKeyDown},
        {InsertLineBefore, &TQLRCEditorViewCtl::insertLineBefore},
        {InsertLineAfter, &TQLRCEditorViewCtl::insertLineAfter},
        {DuplicateLine, &TQLRCEditorViewCtl::duplicateLine},
        {DeleteLines, &TQLRCEditorViewCtl::deleteClick},
        {DeleteAllLines, &TQLRCEditorViewCtl::deleteAllClick},
        {MoveUp, &TQLRCEditorViewCtl::moveLinesUp},
        {MoveDown, &TQLRCEditorViewCtl::moveLinesDown},
        {MergeWithNext, &TQLRCEditorViewCtl::mergeLines},
        {SplitAtCaret, &TQLRCEditorViewCtl::splitLine},
        {Untag, &TQLRCEditorViewCtl::deleteFileDown},
        {UntagAll, &TQLRCEditorViewCtl::deleteAllTags},
        {MakeTitle, &TQLRCEditorViewCtl::insertTitleTag},
        {MakeArtist, &TQLRCEditorViewCtl::insertArtistTag},
        {MakeAlbum, &TQLRCEditorViewCtl::insertAlbumTag},
        {MakeEditedBy, &TQLRCEditorViewCtl::insertEditedByTag},
        {OffsetAll, &TQLRCEditorViewCtl::offsetClick},
        {OffsetSelection, &TQLRCEditorViewCtl::offsetSelectionClick},
        {RestoreAll, &TQLRCEditorViewCtl::restoreAllClick},
        {Copy, &TQLRCEditorViewCtl::copy},
        {Paste, &TQLRCEditorViewCtl::paste},
        {PasteTextAsLines, &TQLRCEditorViewCtl::pasteTextAsLines},
        {SelectAll, &TQLRCEditorViewCtl::selectAll},
        {Undo, &TQLRCEditorViewCtl::undo},
        {Redo, &TQLRCEditorViewCtl::redo},
        {ShowSource, &TQLRCEditorViewCtl::showSource},
        {OpenLyricFile, &TQLRCEditorViewCtl::openLyricFile},
        {SearchLyric, &TQLRCEditorViewCtl::searchLyricClick},
        {Preview, &TQLRCEditorViewCtl::previewClicked},
        {Help, &TQLRCEditorViewCtl::helpClick},
        {ShowKeys, &TQLRCEditorViewCtl::showKeys},
    };
    static const std::map<EditorCommand, std::int64_t> nudges = {
        {NudgeBack10, -10},
        {NudgeForward10, 10},
        {NudgeBack100, -100},
        {NudgeForward100, 100},
        {NudgeBack1000, -1000},
        {NudgeForward1000, 1000},
    };
    const auto alive = self();
    if (passToText(command)) {
        return;
    }
    if (command == SplitAtCaret && isSourceShown()) {
        // The source splits a line by its own Return; the key that does it elsewhere is free to stamp.
        command = Stamp;
    }
    const auto caret = m_tableView ? m_tableView->caretInCell() : std::nullopt;
    if (command != SplitAtCaret) {
        // The command reloads the table; what is being typed in a cell must not be lost by that.
        commitEditing();
    }
    if (const auto operation = operations.find(command); operation != operations.end()) {
        ((*this).*(operation->second))(nullptr);
    } else if (const auto amount = nudges.find(command); amount != nudges.end()) {
        nudge(amount->second);
    }
    if (caret && goesOnTyping(command)) {
        typeAt(m_tableView ? m_tableView->selectedRow() : -1, caret->before.size());
    }
}

void TQLRCEditorViewCtl::typeAt(int row, qsizetype position)
{
    if (m_tableView && row >= 0 && !m_tableView->isEditingCell()) {
        m_tableView->editColumn_row_select(m_tableView->numberOfColumns() - 1, row, false);
        m_tableView->moveCaretInCell(position);
    }
}

void TQLRCEditorViewCtl::pressStamp(QObject *sender)
{
    // The button itself, at once: it shows that it was pressed, and a stamp is exact or it is nothing.
    if (m_btnInsertTime) {
        m_btnInsertTime->click();
    } else {
        insertTimeTag(sender);
    }
}

bool TQLRCEditorViewCtl::passToText(EditorCommand command)
{
    // The menu's copy and paste, too, are those of the text in which the caret stands.
    static const std::map<EditorCommand, const char *> textOperations = {{EditorCommand::Copy, "copy"},
        {EditorCommand::Paste, "paste"}, {EditorCommand::SelectAll, "selectAll"}};
    const auto slot = textOperations.find(command);
    QWidget *focus = QApplication::focusWidget();
    return slot != textOperations.end() && focus && viewIfLoaded() && viewIfLoaded()->isAncestorOf(focus)
        && (qobject_cast<QLineEdit *>(focus) || qobject_cast<QTextEdit *>(focus))
        && QMetaObject::invokeMethod(focus, slot->second);
}
