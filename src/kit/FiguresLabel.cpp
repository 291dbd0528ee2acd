// SPDX-License-Identifier: MIT
#include "kit/FiguresLabel.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace kit {

FiguresLabel::FiguresLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void FiguresLabel::setFigures(const QString &text)
{
    if (text == this->text())
        return;
    setText(text);
    if (text.size() != m_fittedLength)
        fitSize();
}

void FiguresLabel::fitSize()
{
    // A fixed size: the layout is not asked again at each new text.
    m_fittedLength = text().size();
    setFixedSize(sizeHint());
}

int FiguresLabel::advanceOf(QChar character) const
{
    const QFontMetrics metrics = fontMetrics();
    if (!character.isDigit())
        return metrics.horizontalAdvance(character);
    int widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

QSize FiguresLabel::sizeHint() const
{
    int width = 0;
    const QString shown = text();
    for (const QChar character : shown)
        width += advanceOf(character);
    return {width, fontMetrics().height()};
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
    int x = 0;
    for (const QChar character : shown) {
        const int advance = advanceOf(character);
        painter.drawText(QRect(x, 0, advance, height()), Qt::AlignCenter, QString(character));
        x += advance;
    }
}

void FiguresLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitSize();
}

} // namespace kit
