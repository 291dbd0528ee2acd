// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CoverView.h"
#include "kit/ElidedLabel.h"
#include "kit/SegmentedControl.h"
#include "kit/ViewController.h"
#include "lyrics/RBPreviewSong.h"
#include "views/RBMenuDisabledTextView.h"

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

#include <memory>

class EditorContainer;
class WXEAudioFile;

namespace preview {
class CoverShadow;
class PreviewFolding;
} // namespace preview

/// The finished lyric, read only, beside the item's cover, title, artist and album. It follows the player:
/// the line that is sung is green and kept in the middle of the view.
///
/// The tag switch and the alignment stay as they were set while the preview is closed and opened again.
class RBPreviewViewController : public kit::ViewController
{
    Q_OBJECT

public:
    /// Never null; the view is loaded on first use.
    static std::shared_ptr<RBPreviewViewController> init();
    ~RBPreviewViewController() override;

    [[nodiscard]] std::shared_ptr<EditorContainer> parentVC() const { return m_parentVC.lock(); }
    virtual void setParentVC(const std::weak_ptr<EditorContainer> &parent);
    [[nodiscard]] std::shared_ptr<WXEAudioFile> audioitem() const { return m_audioitem; }
    /// The LRC text as it was handed over last; null before that.
    [[nodiscard]] QByteArray lrcText() const { return m_lrcText; }
    /// What was made of it; null before. Another object for each item that is shown. Of a long text it is
    /// made when it is asked for, at the first progress, or shortly after the text was handed over.
    [[nodiscard]] std::shared_ptr<RBPreviewSong> song() const;

    // The outlets; null until the view is loaded and after it is gone.
    [[nodiscard]] kit::CoverView *imageview() const { return m_imageview; }
    [[nodiscard]] kit::ElidedLabel *lblTitle() const { return m_lblTitle; }
    [[nodiscard]] kit::ElidedLabel *lblArtist() const { return m_lblArtist; }
    [[nodiscard]] kit::ElidedLabel *lblAlbum() const { return m_lblAlbum; }
    [[nodiscard]] RBMenuDisabledTextView *textView() const { return m_textView; }
    [[nodiscard]] QAbstractButton *tagSwitch() const { return m_tagSwitch; }
    [[nodiscard]] kit::SegmentedControl *segAlign() const { return m_segAlign; }
    /// For forms that have a second alignment control; not used here, null in ours.
    [[nodiscard]] kit::SegmentedControl *segAligen() const { return m_segAligen; }
    [[nodiscard]] QAbstractButton *btnOffset() const { return m_btnOffset; }
    [[nodiscard]] QAbstractButton *btnClose() const { return m_btnClose; }

    /// Shows `item` (null for none) and `lrcText`, UTF-8, without its time tags; 0.3 s later takes the
    /// keyboard from whoever has it in the window.
    virtual void flushWithAudio_lrcText(const std::shared_ptr<WXEAudioFile> &item, const QByteArray &lrcText);
    /// Where the player is, in seconds: highlights the line that is sung. Nothing before the first line's
    /// time. While the line stays the same this is one search among the times.
    virtual void notifyPlayProgress(double seconds);
    /// Shows `lrcText`, UTF-8, in the place of the text so far. Nothing before an item was shown.
    virtual void notifyLrcTextUpdated(const QByteArray &lrcText);
    /// Fills the text view, with or without the tag lines, as the switch says.
    void updateSongTextWithSwitchChanged();
    void refreshAlignImgs();
    /// Shortly, once the view is in a window: nobody in it has the keyboard then.
    void resetFirstResponder();

    // Actions
    void switchClick(QObject *sender = nullptr);
    /// `sender`: the segmented control, whose segments are left, centre and right.
    void aligenClick(QObject *sender);
    /// Back to the line editor.
    void closeClicked(QObject *sender = nullptr);
    /// The line editor's offset dialog.
    void offsetClick(QObject *sender = nullptr);

protected:
    RBPreviewViewController();

    bool connectOutlets() override;
    void viewDidLoad() override;
    void viewWillLayout() override;

private:
    void showItem();
    void buildSong() const;
    void showWholeText();
    void wireControls();
    void playOrPause();
    void adjustTimeFinished(const QVariant &object);
    [[nodiscard]] bool isInWindow() const;

    std::weak_ptr<EditorContainer> m_parentVC;
    std::shared_ptr<WXEAudioFile> m_audioitem;
    QByteArray m_lrcText;
    std::shared_ptr<RBPreviewSong> m_song;
    mutable bool m_isSongBuilt = false;
    // Until then the view has the first lines: all that can be seen.
    bool m_isWholeTextShown = false;

    QPointer<kit::CoverView> m_imageview;
    QPointer<kit::ElidedLabel> m_lblTitle;
    QPointer<kit::ElidedLabel> m_lblArtist;
    QPointer<kit::ElidedLabel> m_lblAlbum;
    QPointer<RBMenuDisabledTextView> m_textView;
    QPointer<QAbstractButton> m_tagSwitch;
    QPointer<kit::SegmentedControl> m_segAlign;
    QPointer<kit::SegmentedControl> m_segAligen;
    QPointer<QAbstractButton> m_btnOffset;
    QPointer<QAbstractButton> m_btnClose;
    QPointer<preview::CoverShadow> m_shadow;
    QPointer<preview::PreviewFolding> m_folding;
};
