// SPDX-License-Identifier: MIT
#include "kit/SwitchButton.h"

#include "kit/Theme.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace kit {

namespace {

constexpr int kTrackWidth = 34;
constexpr int kTrackHeight = 20;
constexpr qreal kKnobMargin = 2.0;
// Room around the track for the ring that shows the keyboard.
constexpr int kRing = 2;

} // namespace

SwitchButton::SwitchButton(QWidget *parent) : QCheckBox(parent)
{
    setAttribute(Qt::WA_Hover);
}

QSize SwitchButton::sizeHint() const
{
    const int words = text().isEmpty() ? 0 : kSpacingSmall + fontMetrics().horizontalAdvance(text());
    return {kTrackWidth + 2 * kRing + words, std::max(kTrackHeight + 2 * kRing, fontMetrics().height())};
}

bool SwitchButton::hitButton(const QPoint &position) const
{
    return rect().contains(position);
}

void SwitchButton::paintEvent(QPaintEvent * /*event*/)
{
    const Theme theme(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QRectF track(isMirrored ? width() - kRing - kTrackWidth : kRing, (height() - kTrackHeight) / 2.0,
        kTrackWidth, kTrackHeight);
    const qreal round = track.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? theme.accent : theme.waveform);
    painter.drawRoundedRect(track, round, round);
    QRectF knob = track.adjusted(kKnobMargin, kKnobMargin, -kKnobMargin, -kKnobMargin);
    knob.setWidth(knob.height());
    if (isChecked() != isMirrored)
        knob.moveRight(track.right() - kKnobMargin);
    painter.setBrush(isChecked() ? theme.accentInk : theme.panel);
    painter.drawEllipse(knob);
    if (hasFocus()) {
        painter.setPen(QPen(theme.focus, kRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(track.adjusted(-1, -1, 1, 1), round + 1, round + 1);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const int words = kTrackWidth + 2 * kRing + kSpacingSmall;
    const QRect place = isMirrored ? rect().adjusted(0, 0, -words, 0) : rect().adjusted(words, 0, 0, 0);
    painter.drawText(place,
        Qt::AlignVCenter | (isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextHideMnemonic, text());
}

} // namespace kit
