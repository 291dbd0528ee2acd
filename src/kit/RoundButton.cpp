// SPDX-License-Identifier: MIT
#include "kit/RoundButton.h"

#include "kit/Theme.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace kit {

namespace {

constexpr qreal kRing = 2.0;
constexpr qreal kGap = 2.0;

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
    setFocusPolicy(Qt::TabFocus);
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
    const QPointF middle(width() / 2.0, height() / 2.0);
    const qreal radius = std::min(width(), height()) / 2.0 - kRing - kGap;
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill());
    painter.drawEllipse(middle, radius, radius);
    if (hasFocus()) {
        const qreal ring = radius + kGap + kRing / 2;
        painter.setPen(QPen(theme.focus, kRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(middle, ring, ring);
    }

    if (icon().isNull())
        return;
    const QPixmap picture = icon().pixmap(iconSize(), devicePixelRatioF());
    const QSizeF size = picture.deviceIndependentSize();
    const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
    painter.drawPixmap(corner, tinted(picture, m_quiet ? theme.text : theme.panel));
}

} // namespace kit
