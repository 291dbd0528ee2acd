// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

#include <vector>

namespace editor {

/// Lines that took the place of others, with the lines before and behind them the same.
struct LineHunk
{
    qsizetype before = 0; ///< where they were, from 0
    qsizetype removed = 0; ///< how many they were
    qsizetype after = 0; ///< where they are
    qsizetype added = 0; ///< how many they are

    friend bool operator==(const LineHunk &, const LineHunk &) = default;
};

/// What makes `after` of `before`, ascending and with equal lines between two of them; the fewest lines where
/// few differ.
///
/// Cost: linear in the lines where few of them came and went; where many did, all between the first and the
/// last that differ is one answer, also at that cost.
[[nodiscard]] std::vector<LineHunk> lineHunks(const QStringList &before, const QStringList &after);

} // namespace editor
