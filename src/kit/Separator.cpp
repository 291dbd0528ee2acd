// SPDX-License-Identifier: MIT
#include "kit/Separator.h"

#include "kit/Theme.h"

#include <QtGui/QPainter>

namespace kit {

Separator::Separator(QWidget *parent) : QWidget(parent)
{
    setOrientation(Qt::Horizontal);
}

void Separator::setOrientation(Qt::Orientation orientation)
{
    m_orientation = orientation;
    const bool upright = orientation == Qt::Vertical;
    setSizePolicy(upright ? QSizePolicy::Fixed : QSizePolicy::Expanding,
        upright ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    updateGeometry();
}

QSize Separator::sizeHint() const
{
    return m_orientation == Qt::Vertical ? QSize(kSpacingLarge, 1) : QSize(1, 1);
}

void Separator::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    QRect line = rect();
    if (m_orientation == Qt::Vertical) {
        line = QRect(width() / 2, kSpacingSmall, 1, height() - 2 * kSpacingSmall);
    }
    painter.fillRect(line, Theme(this).line);
}

} // namespace kit
