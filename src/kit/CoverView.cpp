// SPDX-License-Identifier: MIT
#include "kit/CoverView.h"

#include "kit/Theme.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>

namespace kit {

CoverView::CoverView(QWidget *parent) : QLabel(parent)
{
    setFocusPolicy(Qt::NoFocus);
}

void CoverView::setImage(const QImage &image)
{
    m_image = image;
    cutPicture();
}

QRect CoverView::square() const
{
    const int side = std::min(width(), height());
    return {0, 0, side, side};
}

void CoverView::cutPicture()
{
    const int pixels = static_cast<int>(square().width() * devicePixelRatioF());
    if (m_image.isNull() || pixels <= 0) {
        setPixmap(QPixmap());
        return;
    }
    const QImage scaled
        = m_image.scaled(pixels, pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    const QPoint corner((scaled.width() - pixels) / 2, (scaled.height() - pixels) / 2);
    QPixmap picture = QPixmap::fromImage(scaled.copy(QRect(corner, QSize(pixels, pixels))));
    picture.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(picture);
}

void CoverView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPixmap picture = pixmap(Qt::ReturnByValue);
    if (picture.isNull()) {
        painter.setBrush(Theme(this).chip);
    } else {
        if (picture.devicePixelRatio() != devicePixelRatioF())
            QMetaObject::invokeMethod(
                this, [this] { cutPicture(); }, Qt::QueuedConnection);
        QBrush brush(picture);
        const qreal scale = 1.0 / picture.devicePixelRatio();
        brush.setTransform(QTransform::fromScale(scale, scale));
        painter.setBrush(brush);
    }
    painter.drawRoundedRect(square(), kRadius, kRadius);
}

void CoverView::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    cutPicture();
}

} // namespace kit
