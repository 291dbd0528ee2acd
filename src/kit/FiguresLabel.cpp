// SPDX-License-Identifier: MIT
#include "kit/FiguresLabel.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kit {

FiguresLabel::FiguresLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void FiguresLabel::setFigures(QAnyStringView text)
{
    if (QAnyStringView::equal(text, this->text()))
        return;
    QLabel::setText(text.toString());
    if (text.size() != m_fittedLength)
        fitSize();
}

void FiguresLabel::fitSize()
{
    // A fixed size: the layout is not asked again at each new text.
    m_fittedLength = text().size();
    setFixedSize(sizeHint());
}

std::vector<qreal> FiguresLabel::advances() const
{
    const QFontMetricsF metrics(font(), this);
    qreal widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    const QString shown = text();
    std::vector<qreal> all;
    all.reserve(static_cast<std::size_t>(shown.size()));
    for (const QChar character : shown)
        all.push_back(character.isDigit() ? widest : metrics.horizontalAdvance(character));
    return all;
}

qreal FiguresLabel::textLeft(qreal textWidth) const
{
    const QRect area = contentsRect();
    const qreal room = area.width() - textWidth;
    if (alignment() & Qt::AlignRight)
        return area.left() + room;
    return area.left() + (alignment() & Qt::AlignHCenter ? room / 2 : 0);
}

QSize FiguresLabel::sizeHint() const
{
    const std::vector<qreal> all = advances();
    const qreal width = std::accumulate(all.begin(), all.end(), qreal(0));
    return QSize(static_cast<int>(std::ceil(width)), fontMetrics().height()).grownBy(contentsMargins());
}

QSize FiguresLabel::minimumSizeHint() const
{
    return sizeHint();
}

void FiguresLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
    const QString shown = text();
    const QRect area = contentsRect();
    const std::vector<qreal> all = advances();
    qreal x = textLeft(std::accumulate(all.begin(), all.end(), qreal(0)));
    for (qsizetype index = 0; index < shown.size(); ++index) {
        const qreal advance = all.at(static_cast<std::size_t>(index));
        painter.drawText(QRectF(x, area.top(), advance, area.height()), Qt::AlignCenter | Qt::TextDontClip,
            QString(shown.at(index)));
        x += advance;
    }
}

void FiguresLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_fittedLength >= 0)
        fitSize();
}

} // namespace kit
