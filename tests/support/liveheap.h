#pragma once

#include <QtGlobal>

#include <atomic>
#include <cerrno>
#include <cstddef>

#include <malloc.h>

// To be included by one source of a program: what it allocates with goes for all libraries.

#if defined(__SANITIZE_ADDRESS__) || !defined(__GLIBC__)
#define FIGURA_COUNTS_LIVE_BYTES 0 // the sanitizer has an allocator of its own
#else
#define FIGURA_COUNTS_LIVE_BYTES 1
#endif

namespace Velmora::Figura::Test {

inline std::atomic<qint64> liveByteCount = 0;

/// What is allocated and not released. Unlike the figures of the allocator it does not depend on
/// what that keeps back, for threads that painted once, say. Always 0 where nobody counts.
inline qint64 liveBytes()
{
    return liveByteCount;
}

inline void *counted(void *memory)
{
    liveByteCount += qint64(malloc_usable_size(memory));
    return memory;
}

inline void uncount(void *memory)
{
    liveByteCount -= qint64(malloc_usable_size(memory));
}

} // namespace Velmora::Figura::Test

#if FIGURA_COUNTS_LIVE_BYTES
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *memory);

void *malloc(size_t size)
{
    return Velmora::Figura::Test::counted(__libc_malloc(size));
}

void *calloc(size_t count, size_t size)
{
    return Velmora::Figura::Test::counted(__libc_calloc(count, size));
}

void *realloc(void *memory, size_t size)
{
    const auto before = qint64(malloc_usable_size(memory));
    void *moved = __libc_realloc(memory, size);
    if (moved || size == 0) // else the former one is still there
        Velmora::Figura::Test::liveByteCount -= before;
    return Velmora::Figura::Test::counted(moved);
}

void *memalign(size_t alignment, size_t size)
{
    return Velmora::Figura::Test::counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void **memory, size_t alignment, size_t size)
{
    *memory = memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

void free(void *memory)
{
    Velmora::Figura::Test::uncount(memory);
    __libc_free(memory);
}
}
#endif
