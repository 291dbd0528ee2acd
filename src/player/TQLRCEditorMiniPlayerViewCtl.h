// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CoverView.h"
#include "kit/ElidedLabel.h"
#include "kit/FiguresLabel.h"
#include "kit/ProgressSliderView.h"
#include "kit/ViewController.h"
#include "player/RBPlayingBgView.h"
#include "shell/contracts/PeakProvider.h"
#include "shell/contracts/TQAudioPlayerObserver.h"

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QAbstractButton>

#include <memory>
#include <vector>

class EditorContainer;
class TQAudioPlayerProtocol;
class TQLRCEditorViewCtlDelegate;
class WXEAudioFile;

/// The strip below the editor: the item's cover and title, play and pause, position and length,
/// and a slider over the waveform to go elsewhere. An audio file dropped onto it becomes the editor's item.
///
/// It plays nothing by itself: its button asks the host, its slider moves the host's player.
class TQLRCEditorMiniPlayerViewCtl : public kit::ViewController,
                                     public SliderViewDelegate,
                                     public RBPlayingBgViewDelegate,
                                     public TQAudioPlayerObserver
{
    Q_OBJECT

public:
    /// Never null; the view is loaded on first use. `player` may be null.
    static std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> initWithPlayer(
        std::shared_ptr<TQAudioPlayerProtocol> player);
    static std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> init();
    /// Pauses the player, whatever it plays, and stops listening to it.
    ~TQLRCEditorMiniPlayerViewCtl() override;

    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtlDelegate> delegate() const { return m_delegate.lock(); }
    virtual void setDelegate(const std::weak_ptr<TQLRCEditorViewCtlDelegate> &delegate);
    [[nodiscard]] std::shared_ptr<EditorContainer> parentVC() const { return m_parentVC.lock(); }
    virtual void setParentVC(const std::weak_ptr<EditorContainer> &parent);
    [[nodiscard]] std::shared_ptr<WXEAudioFile> audioFile() const { return m_audioFile; }
    void setAudioFile(std::shared_ptr<WXEAudioFile> item) { m_audioFile = std::move(item); }
    [[nodiscard]] std::shared_ptr<TQAudioPlayerProtocol> mcPlayer() const { return m_player; }
    /// Stores the player; who listens to it is settled when the view loads.
    void setMcPlayer(std::shared_ptr<TQAudioPlayerProtocol> player);

    // The outlets; null until the view is loaded and after it is gone.
    [[nodiscard]] RBPlayingBgView *playerBgView() const { return m_playerBgView; }
    [[nodiscard]] kit::ElidedLabel *lblAudioTitle() const { return m_lblAudioTitle; }
    [[nodiscard]] kit::CoverView *albumImgView() const { return m_albumImgView; }
    [[nodiscard]] QAbstractButton *btnPlay() const { return m_btnPlay; }
    [[nodiscard]] ProgressSliderView *prgSlider() const { return m_prgSlider; }
    [[nodiscard]] kit::FiguresLabel *lblPlayerTime() const { return m_lblPlayerTime; }

    /// True while the player plays this very item.
    [[nodiscard]] bool isPlaying() const;
    /// True while the player holds this very item, playing or paused.
    [[nodiscard]] bool isPlayingCurrent() const;

    /// Shows `item`, null for none. Position and button stay as they are until the player speaks.
    virtual void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item);
    /// Shows where the player is; seconds.
    virtual void updatePlayerProgress(double seconds);
    /// Marks the times of the document on the slider; `selected` stand out. Seconds, in any order.
    virtual void showTimeTags(const std::vector<double> &all, const std::vector<double> &selected);
    /// Asks the host to play the item (null too): it is the host's to tell play from pause.
    virtual void PlayPauseClicked(QObject *sender = nullptr);
    /// Shows whether the player plays, whatever it plays.
    void updatePlayPauseUI();

    /// Title, artist and album, those that are there, joined by " - ".
    [[nodiscard]] QString getPlayTitle(const std::shared_ptr<WXEAudioFile> &item) const;
    /// Seconds as mm:ss.SS, from whole milliseconds.
    [[nodiscard]] QString getTimeStr(double seconds) const;

    void sliderView_beginDragAt(ProgressSliderView *slider, double seconds) override;
    void sliderView_didChangeValue(ProgressSliderView *slider, double seconds) override;
    void sliderView_endDragAt(ProgressSliderView *slider, double seconds) override;
    void plyingBgView_acceptDrop(RBPlayingBgView *view, const QString &path) override;
    void audioPlayer_playStateChanged(TQAudioPlayerProtocol *player, bool playing) override;

protected:
    explicit TQLRCEditorMiniPlayerViewCtl(std::shared_ptr<TQAudioPlayerProtocol> player);

    bool connectOutlets() override;
    void viewDidLoad() override;

private:
    void rememberSelf();
    void showItem();
    void requestPeaks();
    void showTimes(double seconds, double length);

    std::weak_ptr<TQLRCEditorViewCtlDelegate> m_delegate;
    std::weak_ptr<EditorContainer> m_parentVC;
    std::shared_ptr<WXEAudioFile> m_audioFile;
    std::shared_ptr<TQAudioPlayerProtocol> m_player;
    // Whose waveform was asked for, and what is withdrawn when it is another's turn.
    std::weak_ptr<WXEAudioFile> m_peaksItem;
    std::unique_ptr<PeakRequest> m_peakRequest;
    // Kept, because a destructor can no longer ask for it.
    std::weak_ptr<TQAudioPlayerObserver> m_asObserver;

    QPointer<RBPlayingBgView> m_playerBgView;
    QPointer<kit::ElidedLabel> m_lblAudioTitle;
    QPointer<kit::CoverView> m_albumImgView;
    QPointer<QAbstractButton> m_btnPlay;
    QPointer<ProgressSliderView> m_prgSlider;
    QPointer<kit::FiguresLabel> m_lblPlayerTime;
};
