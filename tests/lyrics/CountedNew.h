// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Counts what the program allocates. Linking CountedNew.cpp replaces the global operators.
namespace counted {

struct Work
{
    std::size_t allocations = 0;
    std::size_t bytes = 0;
};

/// All that was allocated since the program began.
[[nodiscard]] Work soFar();

/// What `work` allocates.
template <typename Callable>
[[nodiscard]] Work by(Callable work)
{
    const Work before = soFar();
    work();
    const Work after = soFar();
    return {after.allocations - before.allocations, after.bytes - before.bytes};
}

} // namespace counted
