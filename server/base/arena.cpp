// SPDX-License-Identifier: Apache-2.0
#include "server/base/arena.h"

#include <algorithm>
#include <memory>
#include <new>

#include <sys/mman.h>

namespace qvserver {

namespace {

constexpr std::size_t largePage = std::size_t(2) << 20;
constexpr std::size_t smallestBlock = 1024;

class LargePages final : public std::pmr::memory_resource {
    void* do_allocate(std::size_t size, std::size_t alignment) override
    {
        void* const piece = ::operator new(size, alignmentOf(size, alignment));
        if (size >= largePage) {
            ::madvise(piece, size, MADV_HUGEPAGE); // no harm where there are none
        }
        return piece;
    }
    void do_deallocate(void* piece, std::size_t size, std::size_t alignment) override
    {
        ::operator delete(piece, alignmentOf(size, alignment));
    }
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override
    {
        return this == &other;
    }

    static std::align_val_t alignmentOf(std::size_t size, std::size_t alignment)
    {
        return std::align_val_t(size >= largePage ? std::max(largePage, alignment) : alignment);
    }
};

} // namespace

std::pmr::memory_resource& largePages() noexcept
{
    static LargePages pages;
    return pages;
}

Arena::~Arena()
{
    for (const Block& block : blocks_) {
        largePages().deallocate(block.begin, block.size);
    }
}

void* Arena::do_allocate(std::size_t size, std::size_t alignment)
{
    if (std::align(alignment, size, free_, left_) == nullptr) {
        addBlock(size);
    }
    void* const piece = free_;
    free_ = static_cast<std::byte*>(free_) + size;
    left_ -= size;
    return piece;
}

void Arena::addBlock(std::size_t atLeast)
{
    const std::size_t size = std::max(atLeast, std::clamp(taken_ / 2, smallestBlock, largePage));
    blocks_.reserve(blocks_.size() + 1);
    free_ = largePages().allocate(size);
    left_ = size;
    blocks_.push_back({free_, size});
    taken_ += size;
}

} // namespace qvserver
