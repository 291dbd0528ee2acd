// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SourceMerge.h"
#include "editor/SourceText.h"
#include "views/TQLRCTextView.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace editor {
class AccentCaret;
class KeptCaret;
struct LineHunk;
class SourceHighlighter;
class SourceMargin;
} // namespace editor

/// The LRC text of a document, to be read and edited as it stands in the file.
///
/// Plain text, wrapped at the view's width, with the numbers of the physical lines in a margin. What the user
/// edits changes the bytes as `editor::SourceText` says; all else keeps its own. The view has no history of
/// its own: keys for undo and redo go to the window, as do files that are dragged onto it.
///
/// Lines are physical lines, counted from 0. A last line end begins one more, which is empty and none of the
/// document's.
class SourceView : public TQLRCTextView
{
    Q_OBJECT

public:
    explicit SourceView(QWidget *parent = nullptr);
    ~SourceView() override;

    /// Shows `bytes`. Only the lines that differ are changed: caret, selection and what is on screen stay
    /// with their lines; a caret in an empty
    /// text stays at its beginning. Emits neither `sourceEdited` nor anything else for what it changes, but
    /// for the caret's line.
    ///
    /// Whoever made other bytes of the document has called `flushEdits` before reading it; then nothing is
    /// pending here. If something is:
    /// - The bytes that were shown before the typing change nothing, and the typing is emitted in its time.
    /// - Bytes that differ from them in other lines are shown with the typing, which is emitted in its time.
    /// - Where they differ in the lines that were typed in, as another song's do everywhere, they are shown
    ///   without it, and `editsDisplaced` hands out the bytes with it.
    /// A text that an input method is composing goes on being composed while other lines change; if its own
    /// line changes, it is committed first, and then is typing as above.
    ///
    /// Cost: a comparison with what is shown, and what the toolkit takes for the lines that differ.
    void setSourceText(const QByteArray &bytes);
    /// The bytes with everything that was typed; not what an input method is still composing.
    [[nodiscard]] QByteArray sourceText();
    /// Emits `sourceEdited` now if something was typed that it was not emitted for.
    void flushEdits();

    /// The line of the caret.
    [[nodiscard]] int caretLine() const;
    /// Brings the caret to the beginning of a line, and the line into sight; a caret that is in the line
    /// already stays. Out of range is the first or the last line.
    void moveCaretToLine(int line);

    /// What tells what is wrong with a line; an empty text is nothing. Asked for lines in sight only.
    using ProblemFinder = std::function<QString(int physicalLine)>;
    /// Marks the lines for which `finder` answers a text. Null finds none.
    void setProblemFinder(ProblemFinder finder);
    /// Asks anew what is wrong with the lines.
    void refreshProblems();

    /// A line that is in sight, in pixels of the viewport.
    struct VisibleLine
    {
        int line;
        int top;
        int height; ///< of its first row on screen
        bool hasProblem;
    };
    /// From top to bottom.
    [[nodiscard]] std::vector<VisibleLine> visibleLines() const;
    /// Shows the tooltip of the line at `y`, in pixels of the viewport, or none.
    void showProblemAt(int y, const QPoint &globalPosition);

Q_SIGNALS:
    /// The user edited the text; `sourceText` has it. Once per turn of the event loop, and not while an input
    /// method is composing.
    void sourceEdited();
    /// What was typed could not be kept, see `setSourceText`. `bytes` are those before, with it.
    void editsDisplaced(const QByteArray &bytes);
    /// The caret is in another line.
    void caretLineChanged(int line);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    /// What the toolkit reported since the typing was last taken over, as one piece.
    struct Typed
    {
        bool isNone = true;
        int position = 0;
        int removed = 0;
        int added = 0;

        void add(int at, int gone, int come);
    };

    void setUpText();
    void wireSignals();
    void applyTheme();
    void noteChange(int position, int removed, int added);
    void schedule();
    [[nodiscard]] bool isComposing() const;
    void commitComposing();
    [[nodiscard]] editor::SourceEdit typedEdit() const;
    void takeTyped();
    [[nodiscard]] std::optional<QByteArray> withTyping(const QByteArray &bytes) const;
    [[nodiscard]] bool changesCaretLine(const QByteArray &bytes) const;
    void showLines(const editor::LineChange &change);
    void changeShown(const std::vector<editor::LineHunk> &hunks, qsizetype first, const QStringList &now);
    void replaceLines(editor::KeptCaret &caret, qsizetype first, qsizetype removed, const QStringList &lines);
    void removeLines(editor::KeptCaret &caret, qsizetype first, qsizetype last);
    void insertLines(editor::KeptCaret &caret, qsizetype first, const QStringList &lines);
    void replaceInLine(editor::KeptCaret &caret, qsizetype line, const QString &text);
    void noteCaretLine();
    void fitMargin();
    void scheduleLook();
    void markProblems();
    [[nodiscard]] QString problemOf(int line) const;

    editor::SourceText m_source;
    Typed m_typed;
    /// The bytes that the host knows, and what was typed since.
    QByteArray m_told;
    std::vector<editor::SourceEdit> m_untold;
    ProblemFinder m_findProblem;
    editor::AccentCaret *m_caret;
    editor::SourceHighlighter *m_highlighter;
    editor::SourceMargin *m_margin;
    std::vector<std::pair<int, int>> m_marked;
    int m_caretLine = 0;
    bool m_isShowing = false;
    bool m_isScheduled = false;
    bool m_isLookScheduled = false;
};
