// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_DRAWING_H
#define VELRZM_TOOLS_STRUCTURE_DRAWING_H

#include "tools/output/outcome.h"
#include "tools/structure/structure.h"

namespace tools {

/** A structure as an outcome: a tree where it is shown as a table, otherwise a list with the levels. */
Outcome drawing(const std::vector<StructureNode>& nodes);

/** A structure as a drawn tree. */
std::string drawnTree(const std::vector<StructureNode>& nodes, unsigned indentation = 0);

} // namespace tools

#endif
