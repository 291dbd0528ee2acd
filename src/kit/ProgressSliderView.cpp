// SPDX-License-Identifier: MIT
#include "kit/ProgressSliderView.h"

#include "kit/SliderAccessible.h"
#include "kit/TickMarks.h"
#include "kit/WaveformPicture.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kWheelNotch = 120;

} // namespace

ProgressSliderView::ProgressSliderView(QWidget *parent)
    : QWidget(parent), m_waveform(std::make_unique<kit::WaveformPicture>()),
      m_ticks(std::make_unique<kit::TickMarks>()), m_emphasisedTicks(std::make_unique<kit::TickMarks>())
{
    // A click leaves the keys where they are: with the line that is to be stamped.
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true); // for the time under the pointer
    kit::installSliderAccessible();
}

ProgressSliderView::~ProgressSliderView() = default;

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
    const double before = xAt(m_value);
    const double beforeSeconds = m_value;
    m_value = seconds;
    const double after = xAt(m_value);
    const double pixels = devicePixelRatioF();
    if (std::lround(before * pixels) != std::lround(after * pixels))
        updateBetween(before, after);
    if (std::floor(beforeSeconds) != std::floor(seconds))
        tellReaders();
}

double ProgressSliderView::clamped(double seconds) const
{
    return std::clamp(seconds, 0.0, m_length);
}

QSize ProgressSliderView::sizeHint() const
{
    return {240, 32};
}

QSize ProgressSliderView::minimumSizeHint() const
{
    return {60, 24};
}

QString ProgressSliderView::timeText(double seconds) const
{
    if (m_timeText)
        return m_timeText(seconds);
    const auto whole = static_cast<long long>(std::max(0.0, std::min(seconds, 1e15)));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

bool ProgressSliderView::event(QEvent *event)
{
    // The time is there before the tip that waits would come, and says more.
    if (event->type() == QEvent::ToolTip && isEnabled() && m_length > 0.0)
        return true;
    return QWidget::event(event);
}

void ProgressSliderView::showTip(const QMouseEvent *event)
{
    if (isEnabled() && m_length > 0.0) {
        const QString text = timeText(secondsAt(event->position().x()));
        QToolTip::showText(event->globalPosition().toPoint(), text, this, m_dragging ? QRect() : rect());
    }
}

void ProgressSliderView::mousePressEvent(QMouseEvent *event)
{
    const QPointer<ProgressSliderView> self(this);
    if (event->button() == Qt::LeftButton && m_length > 0.0)
        beginDrag(secondsAt(event->position().x()));
    if (self != nullptr)
        showTip(event);
}

void ProgressSliderView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<ProgressSliderView> self(this);
    if (m_dragging)
        drag(secondsAt(event->position().x()));
    if (self != nullptr)
        showTip(event);
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
    event->accept();
    if (notches != 0)
        moveTo(m_value + notches * kKeyStepSeconds);
}

void ProgressSliderView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    update();
    if (!isEnabled())
        endDrag();
}

void ProgressSliderView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    endDrag(); // no release will come
}

void ProgressSliderView::moveTo(double seconds)
{
    if (m_length <= 0.0 || m_dragging || std::isnan(seconds))
        return;
    const QPointer<ProgressSliderView> self(this);
    beginDrag(clamped(seconds));
    if (self != nullptr)
        endDrag();
}

void ProgressSliderView::beginDrag(double seconds)
{
    m_dragging = true;
    const QPointer<ProgressSliderView> self(this);
    if (const auto receiver = delegate())
        receiver->sliderView_beginDragAt(this, seconds);
    // The delegate may have ended it, or taken the whole window down.
    if (self != nullptr && m_dragging)
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
