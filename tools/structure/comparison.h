// SPDX-License-Identifier: Apache-2.0
//
// Two structures as one. What is shown of a comparison is made from this.
#ifndef VELRZM_TOOLS_STRUCTURE_COMPARISON_H
#define VELRZM_TOOLS_STRUCTURE_COMPARISON_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/output/records.h"
#include "tools/structure/product_structure.h"

namespace tools {

/** An item on the next level, and how many lines lead to it in each of the structures; 0 where it is not a part. */
struct ComparedPart {
    std::size_t item; // its place in the comparison
    std::int64_t before;
    std::int64_t after;
    std::vector<std::string> changes;
};

struct ComparedItem {
    std::string number;
    std::vector<std::string> values; // as they are after, unless the item is in the structure before only
    std::vector<ComparedPart> parts;
};

struct Comparison {
    std::vector<std::string> attributes; // that the items have values of
    std::vector<ComparedItem> items;     // the first stands for both items at the top, whatever their numbers
    int levels;                          // how many were asked for; 0 for all
};

/** "added", "removed", "changed", or "" for a part that does not differ. */
const char* differenceOf(const ComparedPart& part);

/** Compares structures that were read with the same attributes. */
Comparison compared(const ProductStructure& before, const ProductStructure& after);

/** The parts that differ, sorted by parent. The parent of the topmost is left empty. */
Records differences(const Comparison& comparison);

} // namespace tools

#endif
