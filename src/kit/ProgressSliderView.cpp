// SPDX-License-Identifier: MIT
#include "kit/ProgressSliderView.h"

#include "kit/SliderAccessible.h"
#include "kit/Theme.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kBarHeight = 6.0;
constexpr double kKnobRadius = 7.0;
constexpr double kMargin = kKnobRadius + 2.0; // the knob and its ring stay inside
constexpr int kWheelNotch = 120;

void drawBar(QPainter &painter, const QRectF &bar, const QColor &color)
{
    painter.setBrush(color);
    painter.drawRoundedRect(bar, kBarHeight / 2, kBarHeight / 2);
}

} // namespace

ProgressSliderView::ProgressSliderView(QWidget *parent) : QWidget(parent)
{
    // A click leaves the keys where they are: with the line that is to be stamped.
    setFocusPolicy(Qt::TabFocus);
    kit::installSliderAccessible();
}

void ProgressSliderView::setDLength(double seconds)
{
    const double length = seconds > 0.0 && std::isfinite(seconds) ? seconds : 0.0;
    if (length == m_length)
        return;
    m_length = length;
    update();
}

void ProgressSliderView::setDCurValue(double seconds)
{
    if (std::isnan(seconds) || seconds == m_value)
        return;
    const auto pixel = [this] { return std::lround(xAt(m_value) * devicePixelRatioF()); };
    const auto before = pixel();
    const double beforeSeconds = m_value;
    m_value = seconds;
    if (pixel() != before)
        update();
    if (std::floor(beforeSeconds) != std::floor(seconds))
        tellReaders();
}

double ProgressSliderView::clamped(double seconds) const
{
    return std::clamp(seconds, 0.0, m_length);
}

double ProgressSliderView::xAt(double seconds) const
{
    const double room = std::max(0.0, width() - 2 * kMargin);
    return kMargin + (m_length > 0.0 ? room * clamped(seconds) / m_length : 0.0);
}

double ProgressSliderView::secondsAt(double x) const
{
    const double room = width() - 2 * kMargin;
    return room > 0.0 ? clamped((x - kMargin) / room * m_length) : 0.0;
}

QSize ProgressSliderView::sizeHint() const
{
    return {240, 24};
}

QSize ProgressSliderView::minimumSizeHint() const
{
    return {60, 24};
}

void ProgressSliderView::paintEvent(QPaintEvent * /*event*/)
{
    const kit::Theme theme(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double middle = height() / 2.0;
    const double x = xAt(m_value);
    const QRectF whole(kMargin, middle - kBarHeight / 2, width() - 2 * kMargin, kBarHeight);
    if (!isEnabled() || m_length <= 0.0) {
        drawBar(painter, whole, theme.line);
        return;
    }
    drawBar(painter, whole, theme.waveform);
    if (x > kMargin)
        drawBar(painter, {kMargin, whole.top(), x - kMargin, kBarHeight}, theme.accent);
    painter.setBrush(theme.text);
    painter.drawEllipse(QPointF(x, middle), kKnobRadius, kKnobRadius);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.focus, 2.0));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kit::kRadius, kit::kRadius);
    }
}

void ProgressSliderView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_length > 0.0)
        beginDrag(secondsAt(event->position().x()));
}

void ProgressSliderView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging)
        drag(secondsAt(event->position().x()));
}

void ProgressSliderView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    // A tick may have moved the mark since the last move: the pointer decides.
    setDCurValue(secondsAt(event->position().x()));
    endDrag();
}

void ProgressSliderView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        moveTo(m_value - kKeyStepSeconds);
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        moveTo(m_value + kKeyStepSeconds);
        break;
    case Qt::Key_PageDown:
        moveTo(m_value - kPageStepSeconds);
        break;
    case Qt::Key_PageUp:
        moveTo(m_value + kPageStepSeconds);
        break;
    case Qt::Key_Home:
        moveTo(0.0);
        break;
    case Qt::Key_End:
        moveTo(m_length);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ProgressSliderView::wheelEvent(QWheelEvent *event)
{
    // Touch pads send parts of a notch.
    m_wheelRest += event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const int notches = m_wheelRest / kWheelNotch;
    m_wheelRest -= notches * kWheelNotch;
    if (notches != 0)
        moveTo(m_value + notches * kKeyStepSeconds);
    event->accept();
}

void ProgressSliderView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    if (!isEnabled())
        endDrag();
    update();
}

void ProgressSliderView::hideEvent(QHideEvent *event)
{
    endDrag(); // no release will come
    QWidget::hideEvent(event);
}

void ProgressSliderView::moveTo(double seconds)
{
    if (m_length <= 0.0 || m_dragging || std::isnan(seconds))
        return;
    beginDrag(clamped(seconds));
    endDrag();
}

void ProgressSliderView::beginDrag(double seconds)
{
    m_dragging = true;
    if (const auto receiver = delegate())
        receiver->sliderView_beginDragAt(this, seconds);
    drag(seconds);
}

void ProgressSliderView::drag(double seconds)
{
    setDCurValue(seconds);
    if (const auto receiver = delegate())
        receiver->sliderView_didChangeValue(this, seconds);
}

void ProgressSliderView::endDrag()
{
    if (!m_dragging)
        return;
    m_dragging = false;
    if (const auto receiver = delegate())
        receiver->sliderView_endDragAt(this, clamped(m_value));
}

void ProgressSliderView::tellReaders()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(this, m_value);
    QAccessible::updateAccessibility(&event);
}
