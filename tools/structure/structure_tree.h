// SPDX-License-Identifier: Apache-2.0
//
// A structure as the rows of a tree. The parts of an item are shown once; where it occurs again, the tree refers to
// the rows above, unless everything is to be expanded.
#ifndef VELRZM_TOOLS_STRUCTURE_STRUCTURE_TREE_H
#define VELRZM_TOOLS_STRUCTURE_STRUCTURE_TREE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/output/outcome.h"
#include "tools/structure/product_structure.h"

namespace tools {

/** Where the rows of an item's parts stand. */
enum class Branch { None, Below, Above };

struct TreeRow {
    int level;
    std::size_t item; // its place in the structure
    std::int64_t quantity;
    Branch branch;
};

/** What is shown of the parts of an item that occurs again. */
enum class Repeated { Referred, Expanded };

/** The rows of the tree, depth first; the first is that of the first item. Throws Refused when there would be too
 * many of them. */
std::vector<TreeRow> treeRows(const ProductStructure& structure, Repeated repeated);

/** A tree with the attributes of its items: drawn where it is shown as a table, otherwise a list with
 * levels. */
Outcome treeOutcome(const ProductStructure& structure, Repeated repeated);

/** The same drawn, each line led by `indentation` blanks. */
std::string drawnTree(const ProductStructure& structure, Repeated repeated, std::size_t indentation = 0);

} // namespace tools

#endif
