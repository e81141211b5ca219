#include "AllocationCounter.h"

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define WZ_FOREIGN_HEAP 1
#else
#define WZ_FOREIGN_HEAP 0
#endif

namespace {

thread_local bool t_counting = false;
thread_local long t_count = 0;

} // namespace

#if !WZ_FOREIGN_HEAP
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

// The program's own definitions take the place of the C library's.
void* malloc(std::size_t size) noexcept
{
    t_count += t_counting;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    t_count += t_counting;
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) noexcept
{
    t_count += t_counting;
    return __libc_realloc(block, size);
}
}
#endif

AllocationCounter::AllocationCounter()
{
    t_count = 0;
    t_counting = true;
}

AllocationCounter::~AllocationCounter()
{
    t_counting = false;
}

bool AllocationCounter::works()
{
    return !WZ_FOREIGN_HEAP;
}

long AllocationCounter::count() const
{
    return t_count;
}
