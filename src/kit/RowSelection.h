// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QItemSelection>

#include <cstddef>
#include <vector>

class QAbstractItemModel;

namespace kit {

/// Rows `first` to `last`, both included.
struct RowRange
{
    int first = 0;
    int last = 0;

    friend bool operator==(const RowRange &, const RowRange &) = default;
};

/// Whole rows as ascending ranges that neither touch nor overlap.
///
/// Works on the selection's ranges, never row by row: a selection of everything is one range.
using RowRanges = std::vector<RowRange>;

/// The rows that `selection` touches in any column.
[[nodiscard]] RowRanges rowRanges(const QItemSelection &selection);
/// `rows` as a selection over all columns of `model`; rows past its end are left out.
[[nodiscard]] QItemSelection wholeRows(const RowRanges &rows, const QAbstractItemModel &model);

[[nodiscard]] bool containsRow(const RowRanges &rows, int row);
/// The selected row nearest to `row`, the lower on ties; −1 when there is none.
[[nodiscard]] int nearestRow(const RowRanges &rows, int row);
/// Of the ends of the ranges the row farthest from `row`, the higher on ties; −1 for no ranges.
/// A selection that grew away from `row` ends there.
[[nodiscard]] int farthestEnd(const RowRanges &rows, int row);
/// Every row, ascending.
[[nodiscard]] std::vector<std::size_t> rowIndexes(const RowRanges &rows);

} // namespace kit
