// SPDX-License-Identifier: MIT
#pragma once

#include "kit/TableDataSource.h"
#include "kit/Theme.h"

#include <QtCore/QRect>
#include <QtGui/QFont>
#include <QtWidgets/QStyleOptionViewItem>

class QPainter;

namespace kit {

/// The colours and fonts of a table's cells, which are dear to make and the same for all cells.
struct CellInk
{
    CellInk(const QPalette &palette, const QFont &font);

    Theme theme;
    QColor chipText;
    QFont chipFont;
    QFont currentFont;
};

/// Where in a cell its marks and its text stand, in the coordinates of the cell's own rectangle.
///
/// Marks stand before the text in its reading direction; what there is none of is a null rectangle.
struct CellParts
{
    QRect problem;
    QRect chip;
    QRect current;
    /// Where the text begins and ends at the latest, without any margin.
    QRect text;
};

/// \param option  as the delegate has filled it: text, font, direction and alignment are read.
[[nodiscard]] CellParts partsOfCell(
    const QStyleOptionViewItem &option, const CellLook &look, const CellInk &ink);

void paintMarks(QPainter *painter, const QStyleOptionViewItem &option, const CellParts &parts,
    const CellLook &look, const CellInk &ink);

} // namespace kit
