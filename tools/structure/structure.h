// SPDX-License-Identifier: Apache-2.0
//
// Product structures: explosions, and what can be made of them.
#ifndef VELRZM_TOOLS_STRUCTURE_STRUCTURE_H
#define VELRZM_TOOLS_STRUCTURE_STRUCTURE_H

#include <string>
#include <vector>

#include "tools/output/records.h"

namespace tools {

/** Which structure. */
struct StructureRequest {
    std::string item;
    std::string change; // lines of this change only; empty for all
    std::string levels; // how many; empty for all
};

/** A line of an explosion. */
struct StructureLine {
    int level;
    std::string parent;
    std::string component;
    std::string sequence;
    std::string name; // of the component
};

/** The attributes of a StructureLine. */
inline const std::vector<std::string> structureAttributes = {"level", "item_number", "comp_item_number",
                                                             "comp_seq_nm", "comp_item@name"};

/** An item in a structure, with the number of lines that tie it to the node above. */
struct StructureNode {
    int parent; // the node above by its place, -1 for the first
    int level;
    std::string item;
    std::string name;
    int quantity;
};

/** Runs BomExplode and returns what it returned; the current result is the list of the lines. */
int explode(const StructureRequest& request, const std::vector<std::string>& attributes);

/** The attributes of items on the other end of a line, as they are asked for: "name" of a component is
 * "comp_item@name". */
inline constexpr const char* ofComponent = "comp_item@";
inline constexpr const char* ofParent = "item@";
std::vector<std::string> itemAttributesOfLines(const char* ofItem, const std::vector<std::string>& names);

/** The values of the item above all lines, which has lines, for the attributes `names`; the current result
 * changes. */
std::vector<std::string> topItemValues(const StructureRequest& request,
                                       const std::vector<std::string>& names);

/** The lines of the current result, after `explode` with `structureAttributes`. */
std::vector<StructureLine> currentStructureLines();

/** The structure below `top`, equal lines of a parent taken together; the first node is `top`. */
std::vector<StructureNode> structureTree(const std::string& top, const std::vector<StructureLine>& lines);

/** How often each component occurs in all, over all levels; sorted by item number. */
Records totalQuantities(const std::vector<StructureLine>& lines);

/** The lines that one structure has and the other has not, or has in another number. */
Records differences(const std::vector<StructureLine>& first, const std::vector<StructureLine>& second);

/** The structures that use an item, level by level up to the topmost; the first node is the item itself.
 * Throws Refused when the server says no. */
std::vector<StructureNode> whereUsed(const StructureRequest& request);

} // namespace tools

#endif
