// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_GRAPH_H
#define VELRZM_TOOLS_STRUCTURE_GRAPH_H

#include <string>

#include "tools/structure/product_structure.h"

namespace tools {

/** A structure in the language of Graphviz: a node for each item, and an edge for each parent and component, with
 * the number of lines. An item is labelled with its number and its first value. */
std::string structureGraph(const ProductStructure& structure);

/** Throws Refused when a picture of the structure would take more than a few seconds to draw. */
void requireDrawable(const ProductStructure& structure);

/** A graph as a picture. Throws Refused when Graphviz is not installed or draws nothing. */
std::string drawnGraph(const std::string& graph);

} // namespace tools

#endif
