// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/structure.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <velrzm/product_structure.h>

#include "tools/process/attribute_names.h"
#include "tools/structure/component_query.h"

namespace tools {

namespace {

/** A parent and a component, and how many lines tie them together. The parent of the topmost lines is left
 * empty, so that structures of different items can be compared. */
using LineCounts = std::map<std::pair<std::string, std::string>, int>;

LineCounts lineCounts(const std::vector<StructureLine>& lines)
{
    LineCounts counts;
    std::set<std::vector<std::string>>
        seen; // an assembly that occurs again brings the same lines along again
    for (const StructureLine& line : lines) {
        const std::string parent = line.level == 1 ? "" : line.parent;
        if (seen.insert({parent, line.component, line.sequence}).second) {
            ++counts[{parent, line.component}];
        }
    }
    return counts;
}

int countOf(const LineCounts& counts, const LineCounts::key_type& key)
{
    const auto found = counts.find(key);
    return found == counts.end() ? 0 : found->second;
}

int numberOf(const std::string& text)
{
    int number = 0;
    for (const char digit : text) {
        number = digit >= '0' && digit <= '9' && number < 100000 ? number * 10 + (digit - '0') : number;
    }
    return number;
}

/** Adds the parents of the last node, and theirs, to `nodes`. */
void climb(std::vector<StructureNode>& nodes, std::set<std::string>& path, const StructureRequest& request)
{
    const auto below = static_cast<int>(nodes.size()) - 1;
    const StructureNode from = nodes.back();
    const int limit = numberOf(request.levels);
    if (limit > 0 && from.level == limit) {
        return;
    }
    std::map<std::string, int> parents;
    for (const ComponentLine& line : linesThatUse(from.item, request.change)) {
        ++parents[line.parent];
    }
    for (const auto& [parent, quantity] : parents) {
        if (path.insert(parent).second) { // a structure that contains itself is climbed once
            nodes.push_back({below, from.level + 1, parent, "", quantity});
            climb(nodes, path, request);
            path.erase(parent);
        }
    }
}

} // namespace

int explode(const StructureRequest& request, const std::vector<std::string>& attributes)
{
    TextArray names({"item_number", "ec_number", "max_level"});
    TextArray values({request.item, request.change, request.levels});
    TextArray selected(attributes);
    return BomExplode(names.data(), values.data(), selected.data());
}

std::vector<std::string> itemAttributesOfLines(const char* ofItem, const std::vector<std::string>& names)
{
    std::vector<std::string> paths(names.size());
    std::transform(names.begin(), names.end(), paths.begin(),
                   [ofItem](const std::string& name) { return ofItem + name; });
    return paths;
}

std::vector<std::string> topItemValues(const StructureRequest& request, const std::vector<std::string>& names)
{
    const std::vector<std::string> paths = itemAttributesOfLines(ofParent, names);
    explode({request.item, request.change, "1"}, paths);
    const Records found = currentRecords(paths);
    return found.rows.empty() ? std::vector<std::string>(names.size()) : found.rows.front();
}

std::vector<StructureLine> currentStructureLines()
{
    const Records rows = currentRecords(structureAttributes);
    std::vector<StructureLine> lines;
    for (const auto& row : rows.rows) {
        lines.push_back({numberOf(row[0]), row[1], row[2], row[3], row[4]});
    }
    return lines;
}

std::vector<StructureNode> structureTree(const std::string& top, const std::vector<StructureLine>& lines)
{
    std::vector<StructureNode> nodes{{-1, 0, top, "", 1}};
    std::vector<int> branch{0};                    // the node of each level, from the top to the last line
    std::map<std::pair<int, std::string>, int> at; // parent and component: their node
    int skipBelow = 0; // lines deeper than this belong to an equal line told before
    for (const StructureLine& line : lines) {
        if (skipBelow > 0 && line.level > skipBelow) {
            continue;
        }
        branch.resize(std::min(branch.size(), static_cast<std::size_t>(line.level)));
        const int parent = branch.back();
        const auto [place, isNew] =
            at.emplace(std::pair(parent, line.component), static_cast<int>(nodes.size()));
        skipBelow = isNew ? 0 : line.level;
        if (isNew) {
            nodes.push_back({parent, line.level, line.component, line.name, 1});
            branch.push_back(place->second);
        } else {
            ++nodes[static_cast<std::size_t>(place->second)].quantity;
        }
    }
    return nodes;
}

Records totalQuantities(const std::vector<StructureLine>& lines)
{
    struct Total {
        std::string name;
        int quantity = 0;
    };
    std::map<std::string, Total> totals;
    for (const StructureLine& line : lines) {
        Total& total = totals[line.component];
        total.name = line.name;
        ++total.quantity;
    }
    Records records{{"item_number", "name", "quantity"}, {}};
    for (const auto& [item, total] : totals) {
        records.rows.push_back({item, total.name, std::to_string(total.quantity)});
    }
    return records;
}

Records differences(const std::vector<StructureLine>& first, const std::vector<StructureLine>& second)
{
    const LineCounts before = lineCounts(first);
    const LineCounts after = lineCounts(second);
    LineCounts all = before;
    all.insert(after.begin(), after.end());
    Records records{{"difference", "parent", "component", "quantity_before", "quantity_after"}, {}};
    for (const auto& entry : all) {
        const int was = countOf(before, entry.first);
        const int is = countOf(after, entry.first);
        if (was != is) {
            records.rows.push_back({was == 0  ? "added"
                                    : is == 0 ? "removed"
                                              : "changed",
                                    entry.first.first, entry.first.second, std::to_string(was),
                                    std::to_string(is)});
        }
    }
    return records;
}

std::vector<StructureNode> whereUsed(const StructureRequest& request)
{
    std::vector<StructureNode> nodes{{-1, 0, request.item, "", 1}};
    std::set<std::string> path{request.item};
    climb(nodes, path, request);
    return nodes;
}

} // namespace tools
