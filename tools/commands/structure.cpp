// SPDX-License-Identifier: Apache-2.0
//
// Bills of material.
#include <velrzm/product_structure.h>

#include "tools/commands/operation_command.h"
#include "tools/output/text.h"
#include "tools/page/page.h"
#include "tools/process/failures.h"
#include "tools/structure/comparison.h"
#include "tools/structure/graph.h"
#include "tools/structure/occurrences.h"
#include "tools/structure/product_structure.h"
#include "tools/structure/structure_tree.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter lineChange = {"--ec CHANGE", "Lines of this change only", Need::Optional,
                                  Parameter::Takes::ObjectNumber};
constexpr Parameter expand = {"--expand", "Repeat the branch of an item wherever the item occurs",
                              Need::Optional, Parameter::Takes::Nothing};
constexpr Parameter levels = {"--level NUMBER", "How many levels; 0, or none given, is all of them",
                              Need::Optional, Parameter::Takes::WholeNumber};

const ShownAttributes itemName = {"ItemEngineeringData", {"name"}};

int numberOfLevels(Call& call)
{
    return wholeNumber(call.text("--level")).value_or(0);
}

ProductStructure readDown(Call& call, const char* item, const char* change = "--ec")
{
    return readStructure({call.text(item), call.text(change), numberOfLevels(call), true}, Direction::Down,
                         call.selected());
}

/** The same of the argument "item", which must have lines. */
ProductStructure readBillOfMaterial(Call& call)
{
    ProductStructure structure = readDown(call, "item");
    if (structure.items.front().parts.empty()) {
        throw NothingFound(structure.items.front().number + " has no bill of material");
    }
    return structure;
}

Repeated repeatedItems(Call& call)
{
    return call.has("--expand") ? Repeated::Expanded : Repeated::Referred;
}

Outcome explodeStructure(Call& call)
{
    TextArray names({"item_number", "ec_number", "max_level"});
    TextArray values({call.text("item"), call.text("--ec"), call.text("--level")});
    return call.list(BomExplode(names.data(), values.data(), call.selectedArray()));
}

Outcome drawTree(Call& call)
{
    const ProductStructure structure = readBillOfMaterial(call);
    const bool isForced = call.has("--force");
    Outcome outcome = treeOutcome(structure, repeatedItems(call));
    outcome.drawn[Format::Dot] = [=] { return structureGraph(structure); };
    outcome.drawn[Format::Svg] = [=] {
        if (!isForced) {
            requireDrawable(structure);
        }
        return drawnGraph(structureGraph(structure));
    };
    const std::string change = call.text("--ec");
    outcome.drawn[Format::Html] = [=] {
        return structurePage(structure, change.empty() ? "" : "lines of " + change);
    };
    return outcome;
}

Outcome showUsers(Call& call)
{
    const ProductStructure structure = readStructure(
        {call.text("item"), call.text("--ec"), numberOfLevels(call)}, Direction::Up, call.selected());
    if (structure.items.front().parts.empty()) {
        throw NothingFound("no structure uses " + structure.items.front().number);
    }
    return treeOutcome(structure, repeatedItems(call));
}

Outcome compareStructures(Call& call)
{
    const bool isOtherItem = call.has("after");
    const bool isOtherChange = call.has("--after-ec");
    if (!isOtherItem && !isOtherChange) {
        throw WrongUsage("bom compare: nothing to compare " + std::string(call.text("before")) +
                         " with; name a second item or give --after-ec");
    }
    const ProductStructure before = readDown(call, "before");
    const ProductStructure after =
        readDown(call, isOtherItem ? "after" : "before", isOtherChange ? "--after-ec" : "--ec");
    const Comparison comparison = compared(before, after);
    Outcome outcome{differences(comparison), Shape::List, "no difference"};
    const auto title = [](const ProductStructure& structure, const std::string& change) {
        return structure.items.front().number + (change.empty() ? "" : " (" + change + ")");
    };
    const std::string titles = title(before, call.text("--ec")) + " → " +
                               title(after, call.text(isOtherChange ? "--after-ec" : "--ec"));
    outcome.drawn[Format::Html] = [=] { return comparisonPage(comparison, titles); };
    return outcome;
}

} // namespace

CommandGroup structureCommands()
{
    return {
        "bom",
        "Show bills of material, add them up and compare them\n\n"
        "A bill of material is the component lines of an item and, level by level, those of its "
        "components. \"velrzm component\" and \"velrzm import\" store lines.",
        {{"header",
          "Make sure that an item has a bill-of-material header",
          "velrzm bom header A-100 --ec EC-100",
          {parameters::item, parameters::change},
          {"BomHeader", {"db_object_id"}},
          [](Call& call) {
              return call.object(BomHeaderCreate(call.text("--ec"), call.text("item"), call.selectedArray()));
          }},
         {"explode",
          "List all lines of a bill of material, depth first",
          "velrzm bom explode A-100 --level 2 --format csv",
          {parameters::item, lineChange, levels},
          {"Component", {"level", "item_number", "comp_item_number", "comp_seq_nm", "comp_item@name"}},
          explodeStructure},
         {"tree",
          "Draw a bill of material as a tree, as a graph of its items or as a page for a browser\n\n"
          "Equal lines of an item are taken together, with their number. The branch of an item that occurs "
          "several times is drawn once; \"(see above)\" stands where it occurs again. The page is one file: "
          "it folds, searches, adds up, tells where an item is used, and needs no network.",
          "velrzm bom tree A-100 --select name,item_type --format html > A-100.html",
          {parameters::item,
           lineChange,
           levels,
           expand,
           {"--force", "Draw a picture even if it takes a long time", Need::Optional,
            Parameter::Takes::Nothing}},
          itemName,
          drawTree,
          {{"dot", Format::Dot}, {"svg", Format::Svg}, {"html", Format::Html}}},
         {"flat",
          "Add up how often each component occurs, over all levels",
          "velrzm bom flat A-100",
          {parameters::item, lineChange, levels},
          itemName,
          [](Call& call) {
              return Outcome{totalQuantities(readBillOfMaterial(call)), Shape::List};
          }},
         {"where-used",
          "Show which structures use an item, up to the topmost",
          "velrzm bom where-used B-200",
          {parameters::item, lineChange, levels, expand},
          itemName,
          showUsers},
         {"compare",
          "Show the components added, removed and changed in number between two structures\n\n"
          "The structures are those of two items, or that of one item under two changes.",
          "velrzm bom compare A-100 A-101",
          {{"before", "Item of the first structure", Need::Required, Parameter::Takes::ObjectNumber},
           {"after", "Item of the second structure; the same unless given", Need::Optional,
            Parameter::Takes::ObjectNumber},
           lineChange,
           {"--after-ec CHANGE", "Lines of this change only in the second structure; --ec unless given",
            Need::Optional, Parameter::Takes::ObjectNumber},
           levels},
          itemName,
          compareStructures,
          {{"html", Format::Html}}}}};
}

} // namespace tools
