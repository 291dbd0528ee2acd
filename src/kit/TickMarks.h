// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRectF>

#include <vector>

class QColor;
class QPainter;

namespace kit {

/// Marks at places in time. However many times there are, there is one mark a pixel.
class TickMarks
{
public:
    /// Seconds, in any order. False when they are those that it has already.
    bool setTimes(const std::vector<double> &seconds);

    /// Draws those from 0 to `length` seconds (above 0), which is the width of `area`, and as high as
    /// `area`. Only marks between `from` and `to` are drawn, places as in `area`.
    void draw(
        QPainter &painter, const QRectF &area, double length, const QColor &color, double from, double to);

private:
    void reduce(double width, double length, double pixelRatio);

    std::vector<double> m_seconds;
    /// Pixels of the screen from the left edge, ascending, each once.
    std::vector<int> m_columns;
    double m_width = 0;
    double m_length = 0;
    double m_pixelRatio = 0;
};

} // namespace kit
