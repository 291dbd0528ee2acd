// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What lies on the heap. Linking HeapCount.cpp replaces the global operators.
namespace heap {

/// Bytes that are allocated.
[[nodiscard]] std::size_t now();
/// The most since the last `restartPeak`.
[[nodiscard]] std::size_t peak();
void restartPeak();

} // namespace heap
