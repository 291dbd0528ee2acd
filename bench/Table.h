// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdio>

/// The table that every benchmark prints: ours, a yardstick of the same run, and their ratio.
namespace table {

inline void head(const char *unit)
{
    std::printf("%-44s %9s %13s  %-26s %13s %7s %7s\n", unit, "lines", "ours", "yardstick", "theirs", "ratio",
        "target");
}

/// \param target  the largest ratio that is good enough
inline void row(
    const char *what, std::size_t lines, double ours, const char *yardstick, double theirs, double target)
{
    const double ratio = ours / theirs;
    std::printf("%-44s %9zu %13.0f  %-26s %13.0f %7.2f %7.2f  %s\n", what, lines, ours, yardstick, theirs,
        ratio, target, ratio <= target ? "" : "over");
    std::fflush(stdout);
}

/// A row that is there to be compared with others, and has no target.
inline void figure(const char *what, std::size_t lines, double ours, const char *yardstick, double theirs)
{
    std::printf(
        "%-44s %9zu %13.0f  %-26s %13.0f %7.2f\n", what, lines, ours, yardstick, theirs, ours / theirs);
    std::fflush(stdout);
}

} // namespace table
