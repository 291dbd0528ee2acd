// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtGui/QKeySequence>

#include <array>
#include <cstddef>
#include <optional>

/// What the line editor can be told to do by a key or an entry of its menu.
enum class EditorCommand {
    // Times
    Stamp, ///< stamp the play position onto the selected line, go to the next
    StampAndStay, ///< the same without going on
    StepBack, ///< up one line, and seek to where it is sung
    NudgeBack10, ///< the times of the selected lines, by so many milliseconds
    NudgeForward10,
    NudgeBack100,
    NudgeForward100,
    NudgeBack1000,
    NudgeForward1000,
    PlayFromLine,
    PlayOrPause,
    // Lines
    InsertLineBefore,
    InsertLineAfter,
    DuplicateLine,
    DeleteLines,
    DeleteAllLines,
    MoveUp,
    MoveDown,
    MergeWithNext,
    SplitAtCaret,
    // What a line is
    Untag,
    UntagAll,
    MakeTitle,
    MakeArtist,
    MakeAlbum,
    MakeEditedBy,
    // Many lines at once
    OffsetAll,
    OffsetSelection,
    RestoreAll,
    // Taking and bringing
    Copy,
    Paste,
    PasteTextAsLines,
    SelectAll,
    Undo,
    Redo,
    // The rest
    ShowSource,
    OpenLyricFile,
    SearchLyric, ///< through the service that the host registered
    Preview,
    Help, ///< opens the help page; without keys, and without a page it cannot be done
    ShowKeys
};

/// The commands of the line editor and the keys that run them.
///
/// A plain value: a host takes one, changes it, and hands it to the component. One key runs one
/// command at most; a command has any number of keys, the first of which is the one that its
/// tooltip and its menu entry name. Nothing is kept between runs.
///
/// A key is one press with its modifiers: sequences of several presses are no keys here, since
/// commands are run in rhythm. A key of the keypad is the same key as elsewhere, but for Enter.
///
/// The defaults for what is used in rhythm have no letters, so that they are the same on every
/// keyboard layout; they leave alone Alt+Shift with another key (switches layouts, and
/// desktops move windows by it), Alt+Insert and Ctrl+Alt with an arrow (desktops' workspaces). Shift+Space
/// switches some input methods: playing from a line has a second key for that.
class EditorKeys
{
public:
    /// A key that a command had and lost.
    struct TakenKey
    {
        EditorCommand from;
        QKeySequence key;
        friend bool operator==(const TakenKey &, const TakenKey &) = default;
    };
    /// What a change of keys did besides what was asked for.
    struct Change
    {
        /// Keys that other commands had, in the order in which they were asked for.
        QList<TakenKey> taken;
        /// What was asked for and is no key: empty, several presses, or modifiers alone.
        QList<QKeySequence> leftOut;
        friend bool operator==(const Change &, const Change &) = default;
    };

    /// The defaults. Undo, redo, copy, paste and select all have the keys of the platform, which
    /// are known from the time on when there is a QGuiApplication; before it, the most common ones.
    /// The function keys beyond F12, which old keyboards had for them, are not among them.
    EditorKeys();

    /// In the order in which they were set; empty when no key runs `command`.
    [[nodiscard]] QList<QKeySequence> keys(EditorCommand command) const;
    /// Makes `keys` the only keys of `command`. Empty takes all away.
    ///
    /// A key that another command has is taken from it, and the answer says so; whoever lets
    /// users choose can ask `commandFor` first. A key named twice counts once.
    Change setKeys(EditorCommand command, const QList<QKeySequence> &keys);
    /// The command that `key` runs; nothing when it runs none.
    [[nodiscard]] std::optional<EditorCommand> commandFor(const QKeySequence &key) const;

    /// Every command once, in the order of their declaration.
    [[nodiscard]] static const QList<EditorCommand> &allCommands();

    /// The same keys in the same order for each command.
    friend bool operator==(const EditorKeys &, const EditorKeys &) = default;

private:
    static constexpr std::size_t kCommands = static_cast<std::size_t>(EditorCommand::ShowKeys) + 1;

    void addPlatformKeys(EditorCommand command, QKeySequence::StandardKey standard);
    void take(const QKeySequence &key, EditorCommand except, QList<TakenKey> &taken);

    std::array<QList<QKeySequence>, kCommands> m_keys;
};
