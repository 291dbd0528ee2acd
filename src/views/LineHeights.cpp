// SPDX-License-Identifier: MIT
#include "views/LineHeights.h"

#include <algorithm>
#include <bit>

namespace views {

namespace {

constexpr int lowestBit(int number)
{
    return number & -number;
}

} // namespace

void LineHeights::reset(int count, int height)
{
    m_count = count;
    m_highestStep = count > 0 ? static_cast<int>(std::bit_floor(static_cast<unsigned>(count))) : 0;
    m_sums.resize(static_cast<std::size_t>(count) + 1);
    for (int place = 1; place <= count; ++place)
        m_sums[static_cast<std::size_t>(place)] = lowestBit(place) * height;
}

int LineHeights::top(int line) const
{
    int sum = 0;
    for (int place = std::clamp(line, 0, m_count); place > 0; place -= lowestBit(place))
        sum += m_sums[static_cast<std::size_t>(place)];
    return sum;
}

void LineHeights::setHeight(int line, int newHeight)
{
    const int more = std::max(1, newHeight) - height(line);
    for (int place = line + 1; place <= m_count; place += lowestBit(place))
        m_sums[static_cast<std::size_t>(place)] += more;
}

int LineHeights::lineAt(int y) const
{
    int line = 0;
    int left = y;
    for (int step = m_highestStep; step > 0; step /= 2) {
        const int next = line + step;
        if (next <= m_count && m_sums[static_cast<std::size_t>(next)] <= left) {
            left -= m_sums[static_cast<std::size_t>(next)];
            line = next;
        }
    }
    return std::min(line, m_count - 1);
}

} // namespace views
