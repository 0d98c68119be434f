// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/comparison.h"

#include <map>
#include <utility>

namespace tools {

namespace {

/** The lines of a parent and a component in both structures. */
struct Compared {
    std::string name; // of the component
    std::int64_t before = 0;
    std::int64_t after = 0;
};
using ComparedParts = std::map<std::pair<std::string, std::string>, Compared>;

void add(ComparedParts& parts, const ProductStructure& structure, std::int64_t Compared::*quantity)
{
    for (const StructureItem& item : structure.items) {
        const bool isTop = &item == &structure.items.front();
        for (const StructurePart& part : item.parts) {
            const StructureItem& component = structure.items[part.item];
            Compared& compared = parts[{isTop ? "" : item.number, component.number}];
            compared.name = component.values.front();
            compared.*quantity = part.quantity;
        }
    }
}

const char* differenceOf(const Compared& part)
{
    return part.before == 0 ? "added" : part.after == 0 ? "removed" : "changed";
}

} // namespace

Records differences(const ProductStructure& before, const ProductStructure& after)
{
    ComparedParts parts;
    add(parts, before, &Compared::before);
    add(parts, after, &Compared::after);
    Records records{{"difference", "parent", "component", "name", "quantity_before", "quantity_after"}, {}};
    for (const auto& [ends, part] : parts) {
        if (part.before != part.after) {
            records.rows.push_back({differenceOf(part), ends.first, ends.second, part.name,
                                    std::to_string(part.before), std::to_string(part.after)});
        }
    }
    return records;
}

} // namespace tools
