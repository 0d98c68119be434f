// SPDX-License-Identifier: Apache-2.0
#include "tests/standin/memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

bool scarce = false;
int ample = 0; // how many AmpleMemory live
int left = 0;
bool ranOut = false;

} // namespace

namespace standin {

ScarceMemory::ScarceMemory(int allocations) noexcept
{
    left = allocations;
    ranOut = false;
    scarce = true;
}
ScarceMemory::~ScarceMemory()
{
    scarce = false;
}
bool ScarceMemory::hasRunOut() noexcept
{
    return ranOut;
}

AmpleMemory::AmpleMemory() noexcept
{
    ++ample;
}
AmpleMemory::~AmpleMemory()
{
    --ample;
}

} // namespace standin

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): these are the owners' own means
void* operator new(std::size_t size)
{
    if (scarce && ample == 0 && left-- <= 0) {
        ranOut = true;
        throw std::bad_alloc();
    }
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
