// SPDX-License-Identifier: Apache-2.0
//
// Items.
#include <algorithm>
#include <cstddef>
#include <utility>

#include <velrzm/items.h>

#include "tools/commands/attribute_check.h"
#include "tools/commands/operation_command.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr const char* itemClass = "ItemEngineeringData";

const ShownAttributes itemAttributes = {itemClass,
                                        {"logical_key@item_number", "il_ec_number", "name", "item_type",
                                         "description", "update_count", "db_object_id"}};

const std::vector<Parameter> searchParameters = {
    {"item", "Beginning of the item number, or \"=\" and the whole number", Need::Optional,
     Parameter::Takes::ObjectNumber},
    {"--ec CHANGE", "Number of a change that affects the item", Need::Optional,
     Parameter::Takes::ObjectNumber},
    {"--type CODE", "Item type code", Need::Optional, Parameter::Takes::SearchText},
    {"--status", "Beginning of the status under the change", Need::Optional, Parameter::Takes::SearchText},
    {"--name", "Beginning of the name", Need::Optional, Parameter::Takes::SearchText},
    {"--description", "Beginning of the description", Need::Optional, Parameter::Takes::SearchText},
    {"--sort-by-ec", "Sort by change number instead of item number", Need::Optional,
     Parameter::Takes::Nothing},
    {"--in-development", "Search items in development, whether a change affects them or not", Need::Optional,
     Parameter::Takes::Nothing}};

Outcome createItem(Call& call)
{
    return call.object(ItemCreate(call.text("--ec"), call.text("item"), call.text("--name"),
                                  call.text("--type"), call.inputNames(), call.inputValues(),
                                  call.selectedList()));
}

/** The attributes that have a value, of all that there are. */
Outcome openWhole(Call& call)
{
    if (call.has("--select")) {
        throw WrongUsage("item open: --all shows every attribute, so --select has nothing to choose");
    }
    constexpr std::ptrdiff_t portion = 50; // as many as an operation reads back
    const std::vector<std::string> names = attributesOf(itemClass);
    Outcome whole{{{}, {{}}}, Shape::Object};
    for (auto first = names.begin(); first != names.end();) {
        const auto end = first + std::min(portion, names.end() - first);
        const std::vector<std::string> some(first, end);
        VELListValVELUnicodeString list = textList(some);
        call.nothing(ItemOpen(call.text("item"), call.text("--ec"), list));
        for (const std::string& name : some) {
            std::string value = currentValue(0, name);
            if (!value.empty()) {
                whole.records.columns.push_back(name);
                whole.records.rows.front().push_back(std::move(value));
            }
        }
        first = end;
    }
    return whole;
}

Outcome openItem(Call& call)
{
    if (call.has("--all")) {
        return openWhole(call);
    }
    return call.object(ItemOpen(call.text("item"), call.text("--ec"), call.selectedList()));
}

/** ItemSave always sets the name; without a new one the item keeps its own. */
std::string nameToSave(Call& call)
{
    if (call.has("--name")) {
        return call.text("--name");
    }
    VELListValVELUnicodeString nameOnly = textList({"name"});
    call.nothing(ItemOpen(call.text("item"), call.text("--ec"), nameOnly));
    return currentValue(0, "name");
}

Outcome saveItem(Call& call)
{
    std::string name = nameToSave(call);
    return call.object(ItemSave(call.text("--ec"), call.text("item"), name.data(), call.text("--type"),
                                call.inputNames(), call.inputValues(), call.selectedList()));
}

Outcome queryItems(Call& call)
{
    std::string sortBy = call.has("--sort-by-ec") ? "2" : "";
    std::string queryType = call.has("--in-development") ? "DEV" : "";
    return call.list(ItemQuery(call.text("item"), call.text("--ec"), call.text("--type"),
                               call.text("--status"), call.text("--name"), call.text("--description"),
                               sortBy.data(), queryType.data(), call.selectedArray()));
}

/** Stores the calling system's identifier of an item, or shows the one that is stored. */
Outcome linkItem(Call& call)
{
    if (call.has("identifier")) {
        return call.object(ItemAssociationSave(call.text("--ec"), call.text("item"), call.text("identifier"),
                                               call.selectedArray()));
    }
    return call.object(
        ItemAssociationOpen(call.text("--id"), call.text("item"), call.text("--ec"), call.selectedArray()));
}

} // namespace

CommandGroup itemCommands()
{
    using namespace parameters;
    return {
        "item",
        "Create, change, show and search items\n\n"
        "An item is a part, an assembly or anything else that has a number. It is stored under an "
        "engineering change, and the same number may be stored under several, so --ec is part of what "
        "names an item. Names are stored in upper case. --set stores attributes of the site's own.",
        {{"create",
          "Store a new item",
          "velrzm item create A-100 --ec EC-100 --name Bracket --type PART --set mass_g=120",
          {item, change, name, type, set},
          itemAttributes,
          createItem},
         {"save",
          "Change a stored item",
          "velrzm item save A-100 --ec EC-100 --set mass_g=115",
          {item, change, {"--name", "New name; by default the item keeps its own"}, type, set},
          itemAttributes,
          saveItem},
         {"open",
          "Show a stored item",
          "velrzm item open A-100 --ec EC-100 --select name,mass_g",
          {item,
           change,
           {"--all", "Show every attribute that the item has a value of", Need::Optional,
            Parameter::Takes::Nothing}},
          itemAttributes,
          openItem},
         {"query",
          "Search items\n\n"
          "Without --in-development an item is found once for each engineering change that affects it. "
          "Whatever is given must match; \"velrzm item query\" alone finds all. In the item, the change, "
          "the status, the name and the description \"%\" stands for any text and \"_\" for any one "
          "character.",
          "velrzm item query A- --ec EC-100 --format json",
          searchParameters,
          {itemClass, {"logical_key@item_number", "name", "item_type", "description", "il_ec_number"}},
          queryItems},
         {"header",
          "Store a new item header and, with --ec, release it under that change",
          "velrzm item header A-200 --name Plate --ec EC-100",
          {item, change, name, {"--description", "Description"}, type, securityLevel, securityCategory},
          {},
          [](Call& call) {
              call.nothing(ItemHeaderCreate(call.text("--ec"), call.text("item"), call.text("--name"),
                                            call.text("--description"), call.text("--type"),
                                            call.text("--security-level"), call.text("--security-category")));
              return Outcome{currentRecords({"db_object_id"})};
          }},
         {"effectivity",
          "Store from which unit of a product on an item is effective",
          "velrzm item effectivity A-100 BICYCLE 25 --ec EC-100",
          {item,
           {"product", "Product", Need::Required},
           {"unit", "First unit of the product", Need::Required},
           change,
           set},
          {"ItemProductUnitEffectivity", {"item_number", "ecid", "prod_id", "cut_in_unit", "db_object_id"}},
          [](Call& call) {
              return call.object(ItemPUEffectivityCreate(
                  call.text("--ec"), call.text("item"), call.text("product"), call.text("unit"),
                  call.inputNames(), call.inputValues(), call.selectedList()));
          }},
         {"link",
          "Store the identifier that the calling system has for an item, or show it",
          "velrzm item link A-100 4711 --ec EC-100",
          {item,
           {"identifier", "Identifier to store; without it the stored one is shown"},
           change,
           identifier},
          {"ItemAssociationData", {"logical_key@item_number", "il_ec_number", "alias_xref", "db_object_id"}},
          linkItem}}};
}

} // namespace tools
