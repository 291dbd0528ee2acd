// SPDX-License-Identifier: MIT
#pragma once

#include "kit/DropTipView.h"
#include "kit/MyTableView.h"
#include "kit/TableDataSource.h"
#include "kit/ViewController.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "views/RBNoResponseTextFiled.h"

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

#include <memory>
#include <vector>

class WXEAudioFile;

/// The line editor: a table of lyric lines with one column for each time tag, and the commands
/// on it.
///
/// Holds two documents: `song`, which is shown and edited, and `originSong`, the text as it was
/// loaded. Every change of the document ends in one `reloadDataWithLrcChanged` or one cell edit,
/// and both tell the host. All operations work before a view is loaded and without an item.
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

    // Time tagging
    /// Stamps the position that the label shows onto the selected line and moves on.
    void insertTimeTag(QObject *sender = nullptr);
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

    // Offset
    void offsetClick(QObject *sender = nullptr);
    virtual void moveForward(QObject *sender = nullptr);
    /// Shifts every time tag by `seconds`; below 10 ms does nothing.
    void adjustTimeTag(double seconds);

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

    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtl> self();
    void showThatItStamped();
    void buildOffsetView();
    void buildStampShortcuts();
    void wireTable();
    void wireDropTipView();
    void wireButtons();
    void wireButton(QAbstractButton *button, Action action);
    void editTimeCell(const QString &value, std::size_t timeIndex);
    void editTextCell(const QString &value);
    void editSoon(int column, int row);
    void showFirstLine();

    RBEditSong m_song;
    RBEditSong m_originSong;
    std::vector<RBSongLine> m_copiedLines;
    std::shared_ptr<WXEAudioFile> m_audioFile;
    std::weak_ptr<TQLRCEditorViewCtlDelegate> m_delegate;
    std::weak_ptr<EditorContainer> m_parentVC;
    std::shared_ptr<void> m_playObserver;
    bool m_awaked = false;
    // A text came since the last item: the table shows another item's text once that item comes.
    bool m_textIsNewSinceItem = false;

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
    QPointer<QLineEdit> m_lblOffsetTime;
    std::unique_ptr<QWidget> m_offsetSetView;
    std::unique_ptr<QMenu> m_tableRightMenu;
};
