// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CoverView.h"
#include "kit/ElidedLabel.h"
#include "kit/ViewController.h"
#include "views/RBMenuDisabledTextView.h"

#include <QtCore/QByteArray>
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

#include <memory>

class EditorContainer;
class WXEAudioFile;

/// The finished lyric to look at, beside the item's cover, title, artist and album.
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
    /// The LRC text as it was handed over; null before that.
    [[nodiscard]] QByteArray lrcText() const { return m_lrcText; }

    // The outlets; null until the view is loaded and after it is gone.
    [[nodiscard]] kit::CoverView *imageview() const { return m_imageview; }
    [[nodiscard]] kit::ElidedLabel *lblTitle() const { return m_lblTitle; }
    [[nodiscard]] kit::ElidedLabel *lblArtist() const { return m_lblArtist; }
    [[nodiscard]] kit::ElidedLabel *lblAlbum() const { return m_lblAlbum; }
    [[nodiscard]] RBMenuDisabledTextView *textView() const { return m_textView; }
    [[nodiscard]] QAbstractButton *btnClose() const { return m_btnClose; }

    /// Shows `item` (null for none) and `lrcText`, UTF-8, without its time tags.
    virtual void flushWithAudio_lrcText(const std::shared_ptr<WXEAudioFile> &item, const QByteArray &lrcText);
    /// Where the player is, in seconds. The text does not follow it yet.
    virtual void notifyPlayProgress(double seconds);
    /// Back to the line editor.
    void closeClicked(QObject *sender = nullptr);

protected:
    RBPreviewViewController();

    bool connectOutlets() override;
    void viewDidLoad() override;

private:
    void showItem();

    std::weak_ptr<EditorContainer> m_parentVC;
    std::shared_ptr<WXEAudioFile> m_audioitem;
    QByteArray m_lrcText;

    QPointer<kit::CoverView> m_imageview;
    QPointer<kit::ElidedLabel> m_lblTitle;
    QPointer<kit::ElidedLabel> m_lblArtist;
    QPointer<kit::ElidedLabel> m_lblAlbum;
    QPointer<RBMenuDisabledTextView> m_textView;
    QPointer<QAbstractButton> m_btnClose;
};
