// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace kit {
class CoverView;
}

namespace preview {

/// The soft shadow of a cover, on the ground beneath it. Goes where the cover goes.
class CoverShadow : public QWidget
{
    Q_OBJECT

public:
    /// Becomes a child of `ground`, below all its other children.
    CoverShadow(kit::CoverView *cover, QWidget *ground);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    kit::CoverView *m_cover;
    // Blurred once for each size.
    QPixmap m_picture;
};

} // namespace preview
