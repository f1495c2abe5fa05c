#include "footprint/heap.hpp"

namespace oru::test {
namespace {

bool counting;
Heap heap;

void note(size_t size)
{
    if (!counting) return;
    ++heap.allocations;
    heap.bytes += size;
}

} // namespace

Heap heapOf(const std::function<void()> &work)
{
    heap = {};
    counting = true;
    work();
    counting = false;
    return heap;
}

// Stand before libc's in this executable.
extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_calloc(size_t count, size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);

extern "C" void *malloc(size_t size) noexcept
{
    note(size);
    return __libc_malloc(size);
}

extern "C" void *calloc(size_t count, size_t size) noexcept
{
    note(count * size);
    return __libc_calloc(count, size);
}

extern "C" void *realloc(void *block, size_t size) noexcept
{
    note(size);
    return __libc_realloc(block, size);
}

} // namespace oru::test
