// SPDX-License-Identifier: Apache-2.0
//
// Product structures by their items: however often an item occurs, it stands here once and its lines are read once.
// What is shown of a structure is made from this.
#ifndef VELRZM_TOOLS_STRUCTURE_PRODUCT_STRUCTURE_H
#define VELRZM_TOOLS_STRUCTURE_PRODUCT_STRUCTURE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tools {

/** Which structure. */
struct StructureRequest {
    std::string item;
    std::string change; // lines of this change only; empty for all
    int levels = 0;     // how many; 0 for all
    bool withChanges = false;
};

/** From an item down to its components, or up to the items that use it. */
enum class Direction { Down, Up };

/** An item on the next level, and how many lines tie it to the item before. */
struct StructurePart {
    std::size_t item; // its place in the structure
    std::int64_t quantity;
    std::vector<std::string> changes = {}; // of these lines, each once, when they were asked for
};

struct StructureItem {
    std::string number;
    std::vector<std::string> values; // of the attributes of the structure
    std::vector<StructurePart> parts;
};

struct ProductStructure {
    std::vector<std::string> attributes; // that the items have values of
    std::vector<StructureItem> items;    // the first is the one asked for
    int levels;                          // how many were asked for; 0 for all
};

/** Reads a structure, with the values of `attributes` for each item. Components stand in the order of their lines,
 * users sorted by number. Throws NothingFound when there is no such item, Failure when the server refuses. */
ProductStructure readStructure(const StructureRequest& request, Direction direction,
                               const std::vector<std::string>& attributes = {"name"});

} // namespace tools

#endif
