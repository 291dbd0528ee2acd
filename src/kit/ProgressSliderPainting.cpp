// SPDX-License-Identifier: MIT
//
// What the slider shows: the bar or the waveform, the marks beneath, the position.
#include "kit/ProgressSliderView.h"
#include "kit/Theme.h"
#include "kit/TickMarks.h"
#include "kit/WaveformPicture.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

namespace {

constexpr double kBarHeight = 6.0;
constexpr double kKnobRadius = 7.0;
constexpr double kMargin = kKnobRadius + 2.0; // the knob and its ring stay inside
constexpr double kPositionWidth = 2.0;

// From the lower edge up: the marks, a gap, the waveform.
constexpr double kEdge = 1.0;
constexpr double kMarkHeight = 5.0;
constexpr double kEmphasisedHeight = 7.0;
constexpr double kBelowWaveform = kEdge + kEmphasisedHeight + 1.0;

void drawBar(QPainter &painter, const QRectF &bar, const QColor &color)
{
    painter.setBrush(color);
    painter.drawRoundedRect(bar, kBarHeight / 2, kBarHeight / 2);
}

} // namespace

double ProgressSliderView::room() const
{
    return std::max(0.0, width() - 2 * kMargin);
}

double ProgressSliderView::xAt(double seconds) const
{
    return kMargin + (m_length > 0.0 ? room() * clamped(seconds) / m_length : 0.0);
}

double ProgressSliderView::secondsAt(double x) const
{
    return room() > 0.0 ? clamped((x - kMargin) / room() * m_length) : 0.0;
}

QRectF ProgressSliderView::waveformArea() const
{
    return {kMargin, kEdge, room(), std::max(0.0, height() - kEdge - kBelowWaveform)};
}

QRectF ProgressSliderView::marksArea() const
{
    return {0.0, height() - kBelowWaveform, static_cast<double>(width()), kBelowWaveform};
}

void ProgressSliderView::setPeaks(std::vector<float> levels, double secondsPerLevel)
{
    if (levels.empty() && m_waveform->isEmpty())
        return;
    m_waveform->setLevels(std::move(levels), secondsPerLevel);
    update();
}

void ProgressSliderView::setTicks(const std::vector<double> &seconds)
{
    if (m_ticks->setTimes(seconds))
        update(marksArea().toAlignedRect());
}

void ProgressSliderView::setEmphasisedTicks(const std::vector<double> &seconds)
{
    if (m_emphasisedTicks->setTimes(seconds))
        update(marksArea().toAlignedRect());
}

void ProgressSliderView::updateBetween(double x, double otherX)
{
    const double reach = kKnobRadius + 1.0;
    const double left = std::min(x, otherX) - reach;
    const double right = std::max(x, otherX) + reach;
    update(QRectF(left, 0.0, right - left, height()).toAlignedRect());
}

void ProgressSliderView::paintEvent(QPaintEvent *event)
{
    const kit::Theme theme(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!isEnabled() || m_length <= 0.0) {
        drawBar(painter, barArea(), theme.line);
        return;
    }
    if (m_waveform->isEmpty())
        paintBar(painter, theme);
    else
        paintWaveform(painter, theme);
    paintMarks(painter, theme, event->rect());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.focus, 2.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kit::kRadius, kit::kRadius);
    }
}

QRectF ProgressSliderView::barArea() const
{
    const double middle = waveformArea().center().y();
    return {kMargin, middle - kBarHeight / 2, room(), kBarHeight};
}

void ProgressSliderView::paintBar(QPainter &painter, const kit::Theme &theme)
{
    const QRectF whole = barArea();
    const double x = xAt(m_value);
    drawBar(painter, whole, theme.waveform);
    if (x > kMargin)
        drawBar(painter, {kMargin, whole.top(), x - kMargin, kBarHeight}, theme.accent);
    painter.setBrush(theme.text);
    painter.drawEllipse(QPointF(x, whole.center().y()), kKnobRadius, kKnobRadius);
}

void ProgressSliderView::paintWaveform(QPainter &painter, const kit::Theme &theme)
{
    const double x = xAt(m_value);
    m_waveform->draw(painter, waveformArea(), m_length, x, {theme.accent, theme.waveform, theme.line});
    painter.setBrush(theme.text);
    painter.drawRoundedRect(
        QRectF(x - kPositionWidth / 2, kEdge, kPositionWidth, height() - 2 * kEdge), 1, 1);
}

void ProgressSliderView::paintMarks(QPainter &painter, const kit::Theme &theme, const QRect &exposed)
{
    if (exposed.bottom() < marksArea().top())
        return;
    const double below = height() - kEdge;
    const auto draw = [&](kit::TickMarks &marks, double markHeight, const QColor &color) {
        marks.draw(painter, {kMargin, below - markHeight, room(), markHeight}, m_length, color,
            exposed.left(), exposed.right() + 1.0);
    };
    draw(*m_ticks, kMarkHeight, theme.quietText);
    draw(*m_emphasisedTicks, kEmphasisedHeight, theme.focus);
}
