// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

namespace kit {

/// What edits the text of a cell in a table: a widget that behaves like a field of one line.
///
/// The keys that leave a cell are not its own: it lets go of Return, Tab, Escape, Up, Down and the
/// page keys. Whatever characters a text holds come back as they were.
class CellTextEditor
{
public:
    /// Handed a pasted or dropped text of several lines, as it came; true when it took it.
    using LinesHandler = std::function<bool(const QString &pasted)>;

    virtual ~CellTextEditor() = default;

    /// The widget that it is.
    [[nodiscard]] virtual QWidget *widget() = 0;

    /// Begins anew with `text`: nothing to undo, nothing selected, the caret at the end.
    virtual void setCellText(const QString &text) = 0;
    [[nodiscard]] virtual QString cellText() const = 0;
    /// Parts of `cellText()`: before and after what is selected, or the caret.
    [[nodiscard]] virtual QString textBeforeSelection() const = 0;
    [[nodiscard]] virtual QString textAfterSelection() const = 0;

    virtual void selectWholeText() = 0;
    /// Leaves the caret where it is.
    virtual void selectNothing() = 0;
    /// Puts the caret before the character at `position` of `cellText()`, from 0; nothing is selected.
    virtual void moveCaretTo(qsizetype position) = 0;

    /// Where the text stands within the widget: the room at its left and right, and the height of
    /// the row in whose middle the cell draws it. Logical pixels.
    virtual void setTextPlace(int left, int right, int rowHeight) = 0;

    /// What it does not take becomes one line, each line break a blank. A drop is handed on once
    /// the drag is over.
    virtual void setLinesHandler(LinesHandler handler) = 0;

protected:
    CellTextEditor() = default;
    CellTextEditor(const CellTextEditor &) = default;
    CellTextEditor &operator=(const CellTextEditor &) = default;
};

/// Makes an editor whose widget is a child of `parent`.
using CellTextEditorFactory = std::function<CellTextEditor *(QWidget *parent)>;

} // namespace kit
