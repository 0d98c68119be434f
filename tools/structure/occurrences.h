// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_OCCURRENCES_H
#define VELRZM_TOOLS_STRUCTURE_OCCURRENCES_H

#include <cstdint>
#include <vector>

#include "tools/output/records.h"
#include "tools/structure/product_structure.h"

namespace tools {

/** How a part counts: once for each of its lines, or once. */
enum class PartCount { Lines, Once };

/** How often each item occurs below the first one, over all levels, by its place in the structure. The occurrences
 * themselves are not made: a structure may have more than memory holds. Throws Refused when there are more than 63
 * bits count, or when the structure contains itself. */
std::vector<std::int64_t> occurrences(const ProductStructure& structure, PartCount count);

/** The sum of numbers of occurrences. Throws Refused like `occurrences`. */
std::int64_t sumOf(const std::vector<std::int64_t>& numbers);

/** The components with the numbers of their lines, over all levels, sorted by item number. */
Records totalQuantities(const ProductStructure& structure);

} // namespace tools

#endif
