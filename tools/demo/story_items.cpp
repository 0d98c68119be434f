// SPDX-License-Identifier: Apache-2.0
//
// An engineering change and the items that it affects.
#include <velrzm/engineering_changes.h>
#include <velrzm/items.h>

#include "tools/demo/story.h"
#include "tools/process/attribute_names.h"

namespace tools::demo {

namespace {

struct Part {
    const char* number;
    const char* name;
    const char* type;
    const char* massInGrams;
};

constexpr Part firstParts[] = {
    {"CB-1000", "City bicycle", "PRODUCT", "14900"},
    {"CB-2000", "Frame with fork", "ASSEMBLY", "3400"},
    {"CB-3100", "Front wheel", "ASSEMBLY", "1650"},
    {"CB-3200", "Rear wheel", "ASSEMBLY", "2150"},
};

} // namespace

void createChange(Narrator& tell)
{
    tell.step("Create an engineering change", "EngineeringChangeCreate");
    const int created = tell.call(
        [] { return EngineeringChangeCreate("ec-1001", "City bicycle, first release", "", "", "jdoe"); });
    require(created == 1, "creating the change");
    tell.good("ec-1001 is stored as " + std::string(changeNumber) + " with the object identifier " +
              currentValue(0, "db_object_id"));
}

void readChange(Narrator& tell)
{
    tell.step("Open it and read it back, defaults included", "EngineeringChangeOpen, GetValue");
    const std::vector<std::string> names = {
        "id", "desc", "status", "initiator@person_identifier", "reason_code", "site", "update_count"};
    TextArray selected(names);
    std::string number = changeNumber;
    std::string noIdentifier;
    const int opened =
        tell.call([&] { return EngineeringChangeOpen(noIdentifier.data(), number.data(), selected.data()); });
    require(opened == 1, "opening the change");
    Records attributes{{"attribute", "value"}, {}};
    for (const std::string& name : names) {
        attributes.rows.push_back({name, currentValue(0, name)});
    }
    tell.table(attributes);
}

void createItems(Narrator& tell)
{
    tell.step("Create items under the change", "ItemCreate");
    for (const Part& part : firstParts) {
        std::string change = changeNumber;
        std::string number = part.number;
        std::string name = part.name;
        std::string type = part.type;
        VELListValVELUnicodeString names = textList({"mass_g"});
        VELListValVELUnicodeString values = textList({part.massInGrams});
        VELListValVELUnicodeString selected = textList({"logical_key@item_number", "name"});
        const int created = tell.call([&] {
            return ItemCreate(change.data(), number.data(), name.data(), type.data(), names, values,
                              selected);
        });
        require(created == 1, "creating an item");
        tell.good(currentValue(0, "logical_key@item_number") + "  " + currentValue(0, "name"));
    }
}

void linkItems(Narrator& tell)
{
    tell.step("Record that the change acts on them", "AffectedItemCreate");
    for (const Part& part : firstParts) {
        std::string change = changeNumber;
        std::string number = part.number;
        std::string action = "add";
        TextArray selected({});
        const int linked = tell.call(
            [&] { return AffectedItemCreate(change.data(), number.data(), action.data(), selected.data()); });
        require(linked == 1, "linking an item");
    }
    tell.good(std::to_string(std::size(firstParts)) + " items are affected by " + changeNumber);
}

void queryItems(Narrator& tell)
{
    tell.step("Search the items of the change", "ItemQuery, GetValue");
    const std::vector<std::string> names = {"logical_key@item_number", "name",   "item_type",
                                            "ai_obj@item_status",      "mass_g", "unit_of_measure"};
    TextArray selected(names);
    std::string number = "cb-";
    std::string change = changeNumber;
    std::string empty;
    const int found = tell.call([&] {
        return ItemQuery(number.data(), change.data(), empty.data(), empty.data(), empty.data(), empty.data(),
                         empty.data(), empty.data(), selected.data());
    });
    require(found == static_cast<int>(std::size(firstParts)), "the search");
    tell.table(currentRecords(names));
    tell.good(returned("ItemQuery", found));
}

void openMissingChange(Narrator& tell)
{
    tell.step("Open a change that does not exist: refused and reported", "EngineeringChangeOpen");
    TextArray selected({"desc"});
    std::string number = "EC-9999";
    std::string noIdentifier;
    tell.bad(returned("EngineeringChangeOpen", tell.call([&] {
        return EngineeringChangeOpen(noIdentifier.data(), number.data(), selected.data());
    })));
}

} // namespace tools::demo
