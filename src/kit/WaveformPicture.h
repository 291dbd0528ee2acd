// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QPixmap>

#include <vector>

class QPainter;

namespace kit {

/// Draws how loud something is over time, in a played and an unplayed colour.
///
/// Drawn once for each size, length and pair of colours and kept as a picture, so that a position that moves
/// costs no more than copying a few pixels.
class WaveformPicture
{
public:
    struct Colors
    {
        QColor played;
        QColor unplayed;
        QColor unknown; ///< where no level is known yet

        friend bool operator==(const Colors &, const Colors &) = default;
    };

    /// Level i, 0 to 1, is of the seconds from i * `secondsPerLevel` on.
    void setLevels(std::vector<float> levels, double secondsPerLevel);
    [[nodiscard]] bool isEmpty() const { return m_levels.empty(); }

    /// Draws `length` seconds (above 0) over the width of `area`; played up to the place `playedUntil`.
    void draw(QPainter &painter, const QRectF &area, double length, double playedUntil, const Colors &colors);

private:
    struct Key
    {
        QSizeF size;
        double length = 0;
        double pixelRatio = 0;
        Colors colors;

        friend bool operator==(const Key &, const Key &) = default;
    };

    [[nodiscard]] QPixmap picture(const Key &key, const QColor &known) const;
    /// The loudest between two times; below 0 when nothing is known there.
    [[nodiscard]] double levelBetween(double from, double to) const;

    std::vector<float> m_levels;
    double m_secondsPerLevel = 0;
    /// What is drawn over the full height.
    double m_fullLevel = 1;
    Key m_key;
    QPixmap m_played;
    QPixmap m_unplayed;
};

} // namespace kit
