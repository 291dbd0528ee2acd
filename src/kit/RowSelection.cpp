// SPDX-License-Identifier: MIT
#include "kit/RowSelection.h"

#include <QtCore/QAbstractItemModel>

#include <algorithm>
#include <cstdlib>

namespace kit {

RowRanges rowRanges(const QItemSelection &selection)
{
    RowRanges ranges;
    ranges.reserve(static_cast<std::size_t>(selection.size()));
    for (const QItemSelectionRange &range : selection) {
        if (range.isValid()) {
            ranges.push_back({range.top(), range.bottom()});
        }
    }
    std::sort(
        ranges.begin(), ranges.end(), [](const RowRange &a, const RowRange &b) { return a.first < b.first; });
    RowRanges merged;
    for (const RowRange &range : ranges) {
        if (!merged.empty() && range.first <= merged.back().last + 1) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    return merged;
}

QItemSelection wholeRows(const RowRanges &rows, const QAbstractItemModel &model)
{
    QItemSelection selection;
    const int lastRow = model.rowCount() - 1;
    const int lastColumn = model.columnCount() - 1;
    for (const RowRange &range : rows) {
        if (range.first <= lastRow && lastColumn >= 0) {
            selection.append(QItemSelectionRange(
                model.index(range.first, 0), model.index(std::min(range.last, lastRow), lastColumn)));
        }
    }
    return selection;
}

bool containsRow(const RowRanges &rows, int row)
{
    const auto after = std::upper_bound(
        rows.begin(), rows.end(), row, [](int value, const RowRange &range) { return value < range.first; });
    return after != rows.begin() && row <= std::prev(after)->last;
}

int nearestRow(const RowRanges &rows, int row)
{
    int best = -1;
    for (const RowRange &range : rows) {
        const int candidate = std::clamp(row, range.first, range.last);
        if (best < 0 || std::abs(candidate - row) < std::abs(best - row)) {
            best = candidate;
        }
    }
    return best;
}

int farthestEnd(const RowRanges &rows, int row)
{
    if (rows.empty()) {
        return -1;
    }
    const int first = rows.front().first;
    const int last = rows.back().last;
    return std::abs(first - row) > std::abs(last - row) ? first : last;
}

std::vector<std::size_t> rowIndexes(const RowRanges &rows)
{
    std::vector<std::size_t> indexes;
    for (const RowRange &range : rows) {
        for (int row = range.first; row <= range.last; ++row) {
            indexes.push_back(static_cast<std::size_t>(row));
        }
    }
    return indexes;
}

} // namespace kit
