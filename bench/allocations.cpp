// SPDX-License-Identifier: Apache-2.0
//
// Counts every allocation of the program. It stands in a file of its own, where the compiler cannot see
// through it.
#include "bench/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> count{0};

} // namespace

std::int64_t bench::allocations() noexcept
{
    return count;
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): these are the owners' own means
void* operator new(std::size_t size)
{
    count.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
