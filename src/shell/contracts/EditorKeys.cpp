// SPDX-License-Identifier: MIT
#include "shell/contracts/EditorKeys.h"

#include <QtGui/QGuiApplication>

namespace {

using Command = EditorCommand;
using Keys = QList<QKeySequence>;

struct Default
{
    Command command;
    Keys keys;
};

Keys enterKeys(Qt::KeyboardModifiers modifiers)
{
    return {QKeySequence(modifiers | Qt::Key_Return), QKeySequence(modifiers | Qt::Key_Enter)};
}

const QList<Default> &defaults()
{
    static const QList<Default> all{
        {Command::Stamp, enterKeys(Qt::NoModifier)},
        {Command::StampAndStay, enterKeys(Qt::ShiftModifier)},
        {Command::StepBack, {Qt::CTRL | Qt::Key_Up}},
        {Command::NudgeBack10, {Qt::ALT | Qt::Key_Left}},
        {Command::NudgeForward10, {Qt::ALT | Qt::Key_Right}},
        {Command::NudgeBack100, {Qt::CTRL | Qt::Key_Left}},
        {Command::NudgeForward100, {Qt::CTRL | Qt::Key_Right}},
        {Command::NudgeBack1000, {Qt::CTRL | Qt::SHIFT | Qt::Key_Left}},
        {Command::NudgeForward1000, {Qt::CTRL | Qt::SHIFT | Qt::Key_Right}},
        {Command::PlayFromLine, {Qt::SHIFT | Qt::Key_Space, Qt::Key_F5}},
        {Command::PlayOrPause, {Qt::Key_Space}},
        {Command::InsertLineBefore, {Qt::CTRL | Qt::SHIFT | Qt::Key_Insert}},
        {Command::InsertLineAfter, {Qt::Key_Insert}},
        {Command::DuplicateLine, {Qt::CTRL | Qt::Key_D}},
        {Command::DeleteLines, {Qt::CTRL | Qt::Key_Delete}},
        {Command::MoveUp, {Qt::ALT | Qt::Key_Up}},
        {Command::MoveDown, {Qt::ALT | Qt::Key_Down}},
        {Command::MergeWithNext, enterKeys(Qt::ControlModifier | Qt::ShiftModifier)},
        {Command::SplitAtCaret, enterKeys(Qt::ControlModifier)},
        {Command::Untag, {Qt::Key_Delete, Qt::Key_Backspace}},
        {Command::PasteTextAsLines, {Qt::CTRL | Qt::SHIFT | Qt::Key_V}},
        {Command::ShowSource, {Qt::CTRL | Qt::Key_U}},
        {Command::OpenLyricFile, {Qt::CTRL | Qt::SHIFT | Qt::Key_O}},
        {Command::SearchLyric, {Qt::CTRL | Qt::SHIFT | Qt::Key_F}},
        {Command::Preview, {Qt::CTRL | Qt::Key_P}},
        {Command::ShowKeys, {Qt::Key_F1}},
    };
    return all;
}

// Asking the platform before there is one is not survived.
Keys platformKeys(QKeySequence::StandardKey standard)
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr) {
        return QKeySequence::keyBindings(standard);
    }
    switch (standard) {
    case QKeySequence::Undo:
        return {Qt::CTRL | Qt::Key_Z};
    case QKeySequence::Redo:
        return {Qt::CTRL | Qt::SHIFT | Qt::Key_Z};
    case QKeySequence::Copy:
        return {Qt::CTRL | Qt::Key_C};
    case QKeySequence::Paste:
        return {Qt::CTRL | Qt::Key_V};
    case QKeySequence::SelectAll:
        return {Qt::CTRL | Qt::Key_A};
    default:
        return {};
    }
}

bool isOnAnOldKeyboard(const QKeySequence &key)
{
    const Qt::Key pressed = key[0].key();
    return pressed > Qt::Key_F12 && pressed <= Qt::Key_F35;
}

bool isModifier(Qt::Key key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
}

bool isKey(const QKeySequence &key)
{
    return key.count() == 1 && key[0].key() != Qt::Key_unknown && !isModifier(key[0].key());
}

QKeySequence withoutKeypad(const QKeySequence &key)
{
    return isKey(key) ? QKeySequence((key[0].keyboardModifiers() & ~Qt::KeypadModifier) | key[0].key()) : key;
}

} // namespace

EditorKeys::EditorKeys()
{
    for (const auto &[command, keys] : defaults()) {
        setKeys(command, keys);
    }
    addPlatformKeys(EditorCommand::Undo, QKeySequence::Undo);
    addPlatformKeys(EditorCommand::Redo, QKeySequence::Redo);
    addPlatformKeys(EditorCommand::Copy, QKeySequence::Copy);
    addPlatformKeys(EditorCommand::Paste, QKeySequence::Paste);
    addPlatformKeys(EditorCommand::SelectAll, QKeySequence::SelectAll);
}

QList<QKeySequence> EditorKeys::keys(EditorCommand command) const
{
    return m_keys.at(static_cast<std::size_t>(command));
}

EditorKeys::Change EditorKeys::setKeys(EditorCommand command, const QList<QKeySequence> &keys)
{
    Change change;
    QList<QKeySequence> own;
    for (const QKeySequence &asked : keys) {
        const QKeySequence key = withoutKeypad(asked);
        if (!isKey(key)) {
            change.leftOut.append(asked);
        } else if (!own.contains(key)) {
            take(key, command, change.taken);
            own.append(key);
        }
    }
    m_keys.at(static_cast<std::size_t>(command)) = own;
    return change;
}

std::optional<EditorCommand> EditorKeys::commandFor(const QKeySequence &key) const
{
    const QKeySequence wanted = withoutKeypad(key);
    for (const EditorCommand command : allCommands()) {
        if (m_keys.at(static_cast<std::size_t>(command)).contains(wanted)) {
            return command;
        }
    }
    return std::nullopt;
}

const QList<EditorCommand> &EditorKeys::allCommands()
{
    static const QList<EditorCommand> all = [] {
        QList<EditorCommand> commands;
        for (std::size_t number = 0; number < kCommands; ++number) {
            commands.append(static_cast<EditorCommand>(number));
        }
        return commands;
    }();
    return all;
}

// Where the platform's choice meets one of ours, ours stays.
void EditorKeys::addPlatformKeys(EditorCommand command, QKeySequence::StandardKey standard)
{
    QList<QKeySequence> free;
    for (const QKeySequence &key : platformKeys(standard)) {
        if (isKey(key) && !isOnAnOldKeyboard(key) && !commandFor(key)) {
            free.append(key);
        }
    }
    setKeys(command, free);
}

void EditorKeys::take(const QKeySequence &key, EditorCommand except, QList<TakenKey> &taken)
{
    const auto owner = commandFor(key);
    if (owner && *owner != except) {
        m_keys.at(static_cast<std::size_t>(*owner)).removeAll(key);
        taken.append({*owner, key});
    }
}
