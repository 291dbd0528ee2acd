// SPDX-License-Identifier: MIT
#include "editor/SourceMargin.h"

#include "editor/SourceView.h"
#include "kit/Theme.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace editor {

namespace {

constexpr int kDotSize = 6;
constexpr int kFewestDigits = 2;

} // namespace

SourceMargin::SourceMargin(SourceView *view) : QWidget(view), m_view(view)
{
    setObjectName(QStringLiteral("margin"));
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
}

int SourceMargin::widthFor(int lines) const
{
    const int digits = std::max<int>(kFewestDigits, static_cast<int>(QString::number(lines).size()));
    const QFontMetrics metrics(kit::textFont(font(), kit::TextSize::Caption));
    return kit::kSpacingSmall + kDotSize + kit::kSpacingTiny
        + digits * metrics.horizontalAdvance(QLatin1Char('8')) + kit::kSpacingSmall;
}

bool SourceMargin::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        m_view->showProblemAt(help->pos().y(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

void SourceMargin::paintEvent(QPaintEvent * /*event*/)
{
    const kit::Theme theme(m_view);
    QPainter painter(this);
    painter.fillRect(rect(), theme.panel);
    painter.fillRect(QRect(width() - 1, 0, 1, height()), theme.line);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(kit::textFont(font(), kit::TextSize::Caption));
    const int current = m_view->caretLine();
    for (const SourceView::VisibleLine &line : m_view->visibleLines()) {
        const QRect number(0, line.top, width() - kit::kSpacingSmall, line.height);
        painter.setPen(line.line == current ? theme.text : theme.quietText);
        painter.drawText(number, Qt::AlignRight | Qt::AlignVCenter, QString::number(line.line + 1));
        if (line.hasProblem) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(theme.warning);
            painter.drawEllipse(
                QRectF(kit::kSpacingSmall, line.top + (line.height - kDotSize) / 2.0, kDotSize, kDotSize));
        }
    }
}

} // namespace editor
