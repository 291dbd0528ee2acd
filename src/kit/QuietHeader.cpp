// SPDX-License-Identifier: MIT
#include "kit/QuietHeader.h"

#include "kit/Theme.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

namespace kit {

QuietHeader::QuietHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setFixedHeight(kHeaderHeight);
    setHighlightSections(false);
    setSectionsClickable(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void QuietHeader::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(viewport());
        const Theme theme(this);
        painter.fillRect(event->rect(), theme.panel);
        painter.fillRect(QRect(0, height() - 1, width(), 1), theme.line);
    }
    QHeaderView::paintEvent(event);
}

void QuietHeader::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    const QString title = model()->headerData(logicalIndex, orientation()).toString();
    const int alignment = model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole).toInt();
    const QRect inner = rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
    painter->setFont(textFont(font(), TextSize::Caption));
    painter->setPen(Theme(this).quietText);
    painter->drawText(inner, alignment | Qt::TextSingleLine,
        painter->fontMetrics().elidedText(title, Qt::ElideRight, inner.width()));
}

} // namespace kit
