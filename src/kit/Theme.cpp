// SPDX-License-Identifier: MIT
#include "kit/Theme.h"

#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

constexpr double kTextContrast = 4.5;
constexpr double kMarkContrast = 3.0;
// The body size that the numbers of the look are drawn for.
constexpr double kOrdinaryTextPixels = 13.5;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) + 0.0722 * linear(rgb.blueF());
}

QColor mix(const QColor &a, const QColor &b, double shareOfB)
{
    const auto channel
        = [shareOfB](double x, double y) { return static_cast<float>(x + (y - x) * shareOfB); };
    return QColor::fromRgbF(
        channel(a.redF(), b.redF()), channel(a.greenF(), b.greenF()), channel(a.blueF(), b.blueF()));
}

double pixels(TextSize size)
{
    switch (size) {
    case TextSize::Caption:
        return 11;
    case TextSize::Small:
        return 12.5;
    case TextSize::Body:
        return 13.5;
    case TextSize::Large:
        return 16;
    case TextSize::Figure:
        return 19;
    }
    return kOrdinaryTextPixels;
}

double desktopScale()
{
    const double desktop = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::max(1.0, desktop / kOrdinaryTextPixels);
}

} // namespace

Theme::Theme(const QPalette &palette)
    : isDark(luminance(palette.color(QPalette::Base)) < luminance(palette.color(QPalette::Text))),
      ground(palette.color(QPalette::Window)), panel(palette.color(QPalette::Base)),
      line(mix(panel, palette.color(QPalette::Text), isDark ? 0.14 : 0.12)),
      text(readableOn(panel, palette.color(QPalette::Text), kTextContrast)),
      quietText(readableOn(panel, mix(panel, text, 0.6), kTextContrast)),
      accent(isDark ? QColor(0x2f, 0xbf, 0x6b) : QColor(0x15, 0x80, 0x3d)),
      accentText(readableOn(panel, accent, kTextContrast)),
      accentInk(isDark ? QColor(0x08, 0x13, 0x0c) : QColor(Qt::white)),
      focus(readableOn(panel, accent, kMarkContrast)), selection(mix(panel, accent, isDark ? 0.18 : 0.12)),
      chip(mix(panel, palette.color(QPalette::Text), isDark ? 0.1 : 0.07)),
      warning(readableOn(panel, isDark ? QColor(0xf0, 0xb0, 0x3f) : QColor(0xb4, 0x5f, 0x06), kTextContrast)),
      waveform(readableOn(panel, mix(panel, text, 0.4), kMarkContrast))
{ }

Theme::Theme(const QWidget *widget) : Theme(widget->palette())
{ }

QColor currentLineColor()
{
    return QColor::fromRgbF(0.118F, 0.663F, 0.337F);
}

QFont textFont(const QFont &base, TextSize size, QFont::Weight weight)
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen != nullptr ? screen->logicalDotsPerInchY() : 96.0;
    QFont font(base);
    // Points, because pixel sizes are whole and ours are not.
    font.setPointSizeF(pixels(size) * desktopScale() * 72.0 / dotsPerInch);
    font.setWeight(weight);
    return font;
}

double contrastRatio(const QColor &a, const QColor &b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor readableOn(const QColor &ground, const QColor &color, double ratio)
{
    const bool towardsWhite = contrastRatio(ground, Qt::white) > contrastRatio(ground, Qt::black);
    const QColor end = towardsWhite ? Qt::white : Qt::black;
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor candidate = mix(color, end, static_cast<double>(step) / kSteps);
        if (contrastRatio(ground, candidate) >= ratio)
            return candidate;
    }
    return end;
}

} // namespace kit
