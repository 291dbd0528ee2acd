// SPDX-License-Identifier: MIT
#include "lyrics/CountedNew.h"

#include <cstdlib>
#include <new>

namespace {

counted::Work g_work;

} // namespace

counted::Work counted::soFar()
{
    return g_work;
}

void *operator new(std::size_t size)
{
    ++g_work.allocations;
    g_work.bytes += size;
    void *memory = std::malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
