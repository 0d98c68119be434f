// SPDX-License-Identifier: Apache-2.0
//
// Memory for what only grows.
#ifndef VELRZM_SERVER_BASE_ARENA_H
#define VELRZM_SERVER_BASE_ARENA_H

#include <cstddef>
#include <memory_resource>
#include <vector>

namespace qvserver {

/**
 * Memory from which large pieces lie in large pages of the machine, where it has them: tables of many
 * megabytes that are read at random wait less for the translation of their addresses, and growing costs less.
 */
std::pmr::memory_resource& largePages() noexcept;

/**
 * Gives out pieces one behind the other and takes all of them back at its end. The first block is small, since
 * most lists are; each further one is half as large as all before, up to a large page.
 */
class Arena final : public std::pmr::memory_resource {
public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena() override;

private:
    struct Block {
        void* begin;
        std::size_t size;
    };

    void* do_allocate(std::size_t size, std::size_t alignment) override;
    void do_deallocate(void* /*piece*/, std::size_t /*size*/, std::size_t /*alignment*/) override {}
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override
    {
        return this == &other;
    }
    void addBlock(std::size_t atLeast);

    std::vector<Block> blocks_;
    std::size_t taken_ = 0; // in all blocks
    void* free_ = nullptr;  // what is left of the last block
    std::size_t left_ = 0;
};

} // namespace qvserver

#endif
