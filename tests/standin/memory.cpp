// SPDX-License-Identifier: Apache-2.0
#include "tests/standin/memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): these are the owners' own means
void* operator new(std::size_t size)
{
    const bool isAllowed = standin::AmpleMemory::living > 0 || standin::ScarceMemory::allows();
    if (void* const memory = isAllowed ? std::malloc(size == 0 ? 1 : size) : nullptr) {
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
