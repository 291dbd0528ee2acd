// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SongChanges.h"
#include "kit/RowSelection.h"

#include <QtCore/QString>
#include <QtGui/QUndoStack>

#include <optional>
#include <vector>

namespace editor {

/// What a step brings back besides the lines.
struct TableState
{
    kit::RowRanges rows;
    /// The row added to the selection last; −1 for none.
    int selectedRow = -1;
    /// Logical pixels from the top.
    int scroll = 0;
};

/// Everything that was done to one document, to be undone and redone without limit.
///
/// A step is what one command did, however many changes that were: what is done between `begin` and the
/// `end` that belongs to it, with all that is begun in between. A step that changed nothing is none.
class EditHistory
{
public:
    /// Typing goes into one step as long as nothing else is done and `closeTyping` is not called. A step of
    /// typing replaces the whole document.
    enum class Kind { Command, Typing };

    /// `song` must outlive this.
    explicit EditHistory(RBEditSong &song) : m_changes(song), m_song(song) { }
    EditHistory(const EditHistory &) = delete;
    EditHistory &operator=(const EditHistory &) = delete;
    /// Who listens to the stack is told nothing of its end.
    ~EditHistory() { m_stack.blockSignals(true); }

    /// Where all changes are made, within a step.
    [[nodiscard]] SongChanges &changes() { return m_changes; }
    /// For the actions of a menu: their texts, and whether they can act.
    [[nodiscard]] QUndoStack &stack() { return m_stack; }
    [[nodiscard]] const QUndoStack &stack() const { return m_stack; }

    /// \param name  what is done, as a menu says it behind "Undo"; of the outermost `begin`.
    void begin(const QString &name, TableState before);
    void end(TableState after, Kind kind = Kind::Command);
    [[nodiscard]] bool isOpen() const { return m_depth > 0; }
    /// Another number for each history: what is begun on one song does not go on in the next.
    [[nodiscard]] int generation() const { return m_generation; }
    /// Another song has come: nothing of what was done can be undone any more.
    void clear();
    /// What is typed from now on is a step of its own.
    void closeTyping() { ++m_typingRun; }

    /// The state that the table had before the step that was undone, or after the one that was redone.
    /// Nothing when there was no step, while a step is being made, and when somebody else changed the
    /// lines so that the step does not fit: then the whole history is given up.
    [[nodiscard]] std::optional<TableState> undo() { return go(&QUndoStack::undo); }
    [[nodiscard]] std::optional<TableState> redo() { return go(&QUndoStack::redo); }

private:
    class Step;

    [[nodiscard]] std::optional<TableState> go(void (QUndoStack::*direction)());

    SongChanges m_changes;
    RBEditSong &m_song;
    QUndoStack m_stack;
    QString m_name;
    TableState m_before;
    int m_depth = 0;
    int m_typingRun = 0;
    int m_generation = 0;
    // What the step that was just undone or redone says.
    std::optional<TableState> m_reached;
    bool m_fits = true;
};

} // namespace editor
