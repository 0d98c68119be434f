// SPDX-License-Identifier: Apache-2.0
//
// Bills of material.
#include <velrzm/product_structure.h>

#include "tools/failures.h"
#include "tools/operation_command.h"
#include "tools/structure.h"
#include "tools/structure_drawing.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter topItem = {"item", "Item as it is stored", Need::Required};
constexpr Parameter lineChange = {"--ec", "Lines of this change only"};
constexpr Parameter levels = {"--level", "How many levels; by default all"};

StructureRequest request(Call& call, const char* item)
{
    const std::string limit = call.text("--level");
    if (limit.find_first_not_of("0123456789") != std::string::npos) {
        throw WrongUsage("--level " + limit + ": this is no number of levels");
    }
    return {call.text(item), call.text("--ec"), limit};
}

std::vector<StructureLine> lines(Call& call, const char* item)
{
    call.found(explode(request(call, item), structureAttributes));
    return currentStructureLines();
}

Outcome explodeStructure(Call& call)
{
    return call.list(explode(request(call, "item"), call.selected()));
}

Outcome drawTree(Call& call)
{
    const std::vector<StructureLine> found = lines(call, "item");
    return found.empty() ? Outcome{{{"item_number"}, {}}, Shape::List}
                         : drawing(structureTree(call.text("item"), found));
}

Outcome compareStructures(Call& call)
{
    Outcome outcome{differences(lines(call, "before"), lines(call, "after")), Shape::List};
    outcome.mayBeEmpty = true;
    return outcome;
}

} // namespace

CommandGroup structureCommands()
{
    return {"bom",
            "Bills of material",
            {{"header",
              "Make sure that an item has a bill-of-material header",
              "velrzm bom header A-100 --ec EC-100",
              {parameters::item, parameters::change},
              {"db_object_id"},
              [](Call& call) {
                  return call.object(
                      BomHeaderCreate(call.text("--ec"), call.text("item"), call.selectedArray()));
              }},
             {"explode",
              "List all lines of a bill of material, depth first",
              "velrzm bom explode A-100 --level 2 --format csv",
              {topItem, lineChange, levels},
              structureAttributes,
              explodeStructure},
             {"tree",
              "Draw a bill of material as a tree, equal lines taken together",
              "velrzm bom tree A-100",
              {topItem, lineChange, levels},
              {},
              drawTree},
             {"flat",
              "Add up how often each component occurs, over all levels",
              "velrzm bom flat A-100",
              {topItem, lineChange, levels},
              {},
              [](Call& call) {
                  return Outcome{totalQuantities(lines(call, "item")), Shape::List};
              }},
             {"where-used",
              "Show which structures use an item, up to the topmost",
              "velrzm bom where-used B-200",
              {topItem, lineChange, levels},
              {},
              [](Call& call) { return drawing(whereUsed(request(call, "item"))); }},
             {"compare",
              "Show the lines added, removed and changed in number between two structures",
              "velrzm bom compare A-100 A-101",
              {{"before", "Item of the first structure", Need::Required},
               {"after", "Item of the second structure", Need::Required},
               lineChange,
               levels},
              {},
              compareStructures}}};
}

} // namespace tools
