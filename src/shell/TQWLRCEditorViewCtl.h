// SPDX-License-Identifier: MIT
#pragma once

#include "kit/ViewController.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/EditorKeys.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "shell/contracts/TQAudioPlayerProtocol.h"
#include "shell/contracts/TQLRCEditorConfig.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

class QAction;
class RBPreviewViewController;
class TQLRCEditorMiniPlayerViewCtl;
class TQLRCEditorViewCtl;

/// The component: a lyric editor with a player strip under it, for one audio item at a time.
///
/// A host makes one with its player, sets itself as delegate, shows `view()` and calls
/// `flushWithAudioItem`. The delegate is set before the view is loaded: the line editor takes it
/// when it is created, and a later one never reaches it. GUI thread only.
class TQWLRCEditorViewCtl : public kit::ViewController, public EditorContainer, public TQAudioPlayerObserver
{
    Q_OBJECT

public:
    /// Makes the shared settings anew, with their defaults. Runs by itself before the first
    /// container is made; a host that wants to change settings earlier calls it.
    static void initialize();
    /// A new container for `player`, which may be null; null when it cannot be made.
    [[nodiscard]] static std::shared_ptr<TQWLRCEditorViewCtl> initWithPlayer(
        const std::shared_ptr<TQAudioPlayerProtocol> &player);
    ~TQWLRCEditorViewCtl() override;

    /// The host, held weakly.
    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtlDelegate> delegate() const { return m_delegate.lock(); }
    void setDelegate(const std::weak_ptr<TQLRCEditorViewCtlDelegate> &delegate);
    /// The settings that all containers of the process share. `supportDragAudioInto` is read when
    /// the view loads, `promptForMetaLrc` at each `flushWithAudioItem`.
    [[nodiscard]] std::shared_ptr<TQLRCEditorConfig> config() const;

    /// Shows `item`, loads its lyric, and resumes it or asks the host to play it.
    ///
    /// Null empties the editor. An open cell editor is committed first.
    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override;
    /// Writes the edited lyric into the item (not to disk) when it differs from the item's.
    /// True when it was written; the delegate is told then.
    bool serializeToAudioItem();
    /// The lyric as it stands in the editor, LRC text in UTF-8: what `serializeToAudioItem` would
    /// write. A host compares it with what it saved last. Does not commit an open cell editor.
    [[nodiscard]] QByteArray songText();
    /// Shows the item's title, cover and length anew, after the host learnt better. The lyric and
    /// the player are left alone.
    void refreshItemProperties();
    /// True when the player plays this very item.
    [[nodiscard]] bool isPlaying() const;
    /// True when this very item is the player's, playing or paused.
    [[nodiscard]] bool isPlayingCurrent() const;
    bool tryToPlay() override;
    /// Commits what is being typed in a cell. A host does so before it asks whether there is
    /// something to save.
    void commitEditing();

    // The children. Each is made on first use, the player strip with the container.
    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtl> editorViewCtl();
    void setEditorViewCtl(std::shared_ptr<TQLRCEditorViewCtl> editor) { m_editorViewCtl = std::move(editor); }
    [[nodiscard]] std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> playerViewCtl() const
    {
        return m_playerViewCtl;
    }
    void setPlayerViewCtl(std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> player)
    {
        m_playerViewCtl = std::move(player);
    }
    [[nodiscard]] std::shared_ptr<RBPreviewViewController> previewingCtl();
    void setPreviewingCtl(std::shared_ptr<RBPreviewViewController> preview)
    {
        m_previewingCtl = std::move(preview);
    }
    [[nodiscard]] std::shared_ptr<WXEAudioFile> audioFile() const { return m_audioFile; }
    void setAudioFile(std::shared_ptr<WXEAudioFile> item) { m_audioFile = std::move(item); }
    [[nodiscard]] std::shared_ptr<TQAudioPlayerProtocol> mcPlayer() const { return m_mcPlayer; }
    void setMcPlayer(std::shared_ptr<TQAudioPlayerProtocol> player) { m_mcPlayer = std::move(player); }

    /// A command of the line editor for the host's menus: with its keys, its text ("Undo stamp") and
    /// whether it can act now. After the delegate is set; lives as long as the component.
    [[nodiscard]] QAction *action(EditorCommand command);
    /// The keys that run the commands; what is set holds from then on.
    [[nodiscard]] EditorKeys keys();
    void setKeys(const EditorKeys &keys);

    /// Registers with the player exactly when the player holds this item.
    void trytoUpdatePlayerStatus();
    /// `seconds`: the play position, for the children that show it.
    void updatePlayerProgress(double seconds);
    void audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds) override;

    // Called by the children
    void pressPlayPause(QObject *sender) override;
    void seekTo(double seconds) override;
    void playFrom(double seconds) override;
    void showTimeTags(const std::vector<double> &all, const std::vector<double> &selected) override;
    void prPreviewClicked(QObject *sender) override;
    void backFromPreview(QObject *sender) override;
    void previewOffsetClicked(QObject *sender) override;

protected:
    TQWLRCEditorViewCtl() = default;

    [[nodiscard]] QString nibName() const override;
    void viewDidLoad() override;
    void viewWillLayout() override;

private:
    [[nodiscard]] std::shared_ptr<TQWLRCEditorViewCtl> self();
    [[nodiscard]] bool isPreviewOnScreen() const;
    void loadLyricOf(const std::shared_ptr<WXEAudioFile> &item);
    [[nodiscard]] static bool userWantsLyricOfItem();
    void layoutChildren();
    void giveFocusToEditor();

    std::weak_ptr<TQLRCEditorViewCtlDelegate> m_delegate;
    std::shared_ptr<TQLRCEditorViewCtl> m_editorViewCtl;
    std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> m_playerViewCtl;
    std::shared_ptr<RBPreviewViewController> m_previewingCtl;
    std::shared_ptr<WXEAudioFile> m_audioFile;
    std::shared_ptr<TQAudioPlayerProtocol> m_mcPlayer;
    QPointer<QWidget> m_focusBeforePreview;
};
