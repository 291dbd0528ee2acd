// SPDX-License-Identifier: MIT
#pragma once

#include "kit/MyStyledView.h"

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtGui/QWindow>

#include <memory>
#include <optional>

class QMimeData;
class RBPlayingBgView;

class RBPlayingBgViewDelegate
{
public:
    virtual ~RBPlayingBgViewDelegate() = default;

    /// An audio file was dropped onto `view`.
    virtual void plyingBgView_acceptDrop(RBPlayingBgView *view, const QString &path) = 0;

protected:
    RBPlayingBgViewDelegate() = default;
    RBPlayingBgViewDelegate(const RBPlayingBgViewDelegate &) = default;
    RBPlayingBgViewDelegate &operator=(const RBPlayingBgViewDelegate &) = default;
};

/// The background of the player strip, and the place to drop an audio file onto.
///
/// It lights up while a file that it would take is over it. What it takes is told by the first
/// path's extension alone: nothing is asked of the disk.
class RBPlayingBgView : public MyStyledView
{
    Q_OBJECT

public:
    explicit RBPlayingBgView(QWidget *parent = nullptr);

    /// Whether drags are noticed at all; true at first.
    [[nodiscard]] bool dropEnabled() const { return m_dropEnabled; }
    void setDropEnabled(bool enabled);

    /// The first local file of a drag; null when it carries none.
    [[nodiscard]] QString getDraggingFilePath(const QMimeData *dragged) const;
    /// Whether the extension of the first file contains one of the accepted ones, in any case:
    /// "mp3x" does, "aif" does not.
    [[nodiscard]] bool isDraggingSupported(const QMimeData *dragged) const;

    /// Paints the strip in the highlight's blue, or in the palette's colour of controls again,
    /// whatever it had before.
    void setHighlighted(bool highlighted);

    void setDelegate(const std::weak_ptr<RBPlayingBgViewDelegate> &delegate) { m_delegate = delegate; }
    [[nodiscard]] std::shared_ptr<RBPlayingBgViewDelegate> delegate() const { return m_delegate.lock(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void watchRefusedDrag();
    void matchTexts(bool highlighted);
    [[nodiscard]] bool endsRefusedDrag(const QEvent *event) const;

    std::weak_ptr<RBPlayingBgViewDelegate> m_delegate;
    QPointer<QWindow> m_refusedDragWindow;
    std::optional<QPalette> m_calmPalette;
    bool m_dropEnabled = false;
};
