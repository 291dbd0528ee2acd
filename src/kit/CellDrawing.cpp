// SPDX-License-Identifier: MIT
#include "kit/CellDrawing.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

#include <algorithm>

namespace kit {

namespace {

constexpr int kDotSize = 6;
constexpr int kMarkGap = 6;
constexpr int kArrowWidth = 6;
constexpr int kArrowHeight = 8;
constexpr int kChipHeight = 20;
constexpr int kChipMargin = 8;
constexpr int kChipGap = 10;
constexpr double kChipRadius = 5.0;
constexpr double kTextContrast = 4.5;

bool isMirrored(const QStyleOptionViewItem &option)
{
    return option.direction == Qt::RightToLeft;
}

bool isCentred(const QStyleOptionViewItem &option)
{
    return option.displayAlignment.testFlag(Qt::AlignHCenter);
}

// A rectangle in the vertical middle of `cell`.
QRect middle(const QRect &cell, int left, const QSize &size)
{
    return {QPoint(left, cell.top() + (cell.height() - size.height()) / 2), size};
}

// Takes `size` and `gap` off the side of `rest` at which reading begins.
QRect takenFromStart(QRect &rest, const QSize &size, int gap, bool mirrored)
{
    const QRect whole = rest;
    if (mirrored) {
        rest.setRight(rest.right() - size.width() - gap);
        return middle(whole, whole.right() + 1 - size.width(), size);
    }
    rest.setLeft(rest.left() + size.width() + gap);
    return middle(whole, whole.left(), size);
}

CellParts partsInARow(const QStyleOptionViewItem &option, const CellLook &look, const CellInk &ink)
{
    CellParts parts;
    const bool mirrored = isMirrored(option);
    QRect rest = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
    const int half = rest.width() / 2;
    if (!look.problem.isEmpty()) {
        parts.problem = takenFromStart(rest, {kDotSize, kDotSize}, kMarkGap, mirrored);
    }
    if (look.current) {
        parts.current = takenFromStart(rest, {kArrowWidth, kArrowHeight}, kMarkGap, mirrored);
    }
    if (!look.chip.isEmpty()) {
        const int wanted = QFontMetrics(ink.chipFont).horizontalAdvance(look.chip) + 2 * kChipMargin;
        parts.chip = takenFromStart(rest, {std::min(wanted, half), kChipHeight}, kChipGap, mirrored);
    }
    parts.text = rest;
    return parts;
}

// Centred text stays where it is in every row; what marks it stands before it.
CellParts partsBesideCentredText(const QStyleOptionViewItem &option, const CellLook &look)
{
    CellParts parts;
    parts.text = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
    if (look.problem.isEmpty() && !look.current) {
        return parts;
    }
    const bool mirrored = isMirrored(option);
    const int width = std::min(option.fontMetrics.horizontalAdvance(option.text), parts.text.width());
    const int textLeft = parts.text.left() + (parts.text.width() - width) / 2;
    int edge = mirrored ? textLeft + width : textLeft;
    const auto before = [&](const QSize &size) {
        const int left = mirrored ? edge + kSpacingTiny : edge - kSpacingTiny - size.width();
        const int kept = std::clamp(left, option.rect.left() + kSpacingTiny / 2,
            option.rect.right() + 1 - size.width() - kSpacingTiny / 2);
        edge = mirrored ? kept + size.width() : kept;
        return middle(option.rect, kept, size);
    };
    if (look.current) {
        parts.current = before({kArrowWidth, kArrowHeight});
    }
    if (!look.problem.isEmpty()) {
        parts.problem = before({kDotSize, kDotSize});
    }
    return parts;
}

void paintArrow(QPainter *painter, const QRectF &place, const QColor &colour, bool mirrored)
{
    const double blunt = mirrored ? place.right() : place.left();
    const double tip = mirrored ? place.left() : place.right();
    const QPointF points[] = {{blunt, place.top()}, {tip, place.center().y()}, {blunt, place.bottom()}};
    painter->setBrush(colour);
    painter->drawPolygon(points, 3);
}

void paintChip(
    QPainter *painter, const QRect &place, const QString &text, const CellInk &ink, bool isSelected)
{
    // On the ground of a selected row the chip's own would be lost.
    painter->setBrush(isSelected ? ink.theme.panel : ink.theme.chip);
    painter->drawRoundedRect(place, kChipRadius, kChipRadius);
    painter->setFont(ink.chipFont);
    painter->setPen(ink.chipText);
    const QString shown
        = QFontMetrics(ink.chipFont).elidedText(text, Qt::ElideRight, place.width() - 2 * kChipMargin + 1);
    painter->drawText(place, Qt::AlignCenter | Qt::TextSingleLine, shown);
}

} // namespace

CellInk::CellInk(const QPalette &palette, const QFont &font)
    : theme(palette), chipText(readableOn(theme.chip, theme.quietText, kTextContrast)),
      chipFont(textFont(font, TextSize::Caption)), currentFont(font)
{
    currentFont.setWeight(QFont::DemiBold);
}

CellParts partsOfCell(const QStyleOptionViewItem &option, const CellLook &look, const CellInk &ink)
{
    return isCentred(option) ? partsBesideCentredText(option, look) : partsInARow(option, look, ink);
}

void paintMarks(QPainter *painter, const QStyleOptionViewItem &option, const CellParts &parts,
    const CellLook &look, const CellInk &ink)
{
    if (parts.problem.isNull() && parts.current.isNull() && parts.chip.isNull()) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (!parts.problem.isNull()) {
        painter->setBrush(ink.theme.warning);
        painter->drawEllipse(QRectF(parts.problem));
    }
    if (!parts.current.isNull()) {
        paintArrow(painter, parts.current, ink.theme.accentText, isMirrored(option));
    }
    if (!parts.chip.isNull()) {
        paintChip(painter, parts.chip, look.chip, ink, option.state.testFlag(QStyle::State_Selected));
    }
    painter->restore();
}

} // namespace kit
