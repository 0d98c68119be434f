// SPDX-License-Identifier: Apache-2.0
//
// Bills of material.
#include <velrzm/product_structure.h>

#include "tools/commands/operation_command.h"
#include "tools/process/failures.h"
#include "tools/structure/drawing.h"
#include "tools/structure/graph.h"
#include "tools/structure/structure.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter topItem = {"item", "Item as it is stored", Need::Required};
constexpr Parameter lineChange = {"--ec CHANGE", "Lines of this change only"};
constexpr Parameter levels = {"--level NUMBER", "How many levels; by default all"};

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

/** The graph of a structure, with the name of its top, which no line of it tells. */
std::string graph(const StructureRequest& request, std::vector<StructureNode> nodes)
{
    nodes.front().name = topItemValues(request, {"name"}).front();
    return structureGraph(nodes);
}

Outcome drawTree(Call& call)
{
    const std::vector<StructureLine> found = lines(call, "item");
    if (found.empty()) {
        return {{{"item_number"}, {}}, Shape::List};
    }
    const StructureRequest asked = request(call, "item");
    const std::vector<StructureNode> nodes = structureTree(asked.item, found);
    Outcome outcome = drawing(nodes);
    outcome.drawn[Format::Dot] = [=] { return graph(asked, nodes); };
    outcome.drawn[Format::Svg] = [=] { return drawnGraph(graph(asked, nodes)); };
    return outcome;
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
            "Show bills of material, add them up and compare them\n\n"
            "A bill of material is the component lines of an item and, level by level, those of its "
            "components. \"velrzm component\" and \"velrzm import\" store lines.",
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
              "Draw a bill of material as a tree, equal lines taken together, or as a graph of its items",
              "velrzm bom tree A-100 --format svg > A-100.svg",
              {topItem, lineChange, levels},
              {},
              drawTree,
              {{"dot", Format::Dot}, {"svg", Format::Svg}}},
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
