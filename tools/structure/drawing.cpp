// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/drawing.h"

#include "tools/output/table.h"

namespace tools {

std::string drawnTree(const std::vector<StructureNode>& nodes, unsigned indentation)
{
    Records records{{"item", "quantity", "name"}, {}};
    std::vector<int> parents;
    for (const StructureNode& node : nodes) {
        records.rows.push_back({node.item, std::to_string(node.quantity), node.name});
        parents.push_back(node.parent);
    }
    return treeText(records, parents, indentation);
}

Outcome drawing(const std::vector<StructureNode>& nodes)
{
    Outcome outcome{{{"level", "item_number", "quantity", "name"}, {}}, Shape::List};
    for (const StructureNode& node : nodes) {
        outcome.records.rows.push_back(
            {std::to_string(node.level), node.item, std::to_string(node.quantity), node.name});
    }
    outcome.drawn[Format::Table] = [nodes] { return drawnTree(nodes); };
    return outcome;
}

} // namespace tools
