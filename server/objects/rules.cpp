// SPDX-License-Identifier: Apache-2.0
#include "server/objects/rules.h"

#include <algorithm>
#include <string>

namespace qvserver {

namespace {

const std::string idPath(objectIdPath);

std::int64_t idAt(const Rows& rows, std::size_t row)
{
    return std::get<std::int64_t>(parseNumber(rows.value(row, 0)).value());
}

/** An affected item is planned for the revision level after those that earlier changes planned for its item.
 */
void planRevisionLevel(Store& store, Values& affected)
{
    std::string& level = affected["pln_rev_level"];
    if (withoutTrailingBlanks(level).empty()) {
        const auto earlier = store.select({&classNamed("AffectedItem"),
                                           {idPath},
                                           {equals("item_number", valueOf(affected, "item_number"))}});
        level = std::to_string(earlier->size() + 1);
    }
}

/** Gives objects that the server numbers a number that no other one has. */
void numberObject(Store& store, const Class& objectClass, Values& values)
{
    constexpr std::size_t digits = 6;
    for (const Attribute& attribute : objectClass.attributes) {
        if (attribute.source != Source::Numbered ||
            !withoutTrailingBlanks(valueOf(values, attribute.path)).empty()) {
            continue;
        }
        std::string& number = values[std::string(attribute.path)];
        do {
            const std::string counter = std::to_string(store.nextNumber());
            number = attribute.text;
            number.append(digits - std::min(digits, counter.size()), '0').append(counter);
        } while (exists(store, {&objectClass, {}, {equals(attribute.path, number)}}));
    }
}

/** Items show in net_pu_flg whether they have an effectivity by product unit. */
void refreshUnitFlag(Store& store, std::string_view itemNumber)
{
    const Class& item = classNamed("ItemEngineeringData");
    const std::string flag =
        exists(store, {&classNamed("ItemProductUnitEffectivity"), {}, {equals("item_number", itemNumber)}})
            ? "Y"
            : "N";
    const auto items =
        store.select({&item, {idPath, "net_pu_flg"}, {equals("logical_key@item_number", itemNumber)}});
    for (std::size_t row = 0; row < items->size(); ++row) {
        if (items->value(row, 1) != flag) {
            store.update(item, idAt(*items, row), {{"net_pu_flg", flag}}, Count::Nothing);
        }
    }
}

/** Stores the BOM header of the item with `values`, unless there is one. */
void createBomHeader(Store& store, const Values& item)
{
    const Class& header = classNamed("BomHeader");
    Query stored = {&header};
    Values values;
    for (const std::string_view key : header.keys) {
        stored.where.push_back(equals(key, valueOf(item, key)));
        values.emplace(key, valueOf(item, key));
    }
    if (!exists(store, stored)) {
        store.insert(header, store.nextNumber(), values);
    }
}

} // namespace

void beforeCreate(Store& store, const Class& objectClass, Values& values)
{
    numberObject(store, objectClass, values);
    if (objectClass.name == "AffectedItem") {
        planRevisionLevel(store, values);
    }
}

void afterChange(Store& store, const Class& objectClass, const Values& values)
{
    if (objectClass.name == "ItemEngineeringData") {
        refreshUnitFlag(store, valueOf(values, "logical_key@item_number"));
    } else if (objectClass.name == "ItemProductUnitEffectivity") {
        refreshUnitFlag(store, valueOf(values, "item_number"));
    }
}

void obeyOrders(Store& store, const Class& objectClass, const Values& given, const Values& values)
{
    if (objectClass.name == "ItemEngineeringData" && sameText(valueOf(given, createBomHeaderPath), "TRUE")) {
        createBomHeader(store, values);
    }
}

} // namespace qvserver
