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

void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    ++g_work.allocations;
    g_work.bytes += size;
    return std::malloc(size == 0 ? 1 : size);
}
void *operator new(std::size_t size)
{
    void *memory = operator new(size, std::nothrow);
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
