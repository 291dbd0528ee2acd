// SPDX-License-Identifier: MIT
#pragma once

#include "editor/EditHistory.h"
#include "editor/LineCommands.h"
#include "editor/LineProblems.h"
#include "editor/PhysicalLines.h"
#include "editor/SungLine.h"
#include "kit/DropTipView.h"
#include "kit/MyTableView.h"
#include "kit/TableDataSource.h"
#include "kit/ViewController.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/EditorKeys.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "views/RBNoResponseTextFiled.h"

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

#include <memory>
#include <optional>
#include <vector>

class QAction;
class SourceView;
class WXEAudioFile;

namespace editor {
class EditorActions;
} // namespace editor

/// The line editor: a table of lyric lines with one column for each time tag, and the commands
/// on it.
///
/// Holds two documents: `song`, which is shown and edited, and `originSong`, the text as it was
/// loaded. Every change of the document ends in one `reloadDataWithLrcChanged` or one cell edit,
/// and both tell the host. All of them can be undone. All operations work before a view is loaded
/// and without an item.
class TQLRCEditorViewCtl : public kit::ViewController,
                           public kit::TableDataSource,
                           public MyTableViewDelegate,
                           public DropTipViewDelegate
{
    Q_OBJECT

public:
    /// A new editor with two empty documents.
    [[nodiscard]] static std::shared_ptr<TQLRCEditorViewCtl> init();
    ~TQLRCEditorViewCtl() override;

    // Properties
    [[nodiscard]] RBEditSong &song() { return m_song; }
    [[nodiscard]] const RBEditSong &song() const { return m_song; }
    [[nodiscard]] RBEditSong &originSong() { return m_originSong; }
    [[nodiscard]] const RBEditSong &originSong() const { return m_originSong; }
    /// Lines taken by the copy command; independent of the document.
    [[nodiscard]] const std::vector<RBSongLine> &copiedLines() const { return m_copiedLines; }
    [[nodiscard]] std::shared_ptr<WXEAudioFile> audioFile() const { return m_audioFile; }
    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtlDelegate> delegate() const { return m_delegate.lock(); }
    virtual void setDelegate(const std::weak_ptr<TQLRCEditorViewCtlDelegate> &delegate)
    {
        m_delegate = delegate;
    }
    [[nodiscard]] std::shared_ptr<EditorContainer> parentVC() const { return m_parentVC.lock(); }
    virtual void setParentVC(const std::weak_ptr<EditorContainer> &parent) { m_parentVC = parent; }
    /// A slot kept for the container; never read here.
    [[nodiscard]] std::shared_ptr<void> playObserver() const { return m_playObserver; }
    void setPlayObserver(std::shared_ptr<void> observer) { m_playObserver = std::move(observer); }
    [[nodiscard]] bool awaked() const { return m_awaked; }
    void setAwaked(bool awaked) { m_awaked = awaked; }
    /// Always false: the editor does not track the player.
    [[nodiscard]] bool isPlayingCurrent() const { return false; }
    /// Null until the view is loaded.
    [[nodiscard]] MyTableView *tableView() const { return m_tableView; }
    [[nodiscard]] QMenu *tableRightMenu() const;
    [[nodiscard]] RBNoResponseTextFiled *lblTabTime() const { return m_lblTabTime; }
    [[nodiscard]] QLineEdit *lblOffsetTime() const { return m_lblOffsetTime; }
    [[nodiscard]] QWidget *offsetSetView() const { return m_offsetSetView.get(); }
    /// The table scrolls by itself: this is the table.
    [[nodiscard]] QAbstractScrollArea *editorScrollView() const { return m_tableView; }
    [[nodiscard]] QAbstractButton *btnInsertTitle() const { return m_btnInsertTitle; }
    [[nodiscard]] QAbstractButton *btnInsertTime() const { return m_btnInsertTime; }
    [[nodiscard]] QAbstractButton *btnInsertArtist() const { return m_btnInsertArtist; }
    [[nodiscard]] QAbstractButton *btnInsertEditBy() const { return m_btnInsertEditBy; }
    [[nodiscard]] QAbstractButton *btnDelCur() const { return m_btnDelCur; }
    [[nodiscard]] QAbstractButton *btnDelAll() const { return m_btnDelAll; }
    [[nodiscard]] QAbstractButton *btnOffset() const { return m_btnOffset; }
    [[nodiscard]] QAbstractButton *btnPreview() const { return m_btnPreview; }
    [[nodiscard]] QAbstractButton *btnRestoreAll() const { return m_btnRestoreAll; }
    [[nodiscard]] QAbstractButton *btnInsertAlbum() const { return m_btnInsertAlbum; }

    // Loading, change tracking, serialising
    /// Stores the item; does not read its lyric.
    virtual void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item);
    /// `text` (LRC, UTF-8) becomes both documents.
    virtual void flushWithOriginalSongText(const QByteArray &text);
    /// `text` becomes the working document; the baseline stays.
    virtual void flushWithSongText(const QByteArray &text);
    /// The working document as LRC text, UTF-8.
    [[nodiscard]] virtual QByteArray songText();
    [[nodiscard]] int songLinesNum() const;
    /// Whether the working document differs from the one that was loaded.
    [[nodiscard]] bool isLrcChanged() const;
    /// Writes the text into the item when it differs from the item's lyric, after committing an
    /// open cell editor. True when something was written.
    virtual bool serializeToAudioItem();
    /// Puts a new empty line at the top and, 0.1 s later, opens it for typing.
    void importClick(QObject *sender = nullptr);
    /// Loads a lyric file (UTF-8) into the working document; a file that is empty, unreadable or
    /// not UTF-8 changes nothing and says nothing.
    void loadWithFileUrl(const QUrl &url);
    /// Asks for a lyric file and loads it; says so when it cannot be read.
    void openLyricFile(QObject *sender = nullptr);
    /// Asks the host's lyric service for the lyric of the item, and returns at once; what it finds
    /// replaces the working document. Without a service nothing happens. The editor lives until the
    /// service has answered.
    void searchLyricClick(QObject *sender = nullptr);

    // Time tagging
    /// Stamps the position that the label shows onto the selected line and moves on.
    void insertTimeTag(QObject *sender = nullptr);
    /// Stamps without moving on.
    void insertTimeTagAndStay(QObject *sender = nullptr);
    /// Goes up one line and plays from the time that was stamped onto it last.
    void stepBack(QObject *sender = nullptr);
    /// Plays from 2 s before the selected line's first time, or that of the nearest timed line above.
    void playFromLine(QObject *sender = nullptr);
    /// Moves all times of the selected lines by `millis`.
    void nudge(std::int64_t millis);
    void tryInsertWithEmpty();
    void selectNextLine(bool edit);
    void selectPrevLine(bool edit);
    /// `seconds`: the play position.
    virtual void updatePlayerProgress(double seconds);
    [[nodiscard]] QString getTimeStr(double seconds) const;

    // Tag and line commands
    void insertTitleTag(QObject *sender = nullptr);
    void insertArtistTag(QObject *sender = nullptr);
    void insertAlbumTag(QObject *sender = nullptr);
    void insertEditedByTag(QObject *sender = nullptr);
    void insertPropertyTag(const QString &key);
    void deleteLineTag(QObject *sender = nullptr);
    void deleteAllTags(QObject *sender = nullptr);
    void restoreAllClick(QObject *sender = nullptr);
    void deleteClick(QObject *sender = nullptr);
    void deleteAllClick(QObject *sender = nullptr);
    void insertLineBefore(QObject *sender = nullptr);
    void insertLineAfter(QObject *sender = nullptr);
    void duplicateLine(QObject *sender = nullptr);
    /// Moves the selected lines by one row; the selection goes with them.
    void moveLinesUp(QObject *sender = nullptr);
    void moveLinesDown(QObject *sender = nullptr);
    /// Makes one line of the selected one and the next, or of all selected ones that stand together.
    void mergeLines(QObject *sender = nullptr);
    /// Ends the line whose text is being edited at the caret, and goes on editing what stood behind
    /// it on a line of its own. Nothing unless a text is being edited.
    void splitLine(QObject *sender = nullptr);

    // Copy and paste
    /// Takes copies of the selected lines; other programs get them as LRC text.
    void copyLinesClick(QObject *sender = nullptr);
    /// Puts the lines that were copied here below the last selected one.
    void pasteLinesClick(QObject *sender = nullptr);
    void copy(QObject *sender = nullptr);
    void paste(QObject *sender = nullptr);
    /// Makes lines of the text on the system's clipboard; LRC text keeps its times.
    void pasteTextAsLines(QObject *sender = nullptr);
    void selectAll(QObject *sender = nullptr);
    /// Whether the menu item, named by its objectName as the operation that it runs, can be chosen.
    [[nodiscard]] bool validateMenuItem(const QAction *item) const;

    // Undo
    /// Takes back what was done last; lines, selection and scroll position come back.
    void undo(QObject *sender = nullptr);
    void redo(QObject *sender = nullptr);

    // Offset
    void offsetClick(QObject *sender = nullptr);
    virtual void moveForward(QObject *sender = nullptr);
    /// Shifts every time tag by `seconds`; below 10 ms does nothing.
    void adjustTimeTag(double seconds);
    /// Asks for an offset of the selected lines and shifts their times.
    void offsetSelectionClick(QObject *sender = nullptr);
    /// Shifts the times of the selected lines by `seconds`; below 10 ms does nothing.
    void adjustSelectedTimeTags(double seconds);

    // Preview and help
    /// Asks the container for the preview, with `sender`; says why not when no line has a time.
    void previewClicked(QObject *sender = nullptr);
    /// Opens the help page of the settings in a browser; without one does nothing.
    void helpClick(QObject *sender = nullptr);

    // Keys
    /// The command as an action for the host's menus: with its keys, its text ("Undo stamp") and
    /// whether it can act now. Lives as long as the editor.
    [[nodiscard]] QAction *action(EditorCommand command) const;
    [[nodiscard]] const EditorKeys &keys() const { return m_keys; }
    void setKeys(const EditorKeys &keys);
    /// Runs the command as its key does: after committing what is being typed.
    void perform(EditorCommand command);
    void showKeys(QObject *sender = nullptr);
    /// Shows the LRC text in the table's place, and the table again.
    void showSource(QObject *sender = nullptr);

    /// Called when the preview gave way to the editor again. Does nothing.
    virtual void resetFristResponderForTextView(QObject *sender);

    // Shared by all commands
    /// Null for an index that names no line. Valid until the lines change.
    [[nodiscard]] RBSongLine *getSongLineAtIndex(std::ptrdiff_t index);
    [[nodiscard]] RBSongLine *getSelectedLine();
    [[nodiscard]] int getToColumnsCount() const;
    void updateTableColumns();
    /// The one refresh after every change of the document.
    void reloadDataWithLrcChanged();
    void notifyChanged();
    /// Commits what is being typed in a cell. Before saving, closing and switching items.
    virtual void commitEditing();
    void refreshBtnsImages();

    // The table's questions and reports
    [[nodiscard]] int numberOfRowsInTableView(MyTableView *tableView) override;
    [[nodiscard]] QString tableView_objectValueForTableColumn_row(
        MyTableView *tableView, const QString &identifier, int row) override;
    void tableView_setObjectValue_forTableColumn_row(
        MyTableView *tableView, const QString &value, const QString &identifier, int row) override;
    void tableViewSelectionDidChange(MyTableView *tableView) override;
    [[nodiscard]] kit::CellLook tableView_lookOfCell(
        MyTableView *tableView, const QString &identifier, int row) override;
    [[nodiscard]] bool tableView_didPasteText_inColumn_row(
        MyTableView *tableView, const kit::CellCaret &caret, const QString &pasted) override;
    void tableView_didDropFiles(MyTableView *tableView, const QStringList &paths) override;
    void tableView_didDropText_beforeRow(MyTableView *tableView, const QString &text, int row) override;
    [[nodiscard]] QMenu *menuForRightClick() override;
    void deleteFileDown(QObject *sender) override;
    void spaceKeyDown(QObject *sender) override;
    void tableViewReloaded(QObject *sender) override;
    void dropView_didDropFiles(DropTipView *dropView, const QStringList &paths) override;

protected:
    TQLRCEditorViewCtl();

    [[nodiscard]] QString nibName() const override;
    bool connectOutlets() override;
    void viewDidLoad() override;
    void viewWillLayout() override;

private:
    using Action = void (TQLRCEditorViewCtl::*)(QObject *sender);
    class Step;

    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtl> self();
    void showThatItStamped();
    void buildOffsetView();
    void buildActions();
    void refreshActions();
    void wireTable();
    void wireDropTipView();
    void wireButtons();
    void wireButton(QAbstractButton *button, Action operation);
    void editTimeCell(const QString &value, std::optional<std::size_t> timeIndex);
    void editTextCell(const QString &value);
    void editSoon(int column, int row);
    void showFirstLine();
    void loadText(const QByteArray &text, const QString &stepName);
    void stampSelectedLine();
    void pressStamp(QObject *sender);
    void focusOffsetSoon();
    void tellOffset(double seconds);
    void refreshToolTips();
    void wireSourceButton();
    void wireSearchButton();
    void refreshSearchButton();
    [[nodiscard]] bool canSearch() const;
    void takeFoundLyric(const QByteArray &text);
    void wirePreviewAndHelp();
    [[nodiscard]] static bool hasHelpPage();
    [[nodiscard]] bool canPerform(EditorCommand command) const;
    [[nodiscard]] editor::LineSelection selection() const;
    [[nodiscard]] editor::SongChanges &changes() { return m_history.changes(); }
    [[nodiscard]] editor::TableState tableState() const;
    void showState(const editor::TableState &state);
    void selectLines(const kit::RowRanges &rows);
    [[nodiscard]] double offsetFromDialog(const QString &message);
    void shiftTimes(const kit::RowRanges &rows, std::int64_t millis);
    void tell(const QString &notice);
    void documentChanged();
    void showSungRowSoon();
    void updateSungRow();
    void showTicksSoon();
    void showTicks();
    [[nodiscard]] const std::vector<double> &ticks();
    [[nodiscard]] std::vector<double> ticksOfSelection() const;
    [[nodiscard]] const std::vector<editor::LineProblem> &problemsOfRow(int row);
    [[nodiscard]] std::int64_t audioMillis() const;
    [[nodiscard]] bool isSourceShown() const;
    void buildSourceView();
    void updateSource();
    void takeSource();
    /// What was typed in the source goes into the document now.
    void flushSource();
    void forgetSpellingOfCopies();
    [[nodiscard]] const editor::PhysicalLines &physicalLines();
    void selectRowOfCaret();
    void moveCaretToSelectedRow();
    [[nodiscard]] QString problemsOfLine(int line);
    [[nodiscard]] bool passToText(EditorCommand command);
    void typeAt(int row, qsizetype position);

    RBEditSong m_song;
    RBEditSong m_originSong;
    editor::EditHistory m_history{m_song};
    editor::SungLine m_sungLine{m_song};
    // As it is shown; −1 for none.
    int m_sungRow = -1;
    bool m_sungRowIsDue = false;
    std::int64_t m_positionMillis = 0;
    // The times of all lines, in seconds; made anew when they are shown after a change.
    std::optional<std::vector<double>> m_ticks;
    bool m_ticksAreDue = false;
    // Of the row that was asked for last: a row is painted cell by cell.
    int m_problemRow = -1;
    std::vector<editor::LineProblem> m_problems;
    EditorKeys m_keys;
    std::vector<RBSongLine> m_copiedLines;
    std::shared_ptr<WXEAudioFile> m_audioFile;
    std::weak_ptr<TQLRCEditorViewCtlDelegate> m_delegate;
    std::weak_ptr<EditorContainer> m_parentVC;
    std::shared_ptr<void> m_playObserver;
    bool m_awaked = false;
    // A text came since the last item: the table shows another item's text once that item comes.
    bool m_textIsNewSinceItem = false;

    // Null until it is shown for the first time.
    QPointer<SourceView> m_sourceView;
    // Made anew when it is asked for after a change.
    std::optional<editor::PhysicalLines> m_physicalLines;
    // Caret and selection follow each other, one at a time.
    bool m_isShowingSource = false;

    QPointer<MyTableView> m_tableView;
    QPointer<RBNoResponseTextFiled> m_lblTabTime;
    QPointer<QAbstractButton> m_btnInsertTitle;
    QPointer<QAbstractButton> m_btnInsertTime;
    QPointer<QAbstractButton> m_btnInsertArtist;
    QPointer<QAbstractButton> m_btnInsertEditBy;
    QPointer<QAbstractButton> m_btnDelCur;
    QPointer<QAbstractButton> m_btnDelAll;
    QPointer<QAbstractButton> m_btnOffset;
    QPointer<QAbstractButton> m_btnPreview;
    QPointer<QAbstractButton> m_btnRestoreAll;
    QPointer<QAbstractButton> m_btnInsertAlbum;
    QPointer<QAbstractButton> m_btnSource;
    QPointer<QAbstractButton> m_btnSearch;
    QPointer<QLineEdit> m_lblOffsetTime;
    std::unique_ptr<QWidget> m_offsetSetView;
    std::unique_ptr<editor::EditorActions> m_actions;
    std::unique_ptr<QMenu> m_tableRightMenu;
};
