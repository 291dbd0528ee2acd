// SPDX-License-Identifier: MIT
#include "kit/WaveformPicture.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kit {

namespace {

// A bar and the gap behind it; logical pixels.
constexpr double kPitch = 3.0;
constexpr double kBarWidth = 2.0;
constexpr double kSilentHeight = 2.0;
// What is quieter as a whole is not made larger than that.
constexpr float kQuietest = 0.1F;

} // namespace

void WaveformPicture::setLevels(std::vector<float> levels, double secondsPerLevel)
{
    m_levels = secondsPerLevel > 0.0 ? std::move(levels) : std::vector<float>();
    m_secondsPerLevel = secondsPerLevel;
    float loudest = kQuietest;
    for (const float level : m_levels)
        loudest = std::max(loudest, level);
    m_fullLevel = loudest;
    m_key = {};
}

double WaveformPicture::levelBetween(double from, double to) const
{
    const auto count = static_cast<double>(m_levels.size());
    const double first = std::floor(from / m_secondsPerLevel);
    const double behind = std::max(first + 1.0, std::floor(to / m_secondsPerLevel));
    if (first >= count)
        return -1.0;
    const auto at = [this, count](double index) {
        return m_levels.begin() + static_cast<std::ptrdiff_t>(std::clamp(index, 0.0, count));
    };
    return static_cast<double>(*std::max_element(at(first), at(behind))) / m_fullLevel;
}

QPixmap WaveformPicture::picture(const Key &key, const QColor &known) const
{
    QPixmap picture((key.size * key.pixelRatio).toSize().expandedTo(QSize(1, 1)));
    picture.setDevicePixelRatio(key.pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double secondsPerPixel = key.length / std::max(1.0, key.size.width());
    for (double x = 0; x < key.size.width(); x += kPitch) {
        const double level = levelBetween(x * secondsPerPixel, (x + kPitch) * secondsPerPixel);
        const double height = std::clamp(level * key.size.height(), kSilentHeight, key.size.height());
        painter.setBrush(level < 0.0 ? key.colors.unknown : known);
        // Rounding would leave nothing of the colour in the smallest ones.
        const double radius = height > 2 * kSilentHeight ? kBarWidth / 2 : 0.0;
        const QRectF bar(x, (key.size.height() - height) / 2, kBarWidth, height);
        painter.drawRoundedRect(bar, radius, radius);
    }
    return picture;
}

void WaveformPicture::draw(
    QPainter &painter, const QRectF &area, double length, double playedUntil, const Colors &colors)
{
    const Key key{area.size(), length, painter.device()->devicePixelRatioF(), colors};
    if (area.isEmpty())
        return;
    if (!(key == m_key)) {
        m_played = picture(key, colors.played);
        m_unplayed = picture(key, colors.unplayed);
        m_key = key;
    }
    QRectF played = area;
    played.setRight(std::clamp(playedUntil, area.left(), area.right()));
    QRectF unplayed = area;
    unplayed.setLeft(played.right());
    painter.save();
    painter.setClipRect(played, Qt::IntersectClip);
    painter.drawPixmap(area.topLeft(), m_played);
    painter.restore();
    painter.save();
    painter.setClipRect(unplayed, Qt::IntersectClip);
    painter.drawPixmap(area.topLeft(), m_unplayed);
    painter.restore();
}

} // namespace kit
