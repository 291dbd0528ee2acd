// SPDX-License-Identifier: MIT
#include "lyrics/Growth.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

void Growth::note(const std::string &what, std::size_t lines, double nanos)
{
    auto at = std::find_if(m_operations.begin(), m_operations.end(),
        [&what](const Operation &operation) { return operation.what == what; });
    if (at == m_operations.end())
        at = m_operations.insert(at, {what, {}});
    at->points.push_back({lines, nanos});
}

void Growth::print() const
{
    if (m_operations.empty())
        return;
    std::printf("%-44s", "growth (ns a line)");
    for (const Point &point : m_operations.front().points)
        std::printf(" %9zu", point.lines);
    std::printf("  exponent\n");
    for (const Operation &operation : m_operations) {
        std::printf("%-44s", operation.what.c_str());
        for (const Point &point : operation.points)
            std::printf(" %9.3f", point.nanos / static_cast<double>(point.lines));
        const Point &first = operation.points.front();
        const Point &last = operation.points.back();
        const double times = static_cast<double>(last.lines) / static_cast<double>(first.lines);
        std::printf(" %9.2f\n", std::log(last.nanos / first.nanos) / std::log(times));
    }
}
