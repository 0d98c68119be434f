// SPDX-License-Identifier: Apache-2.0
//
// Memory that runs out: the test program's own `operator new`. The stand-in itself always has memory.
#ifndef VELRZM_TESTS_STANDIN_MEMORY_H
#define VELRZM_TESTS_STANDIN_MEMORY_H

#include <climits>

namespace standin {

/** While it lives, `allocations` more succeed and all later ones fail. */
class ScarceMemory {
public:
    explicit ScarceMemory(int allocations) noexcept { left_ = allocations; }
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory() { left_ = INT_MAX; }

    /** Counts an allocation; whether it may succeed. */
    static bool allows() noexcept { return left_ == INT_MAX || --left_ >= 0; }
    /** Whether an allocation has failed. */
    static bool hasRunOut() noexcept { return left_ < 0; }

private:
    inline static int left_ = INT_MAX;
};

/** While it lives, every allocation succeeds: for what is not the library's. */
class AmpleMemory {
public:
    AmpleMemory() noexcept { ++living; }
    AmpleMemory(const AmpleMemory&) = delete;
    AmpleMemory& operator=(const AmpleMemory&) = delete;
    ~AmpleMemory() { --living; }

    inline static int living = 0;
};

} // namespace standin

#endif
