// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_BENCH_EXPLOSION_MEMORY_H
#define VELRZM_BENCH_EXPLOSION_MEMORY_H

#include <cstdint>

namespace bench {

/** The bytes that the program holds by `operator new`. */
std::int64_t heldBytes() noexcept;

/** The most that it held since the last call. */
std::int64_t peakBytes() noexcept;

} // namespace bench

#endif
