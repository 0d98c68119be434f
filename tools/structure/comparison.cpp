// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/comparison.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tools {

namespace {

/** The items of a structure by number; those at the top have none. */
using ItemsByNumber = std::unordered_map<std::string_view, const StructureItem*>;

ItemsByNumber itemsByNumber(const ProductStructure& structure)
{
    ItemsByNumber items = {{"", &structure.items.front()}};
    for (auto item = structure.items.begin() + 1; item != structure.items.end(); ++item) {
        items.emplace(item->number, &*item);
    }
    return items;
}

class Comparer {
public:
    Comparer(const ProductStructure& before, const ProductStructure& after)
        : before_(before), after_(after), itemsBefore_(itemsByNumber(before)),
          itemsAfter_(itemsByNumber(after))
    {}

    std::vector<ComparedItem> compare()
    {
        placeOf("", after_.items.front());
        for (std::size_t place = 0; place < items_.size(); ++place) {
            const std::string number = place == 0 ? "" : items_[place].number;
            std::vector<ComparedPart> parts;
            addParts(parts, after_, itemsAfter_, number, &ComparedPart::after);
            addParts(parts, before_, itemsBefore_, number, &ComparedPart::before);
            items_[place].parts = std::move(parts);
        }
        return std::move(items_);
    }

private:
    /** Adds the parts of an item in one of the structures. */
    void addParts(std::vector<ComparedPart>& parts, const ProductStructure& structure,
                  const ItemsByNumber& items, std::string_view number, std::int64_t ComparedPart::*quantity)
    {
        const auto found = items.find(number);
        if (found == items.end()) {
            return;
        }
        std::unordered_map<std::size_t, std::size_t> known; // item: its place in the parts
        for (const ComparedPart& part : parts) {
            known.emplace(part.item, known.size());
        }
        for (const StructurePart& part : found->second->parts) {
            const StructureItem& item = structure.items[part.item];
            const std::size_t place = placeOf(item.number, item);
            const auto [entry, isNew] = known.emplace(place, parts.size());
            if (isNew) {
                parts.push_back({place, 0, 0, part.changes});
            }
            parts[entry->second].*quantity = part.quantity;
        }
    }

    std::size_t placeOf(const std::string& number, const StructureItem& item)
    {
        const auto [entry, isNew] = places_.emplace(number, items_.size());
        if (isNew) {
            items_.push_back({item.number, item.values, {}});
        }
        return entry->second;
    }

    const ProductStructure& before_;
    const ProductStructure& after_;
    ItemsByNumber itemsBefore_;
    ItemsByNumber itemsAfter_;
    std::unordered_map<std::string, std::size_t>
        places_; // of the items, by number; none for the one at the top
    std::vector<ComparedItem> items_;
};

} // namespace

const char* differenceOf(const ComparedPart& part)
{
    return part.before == part.after ? ""
           : part.before == 0        ? "added"
           : part.after == 0         ? "removed"
                                     : "changed";
}

Comparison compared(const ProductStructure& before, const ProductStructure& after)
{
    return {after.attributes, Comparer(before, after).compare(), after.levels};
}

Records differences(const Comparison& comparison)
{
    Records records{{"difference", "parent", "component"}, {}};
    const std::vector<std::string>& attributes = comparison.attributes;
    records.columns.insert(records.columns.end(), attributes.begin(), attributes.end());
    records.columns.insert(records.columns.end(), {"quantity_before", "quantity_after"});
    for (const ComparedItem& parent : comparison.items) {
        const bool isTop = &parent == &comparison.items.front();
        for (const ComparedPart& part : parent.parts) {
            if (part.before != part.after) {
                const ComparedItem& component = comparison.items[part.item];
                std::vector<std::string>& fields = records.rows.emplace_back(std::vector<std::string>{
                    differenceOf(part), isTop ? "" : parent.number, component.number});
                fields.insert(fields.end(), component.values.begin(), component.values.end());
                fields.insert(fields.end(), {std::to_string(part.before), std::to_string(part.after)});
            }
        }
    }
    std::sort(records.rows.begin(), records.rows.end(), [](const auto& left, const auto& right) {
        constexpr std::size_t parent = 1;
        constexpr std::size_t component = 2;
        return std::tie(left[parent], left[component]) < std::tie(right[parent], right[component]);
    });
    return records;
}

} // namespace tools
