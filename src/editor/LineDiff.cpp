// SPDX-License-Identifier: MIT
#include "editor/LineDiff.h"

#include <algorithm>

namespace editor {

namespace {

/// Lines that may come and go before the search is not worth its cost any more.
constexpr qsizetype kMostSteps = 200;

/// Myers' search for the shortest way from one list to another: after `d` steps, each of which takes out or
/// puts in one line, the furthest place reached on each diagonal.
class ShortestWay
{
public:
    ShortestWay(const QStringList &before, const QStringList &after, qsizetype head, qsizetype tail)
        : m_before(before), m_after(after), m_head(head), m_oldCount(before.size() - head - tail),
          m_newCount(after.size() - head - tail)
    { }

    /// The lines that are equal on it, as pairs of indexes, from the last to the first; false when it is too
    /// long.
    [[nodiscard]] bool find()
    {
        const qsizetype most = std::min(kMostSteps, m_oldCount + m_newCount);
        std::vector<qsizetype> furthest(std::size_t(2 * most + 3), 0);
        const auto at = [&furthest, most](qsizetype diagonal) -> qsizetype & {
            return furthest[std::size_t(diagonal + most + 1)];
        };
        for (qsizetype step = 0; step <= most; ++step) {
            m_trace.push_back(furthest);
            for (qsizetype diagonal = -step; diagonal <= step; diagonal += 2) {
                const bool isDown = comesFromAbove(step, diagonal, at(diagonal - 1), at(diagonal + 1));
                qsizetype x = isDown ? at(diagonal + 1) : at(diagonal - 1) + 1;
                x = slide(x, x - diagonal);
                at(diagonal) = x;
                if (x >= m_oldCount && x - diagonal >= m_newCount) {
                    walkBack(step, most);
                    return true;
                }
            }
        }
        return false;
    }
    [[nodiscard]] const std::vector<LineHunk> &hunks() const { return m_hunks; }

private:
    static bool comesFromAbove(qsizetype step, qsizetype diagonal, qsizetype left, qsizetype above)
    {
        return diagonal == -step || (diagonal != step && left < above);
    }
    [[nodiscard]] qsizetype slide(qsizetype x, qsizetype y) const
    {
        while (x < m_oldCount && y < m_newCount && m_before[m_head + x] == m_after[m_head + y]) {
            ++x;
            ++y;
        }
        return x;
    }
    void walkBack(qsizetype step, qsizetype most)
    {
        qsizetype x = m_oldCount;
        qsizetype y = m_newCount;
        for (; step > 0; --step) {
            const auto &furthest = m_trace[std::size_t(step)];
            const auto at = [&furthest, most](
                                qsizetype diagonal) { return furthest[std::size_t(diagonal + most + 1)]; };
            const qsizetype diagonal = x - y;
            const bool isDown = comesFromAbove(step, diagonal, at(diagonal - 1), at(diagonal + 1));
            const qsizetype fromDiagonal = isDown ? diagonal + 1 : diagonal - 1;
            x = at(fromDiagonal);
            y = x - fromDiagonal;
            addStep(m_head + x, m_head + y, isDown);
        }
        std::reverse(m_hunks.begin(), m_hunks.end());
    }
    /// One line that came (`isAdded`) or went, before the steps that were told so far.
    void addStep(qsizetype before, qsizetype after, bool isAdded)
    {
        const qsizetype removed = isAdded ? 0 : 1;
        const qsizetype added = isAdded ? 1 : 0;
        if (!m_hunks.empty() && m_hunks.back().before == before + removed
            && m_hunks.back().after == after + added) {
            LineHunk &hunk = m_hunks.back();
            hunk = {before, hunk.removed + removed, after, hunk.added + added};
            return;
        }
        m_hunks.push_back({before, removed, after, added});
    }

    const QStringList &m_before;
    const QStringList &m_after;
    qsizetype m_head;
    qsizetype m_oldCount;
    qsizetype m_newCount;
    std::vector<std::vector<qsizetype>> m_trace;
    std::vector<LineHunk> m_hunks;
};

} // namespace

std::vector<LineHunk> lineHunks(const QStringList &before, const QStringList &after)
{
    const qsizetype most = std::min(before.size(), after.size());
    qsizetype head = 0;
    while (head < most && before[head] == after[head]) {
        ++head;
    }
    qsizetype tail = 0;
    while (tail < most - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        ++tail;
    }
    const LineHunk whole{head, before.size() - head - tail, head, after.size() - head - tail};
    if (whole.removed == 0 && whole.added == 0) {
        return {};
    }
    ShortestWay way(before, after, head, tail);
    return whole.removed > 0 && whole.added > 0 && way.find() ? way.hunks() : std::vector<LineHunk>{whole};
}

} // namespace editor
