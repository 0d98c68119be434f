// SPDX-License-Identifier: Apache-2.0
//
// Memory that runs out: the test program's own `operator new`. The stand-in itself always has memory.
#ifndef VELRZM_TESTS_STANDIN_MEMORY_H
#define VELRZM_TESTS_STANDIN_MEMORY_H

namespace standin {

/** While it lives, `allocations` more succeed and all later ones fail. */
class ScarceMemory {
public:
    explicit ScarceMemory(int allocations) noexcept;
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();

    /** Whether an allocation has failed. */
    static bool hasRunOut() noexcept;
};

/** While it lives, every allocation succeeds: for what is not the library's. */
class AmpleMemory {
public:
    AmpleMemory() noexcept;
    AmpleMemory(const AmpleMemory&) = delete;
    AmpleMemory& operator=(const AmpleMemory&) = delete;
    ~AmpleMemory();
};

} // namespace standin

#endif
