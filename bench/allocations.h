// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_BENCH_ALLOCATIONS_H
#define VELRZM_BENCH_ALLOCATIONS_H

#include <cstdint>

namespace bench {

/** How many times the program has allocated memory by `operator new`. */
std::int64_t allocations() noexcept;

} // namespace bench

#endif
