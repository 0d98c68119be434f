// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_GRAPH_H
#define VELRZM_TOOLS_STRUCTURE_GRAPH_H

#include <string>
#include <vector>

#include "tools/structure/structure.h"

namespace tools {

/** A structure in the language of Graphviz: a node for each item, wherever it occurs, and an edge for each
 * parent and component, with the number of occurrences. */
std::string structureGraph(const std::vector<StructureNode>& nodes);

/** A graph as a picture. Throws Refused when Graphviz is not installed or draws nothing. */
std::string drawnGraph(const std::string& graph);

} // namespace tools

#endif
