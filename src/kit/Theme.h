// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QPalette>

class QWidget;

namespace kit {

// The one place for the numbers of the look. Logical pixels and milliseconds.
inline constexpr int kSpacingTiny = 4;
inline constexpr int kSpacingSmall = 8;
inline constexpr int kSpacing = 12;
inline constexpr int kSpacingLarge = 16;
inline constexpr int kSpacingHuge = 24;
inline constexpr int kRadius = 8;
inline constexpr int kRadiusLarge = 10;
inline constexpr int kRowHeight = 32;
inline constexpr int kHeaderHeight = 30;
inline constexpr int kCellMargin = 8;
inline constexpr int kQuickMillis = 120;
inline constexpr int kSlowMillis = 220;

/// The sizes of text. Pixels where the desktop's text is of ordinary size; they grow with it.
enum class TextSize { Caption, Small, Body, Large, Figure };

/// Colours by what they are for. Made from a palette: light or dark as it is.
///
/// `text`, `quietText`, `accentText` and `warning` have a contrast of at least 4.5 to 1 on `panel`,
/// `accentInk` on `accent` too; marks (`accent`, `waveform`) at least 3 to 1 on `panel`.
/// Ask again at QEvent::PaletteChange: nothing here follows by itself.
struct Theme
{
    explicit Theme(const QPalette &palette);
    explicit Theme(const QWidget *widget);

    bool isDark;
    QColor ground; ///< behind the panels: the palette's window
    QColor panel; ///< what content lies on: the palette's base
    QColor line; ///< separators and outlines of things that are not controls
    QColor text;
    QColor quietText; ///< second to the text: captions, numbers, hints
    QColor accent; ///< the one colour that calls: fill of the stamp button, played part
    QColor accentText; ///< the accent as text on a panel
    QColor accentInk; ///< text and icons on the accent
    QColor focus; ///< ring around what has the keyboard
    QColor selection; ///< background of selected rows; `text` stays readable on it
    QColor chip; ///< background of a tag's chip and of a button under the mouse
    QColor warning;
    QColor waveform; ///< unplayed part
};

/// The line that is sung, on the dark ground of the preview.
[[nodiscard]] QColor currentLineColor();

/// `base`'s family at a size of the look.
[[nodiscard]] QFont textFont(const QFont &base, TextSize size, QFont::Weight weight = QFont::Normal);

/// Contrast of two opaque colours, 1 to 21, as accessibility guidelines count it.
[[nodiscard]] double contrastRatio(const QColor &a, const QColor &b);
/// `color`, moved towards black or white until it has `ratio` on `ground`.
[[nodiscard]] QColor readableOn(const QColor &ground, const QColor &color, double ratio);

} // namespace kit
