// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <functional>

namespace kit {

/// A picture of a view that is gone, fading away above the view that took its place.
///
/// Two grabbed pictures are blended above the new view, since an opacity effect never reaches
/// the real screen on views with opaque children. It ends at once when the view beneath moves,
/// resizes, hides or changes its parent, and dies with their common parent.
class CrossFade : public QWidget
{
    Q_OBJECT

public:
    /// Whether there is anything to see: the view is on screen and the desktop animates.
    [[nodiscard]] static bool isWanted(const QWidget *view);

    /// Fades from `oldPicture` to the picture of `newView`, which is shown and in its place.
    /// \param finished  may be empty; runs when the fade has ended, not when it is destroyed.
    static void start(QWidget *newView, const QPixmap &oldPicture, std::function<void()> finished);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    CrossFade(QWidget *newView, const QPixmap &oldPicture, std::function<void()> finished);

    void setProgress(qreal progress);
    void finish();

    QPointer<QWidget> m_newView;
    QPixmap m_oldPicture;
    QPixmap m_newPicture;
    std::function<void()> m_finished;
    qreal m_progress = 0.0;
    bool m_done = false;
};

} // namespace kit
