// Counts what a piece of work takes from the heap.
#pragma once

#include <cstddef>
#include <functional>

namespace oru::test {

struct Heap {
    int allocations = 0;
    size_t bytes = 0; // in all, as asked for
};

Heap heapOf(const std::function<void()> &work);

} // namespace oru::test
