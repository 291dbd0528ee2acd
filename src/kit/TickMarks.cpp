// SPDX-License-Identifier: MIT
#include "kit/TickMarks.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

constexpr double kMarkWidth = 2.0;

} // namespace

bool TickMarks::setTimes(const std::vector<double> &seconds)
{
    if (seconds == m_seconds)
        return false;
    m_seconds = seconds;
    m_length = 0;
    return true;
}

void TickMarks::reduce(double width, double length, double pixelRatio)
{
    if (width == m_width && length == m_length && pixelRatio == m_pixelRatio)
        return;
    m_width = width;
    m_length = length;
    m_pixelRatio = pixelRatio;
    const double scale = width * pixelRatio / length;
    std::vector<bool> taken(static_cast<std::size_t>(std::max(0.0, width * pixelRatio)) + 2);
    for (const double seconds : m_seconds) {
        if (seconds >= 0.0 && seconds <= length)
            taken[static_cast<std::size_t>(std::lround(seconds * scale))] = true;
    }
    m_columns.clear();
    for (std::size_t column = 0; column < taken.size(); ++column) {
        if (taken[column])
            m_columns.push_back(static_cast<int>(column));
    }
}

void TickMarks::draw(
    QPainter &painter, const QRectF &area, double length, const QColor &color, double from, double to)
{
    const double pixelRatio = painter.device()->devicePixelRatioF();
    reduce(area.width(), length, pixelRatio);
    const auto columnAt
        = [&](double x) { return static_cast<int>(std::floor((x - area.left()) * pixelRatio)); };
    const auto first = std::lower_bound(m_columns.begin(), m_columns.end(), columnAt(from - kMarkWidth));
    const auto behind = std::upper_bound(first, m_columns.end(), columnAt(to + kMarkWidth));
    for (auto column = first; column != behind; ++column) {
        const double x = area.left() + *column / pixelRatio;
        painter.fillRect(QRectF(x - kMarkWidth / 2, area.top(), kMarkWidth, area.height()), color);
    }
}

} // namespace kit
