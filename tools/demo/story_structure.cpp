// SPDX-License-Identifier: Apache-2.0
//
// The bill of material of the bicycle.
#include <algorithm>
#include <set>

#include <velrzm/items.h>
#include <velrzm/multi_save.h>
#include <velrzm/product_structure.h>
#include <velrzm/result.h>

#include "tools/demo/bicycle.h"
#include "tools/demo/story.h"
#include "tools/process/attribute_names.h"
#include "tools/structure/builder.h"
#include "tools/structure/product_structure.h"

namespace tools::demo {

namespace {

/** The numbers of the items that the change affects: those are stored. */
std::set<std::string> storedItems()
{
    const std::string path = "logical_key@item_number";
    TextArray selected({path});
    std::string change = changeNumber;
    std::string empty;
    ItemQuery(empty.data(), change.data(), empty.data(), empty.data(), empty.data(), empty.data(),
              empty.data(), empty.data(), selected.data());
    std::set<std::string> numbers;
    for (const auto& row : currentRecords({path}).rows) {
        numbers.insert(row.front());
    }
    return numbers;
}

/** The whole parts list; lines below an item that came before are there already. */
void storeLines(StructureBuilder& builder)
{
    std::set<std::string> stored = storedItems();
    std::vector<const char*> branch; // the last item of each level
    for (const PartsListLine& line : bicycle()) {
        if (stored.insert(line.number).second) {
            builder.createItem({line.number, line.name, "PART", {}, {}});
        }
        branch.resize(static_cast<std::size_t>(line.level));
        if (!branch.empty()) {
            builder.addComponent(branch.back(), line.number, line.quantity);
        }
        branch.push_back(line.number);
    }
}

} // namespace

void storeBicycle(Narrator& tell)
{
    tell.step("Store the whole bicycle in one transaction", "MultiSaveStart, ComponentCreate, ...");
    StructureBuilder builder(changeNumber);
    const int stored = tell.call([&] {
        require(MultiSaveStart() == 1, "starting the multi-save");
        storeLines(builder);
        return MultiSaveCommit();
    });
    require(stored == 1, "storing the bicycle");
    tell.good(std::to_string(builder.items()) + " more items and " + std::to_string(builder.lines()) +
              " component lines; a line is one occurrence, so 32 spokes are 32 lines");
}

void explodeBicycle(Narrator& tell)
{
    tell.step("Explode its bill of material", "BomExplode, GetValue");
    const std::string top = bicycle().front().number;
    TextArray names({"item_number"});
    TextArray values({top});
    TextArray selected({"level"});
    const int found = tell.call([&] { return BomExplode(names.data(), values.data(), selected.data()); });
    require(found > 0, "the explosion");
    int levels = 0;
    for (int record = 0; record < found; ++record) {
        levels = std::max(levels, std::stoi(currentValue(record, "level")));
    }
    tell.good(returned("BomExplode", found) + " lines on " + std::to_string(levels) +
              " levels; here with equal lines taken together, as \"velrzm bom tree\" shows them");
    tell.tree(readStructure({top, "", 0}, Direction::Down));
}

} // namespace tools::demo
