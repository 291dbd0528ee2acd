// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// How what each operation costs grows with the lines.
class Growth
{
public:
    /// \param nanos  of the whole operation
    void note(const std::string &what, std::size_t lines, double nanos);
    /// One row for each operation: nanoseconds a line at each size, and the exponent of the growth from the
    /// first size to the last: 1 where a line costs the same at any size, 0 where the whole does.
    void print() const;

private:
    struct Point
    {
        std::size_t lines;
        double nanos;
    };
    struct Operation
    {
        std::string what;
        std::vector<Point> points;
    };

    std::vector<Operation> m_operations;
};
