// SPDX-License-Identifier: MIT
#include "editor/CommandTitles.h"

#include "resources/Localized.h"

#include <QtCore/QtGlobal>

#include <array>

namespace editor {

namespace {

using Command = EditorCommand;
using Group = CommandGroup;
using Text = QString (*)();

struct Row
{
    Command command;
    Group group;
    Text title;
};

// In the order of the commands.
constexpr std::array kRows{
    Row{Command::Stamp, Group::Stamping, [] { return localized(QStringLiteral("Stamp")); }},
    Row{Command::StampAndStay, Group::Stamping, [] { return localized(QStringLiteral("Stamp and stay")); }},
    Row{Command::StepBack, Group::Playing,
        [] { return localized(QStringLiteral("Up one line and play from it")); }},
    Row{Command::NudgeBack10, Group::Stamping, [] { return localized(QStringLiteral("10 ms earlier")); }},
    Row{Command::NudgeForward10, Group::Stamping, [] { return localized(QStringLiteral("10 ms later")); }},
    Row{Command::NudgeBack100, Group::Stamping, [] { return localized(QStringLiteral("100 ms earlier")); }},
    Row{Command::NudgeForward100, Group::Stamping, [] { return localized(QStringLiteral("100 ms later")); }},
    Row{Command::NudgeBack1000, Group::Stamping, [] { return localized(QStringLiteral("1 s earlier")); }},
    Row{Command::NudgeForward1000, Group::Stamping, [] { return localized(QStringLiteral("1 s later")); }},
    Row{Command::PlayFromLine, Group::Playing,
        [] { return localized(QStringLiteral("Play from this line")); }},
    Row{Command::PlayOrPause, Group::Playing, [] { return localized(QStringLiteral("Play or pause")); }},
    Row{Command::InsertLineBefore, Group::Lines,
        [] { return localized(QStringLiteral("Insert line before")); }},
    Row{Command::InsertLineAfter, Group::Lines,
        [] { return localized(QStringLiteral("Insert line after")); }},
    Row{Command::DuplicateLine, Group::Lines, [] { return localized(QStringLiteral("Duplicate line")); }},
    Row{Command::DeleteLines, Group::Lines, [] { return localized(QStringLiteral("Delete lines")); }},
    Row{Command::DeleteAllLines, Group::Lines, [] { return localized(QStringLiteral("Delete all lines")); }},
    Row{Command::MoveUp, Group::Lines, [] { return localized(QStringLiteral("Move lines up")); }},
    Row{Command::MoveDown, Group::Lines, [] { return localized(QStringLiteral("Move lines down")); }},
    Row{Command::MergeWithNext, Group::Lines,
        [] { return localized(QStringLiteral("Join with the next line")); }},
    Row{Command::SplitAtCaret, Group::Lines,
        [] { return localized(QStringLiteral("Split at the text cursor")); }},
    Row{Command::Untag, Group::Tags, [] { return localized(QStringLiteral("Remove times and tags")); }},
    Row{Command::UntagAll, Group::Tags,
        [] { return localized(QStringLiteral("Remove all times and tags")); }},
    Row{Command::MakeTitle, Group::Tags,
        [] { return localized(QStringLiteral("Make this line the title")); }},
    Row{Command::MakeArtist, Group::Tags,
        [] { return localized(QStringLiteral("Make this line the artist")); }},
    Row{Command::MakeAlbum, Group::Tags,
        [] { return localized(QStringLiteral("Make this line the album")); }},
    Row{Command::MakeEditedBy, Group::Tags,
        [] { return localized(QStringLiteral("Make this line the editor")); }},
    Row{Command::OffsetAll, Group::Stamping, [] { return localized(QStringLiteral("Shift all times…")); }},
    Row{Command::OffsetSelection, Group::Stamping,
        [] { return localized(QStringLiteral("Shift the selected times…")); }},
    Row{Command::RestoreAll, Group::Lyric,
        [] { return localized(QStringLiteral("Go back to the lyric as it was loaded")); }},
    Row{Command::Copy, Group::Editing, [] { return localized(QStringLiteral("Copy lines")); }},
    Row{Command::Paste, Group::Editing, [] { return localized(QStringLiteral("Paste lines")); }},
    Row{Command::PasteTextAsLines, Group::Editing,
        [] { return localized(QStringLiteral("Paste text as lines")); }},
    Row{Command::SelectAll, Group::Editing, [] { return localized(QStringLiteral("Select all")); }},
    Row{Command::Undo, Group::Editing, [] { return localized(QStringLiteral("Undo")); }},
    Row{Command::Redo, Group::Editing, [] { return localized(QStringLiteral("Redo")); }},
    Row{Command::ShowSource, Group::Lyric, [] { return localized(QStringLiteral("Show the LRC text")); }},
    Row{Command::OpenLyricFile, Group::Lyric, [] { return localized(QStringLiteral("Open lyric file…")); }},
    Row{Command::SearchLyric, Group::Lyric, [] { return localized(QStringLiteral("Search for the lyric")); }},
    Row{Command::Preview, Group::Lyric, [] { return localized(QStringLiteral("Preview")); }},
    Row{Command::Help, Group::Lyric, [] { return localized(QStringLiteral("Open the help page")); }},
    Row{Command::ShowKeys, Group::Lyric, [] { return localized(QStringLiteral("Show all keys")); }},
};

constexpr bool isInTheOrderOfTheCommands()
{
    std::size_t number = 0;
    for (const Row &row : kRows) {
        if (static_cast<std::size_t>(row.command) != number++) {
            return false;
        }
    }
    return number == static_cast<std::size_t>(Command::ShowKeys) + 1;
}
static_assert(isInTheOrderOfTheCommands(), "every command has its row");

const Row &rowOf(EditorCommand command)
{
    return kRows.at(static_cast<std::size_t>(command));
}

struct Named
{
    Qt::Key key;
    Text name;
};

constexpr std::array kNamedKeys{
    Named{Qt::Key_Return, [] { return localized(QStringLiteral("Enter")); }},
    Named{Qt::Key_Enter, [] { return localized(QStringLiteral("Num Enter")); }},
    Named{Qt::Key_Space, [] { return localized(QStringLiteral("Space")); }},
    Named{Qt::Key_Backspace, [] { return localized(QStringLiteral("Backspace")); }},
    Named{Qt::Key_Insert, [] { return localized(QStringLiteral("Ins")); }},
    Named{Qt::Key_Delete, [] { return localized(QStringLiteral("Del")); }},
    Named{Qt::Key_Home, [] { return localized(QStringLiteral("Home")); }},
    Named{Qt::Key_End, [] { return localized(QStringLiteral("End")); }},
    Named{Qt::Key_PageUp, [] { return localized(QStringLiteral("Page up")); }},
    Named{Qt::Key_PageDown, [] { return localized(QStringLiteral("Page down")); }},
    Named{Qt::Key_Left, [] { return QStringLiteral("←"); }},
    Named{Qt::Key_Right, [] { return QStringLiteral("→"); }},
    Named{Qt::Key_Up, [] { return QStringLiteral("↑"); }},
    Named{Qt::Key_Down, [] { return QStringLiteral("↓"); }},
};

QString nameOfKey(Qt::Key key)
{
    for (const auto &[named, name] : kNamedKeys) {
        if (named == key) {
            return name();
        }
    }
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

} // namespace

QString commandTitle(EditorCommand command)
{
    return rowOf(command).title();
}

CommandGroup commandGroup(EditorCommand command)
{
    return rowOf(command).group;
}

QString groupTitle(CommandGroup group)
{
    switch (group) {
    case Group::Stamping:
        return localized(QStringLiteral("Times"));
    case Group::Playing:
        return localized(QStringLiteral("Playing"));
    case Group::Lines:
        return localized(QStringLiteral("Lines"));
    case Group::Tags:
        return localized(QStringLiteral("Tags"));
    case Group::Editing:
        return localized(QStringLiteral("Editing"));
    case Group::Lyric:
        break;
    }
    return localized(QStringLiteral("Lyric"));
}

QString keyText(const QKeySequence &key)
{
#ifdef Q_OS_MACOS
    return key.toString(QKeySequence::NativeText);
#else
    if (key.isEmpty()) {
        return {};
    }
    QStringList parts;
    const Qt::KeyboardModifiers modifiers = key[0].keyboardModifiers();
    if (modifiers.testFlag(Qt::MetaModifier)) {
        parts.append(localized(QStringLiteral("Meta")));
    }
    if (modifiers.testFlag(Qt::ControlModifier)) {
        parts.append(localized(QStringLiteral("Ctrl")));
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        parts.append(localized(QStringLiteral("Alt")));
    }
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        parts.append(localized(QStringLiteral("Shift")));
    }
    parts.append(nameOfKey(key[0].key()));
    return parts.join(QLatin1Char('+'));
#endif
}

QString toolTipWithKey(const QString &text, const EditorKeys &keys, EditorCommand command)
{
    const QList<QKeySequence> known = keys.keys(command);
    return known.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, keyText(known.first()));
}

} // namespace editor
