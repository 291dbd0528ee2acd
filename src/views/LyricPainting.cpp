// SPDX-License-Identifier: MIT
//
// How a lyric to look at is drawn.
#include "views/RBMenuDisabledTextView.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace {

constexpr int kHighestEdge = 32;
constexpr int kEdgesInView = 8;

} // namespace

void RBMenuDisabledTextView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    const QColor green = palette().color(QPalette::HighlightedText);
    const int shift = padding() - verticalScrollBar()->value();
    const QRect dirty = event->rect();
    if (m_layout.height() + shift <= dirty.top() || shift > dirty.bottom())
        return;
    const int last = m_layout.lineAt(dirty.bottom() - shift);
    for (int line = m_layout.lineAt(dirty.top() - shift); line <= last; ++line)
        m_layout.draw(painter, line, {0, m_layout.top(line) + shift}, m_selected, green);
    paintEdges(painter);
}

// Lines come and go softly.
void RBMenuDisabledTextView::paintEdges(QPainter &painter) const
{
    const int height = viewport()->height();
    const int edge = std::min(kHighestEdge, height / kEdgesInView);
    QColor ground = palette().color(viewport()->backgroundRole());
    QColor clear = ground;
    clear.setAlpha(0);
    for (const bool isUpper : {true, false}) {
        const QRect strip(0, isUpper ? 0 : height - edge, viewport()->width(), edge);
        QLinearGradient fade(0, strip.top(), 0, strip.top() + edge);
        fade.setColorAt(0, isUpper ? ground : clear);
        fade.setColorAt(1, isUpper ? clear : ground);
        painter.fillRect(strip, fade);
    }
}
