// SPDX-License-Identifier: MIT
#include "kit/RoundButton.h"

#include "kit/Theme.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace kit {

namespace {

constexpr qreal kRing = 2.0;

QPixmap tinted(QPixmap picture, const QColor &color)
{
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
    return picture;
}

} // namespace

RoundButton::RoundButton(QWidget *parent) : QPushButton(parent)
{
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
}

void RoundButton::setQuiet(bool quiet)
{
    m_quiet = quiet;
    update();
}

QColor RoundButton::fill() const
{
    const Theme theme(this);
    QColor color = m_quiet ? theme.chip : theme.text;
    if (isDown())
        color.setAlphaF(0.7F);
    else if (underMouse() && isEnabled())
        color.setAlphaF(0.85F);
    return color;
}

void RoundButton::paintEvent(QPaintEvent * /*event*/)
{
    const Theme theme(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const qreal side = std::min(width(), height()) - 2 * kRing;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter.setPen(hasFocus() ? QPen(theme.focus, kRing) : QPen(Qt::NoPen));
    painter.setBrush(fill());
    painter.drawEllipse(circle);

    if (icon().isNull())
        return;
    const QPixmap picture = icon().pixmap(iconSize(), devicePixelRatioF());
    const QSizeF size = picture.deviceIndependentSize();
    const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
    painter.drawPixmap(corner, tinted(picture, m_quiet ? theme.text : theme.panel));
}

} // namespace kit
