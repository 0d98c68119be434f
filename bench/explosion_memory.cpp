// SPDX-License-Identifier: Apache-2.0
//
// Counts the bytes that the program holds, with what the allocator adds to each piece.
#include "bench/explosion_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

// The measured program has one thread.
std::int64_t held = 0;
std::int64_t peak = 0;

std::int64_t sizeOf(void* memory) noexcept
{
    constexpr std::int64_t head = sizeof(std::size_t);
    return memory == nullptr ? 0 : static_cast<std::int64_t>(malloc_usable_size(memory)) + head;
}

} // namespace

std::int64_t bench::heldBytes() noexcept
{
    return held;
}

std::int64_t bench::peakBytes() noexcept
{
    const std::int64_t most = peak;
    peak = held;
    return most;
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): these are the owners' own means
void* operator new(std::size_t size)
{
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        held += sizeOf(memory);
        peak = std::max(peak, held);
        return memory;
    }
    throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    void* memory = nullptr;
    const std::size_t least = std::max(static_cast<std::size_t>(alignment), sizeof(void*));
    if (posix_memalign(&memory, least, size == 0 ? 1 : size) != 0) {
        throw std::bad_alloc();
    }
    held += sizeOf(memory);
    peak = std::max(peak, held);
    return memory;
}
void operator delete(void* memory) noexcept
{
    held -= sizeOf(memory);
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept
{
    operator delete(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept
{
    operator delete(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
