// SPDX-License-Identifier: MIT
#include "support/CountedMalloc.h"

#include <atomic>
#include <cstddef>

namespace {

std::atomic<long long> g_mallocs{0};

} // namespace

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TQLRC_COUNTS_MALLOCS 0
#else
#define TQLRC_COUNTS_MALLOCS 1

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's own name
extern "C" void *__libc_malloc(std::size_t size);
extern "C" void *__libc_realloc(void *memory, std::size_t size);

extern "C" void *malloc(std::size_t size)
{
    ++g_mallocs;
    return __libc_malloc(size);
}

extern "C" void *realloc(void *memory, std::size_t size)
{
    ++g_mallocs;
    return __libc_realloc(memory, size);
}
// NOLINTEND(bugprone-reserved-identifier)

#endif

namespace support {

long long mallocs()
{
    return g_mallocs;
}

bool countsMallocs()
{
    return TQLRC_COUNTS_MALLOCS != 0;
}

} // namespace support
