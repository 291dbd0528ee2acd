// SPDX-License-Identifier: MIT
#include "lyrics/HeapCount.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::size_t g_heapNow = 0;
std::size_t g_heapPeak = 0;

} // namespace

std::size_t heap::now()
{
    return g_heapNow;
}
std::size_t heap::peak()
{
    return g_heapPeak;
}
void heap::restartPeak()
{
    g_heapPeak = g_heapNow;
}

// Every allocation carries its size, so that memory is measured and not estimated.
void *operator new(std::size_t size)
{
    constexpr std::size_t kHeader = alignof(std::max_align_t);
    auto *block = static_cast<char *>(std::malloc(size + kHeader));
    if (!block)
        throw std::bad_alloc();
    std::memcpy(block, &size, sizeof size);
    g_heapNow += size;
    g_heapPeak = std::max(g_heapPeak, g_heapNow);
    return block + kHeader;
}
void operator delete(void *memory) noexcept
{
    if (!memory)
        return;
    char *block = static_cast<char *>(memory) - alignof(std::max_align_t);
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    g_heapNow -= size;
    std::free(block);
}
void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}
