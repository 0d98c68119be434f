// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/builder.h"

#include <velrzm/engineering_changes.h>
#include <velrzm/items.h>
#include <velrzm/product_structure.h>

#include "tools/process/attribute_names.h"
#include "tools/process/interruption.h"
#include "tools/process/library_output.h"

namespace tools {

namespace {

void require(int result, const std::string& what)
{
    checkInterruption();
    if (result != 1) {
        throwServerFailure(what);
    }
}

} // namespace

void StructureBuilder::createItem(const NewItem& item, bool isAssembly)
{
    NewItem stored = item;
    if (isAssembly) {
        stored.attributeNames.emplace_back("create_bomheader");
        stored.attributeValues.emplace_back("TRUE");
    }
    VELListValVELUnicodeString names = textList(stored.attributeNames);
    VELListValVELUnicodeString values = textList(stored.attributeValues);
    VELListValVELUnicodeString nothing;
    require(ItemCreate(change_.data(), stored.number.data(), stored.name.data(), stored.type.data(), names,
                       values, nothing),
            "item " + stored.number);
    ++items_;
}

void StructureBuilder::changeItem(const NewItem& item, const std::string& change)
{
    NewItem stored = item;
    std::string itsChange = change;
    VELListValVELUnicodeString names = textList(item.attributeNames);
    VELListValVELUnicodeString values = textList(item.attributeValues);
    VELListValVELUnicodeString nothing;
    require(ItemSave(itsChange.data(), stored.number.data(), stored.name.data(), stored.type.data(), names,
                     values, nothing),
            "changing item " + stored.number);
}

void StructureBuilder::recordAffectedItem(const std::string& item, const std::string& action)
{
    std::string number = item;
    std::string what = action;
    TextArray nothing({});
    require(AffectedItemCreate(change_.data(), number.data(), what.data(), nothing.data()),
            "affected item " + item);
}

void StructureBuilder::removeComponent(const ComponentKey& line)
{
    ComponentKey removed = line;
    require(ComponentDelete(removed.identifier.data(), removed.change.data(), removed.parent.data(),
                            removed.component.data(), removed.sequence.data()),
            "removing component " + line.component + " of " + line.parent);
}

void StructureBuilder::createHeader(const std::string& item)
{
    std::string number = item;
    TextArray nothing({});
    require(BomHeaderCreate(change_.data(), number.data(), nothing.data()),
            "bill-of-material header of " + item);
}

void StructureBuilder::addComponent(const std::string& parent, const std::string& component, int quantity)
{
    constexpr int step = 10;
    std::string parentNumber = parent;
    std::string componentNumber = component;
    std::string noType;
    TextArray nothing({});
    const std::string line = "component " + component + " of " + parent;
    for (int occurrence = 0; occurrence < quantity; ++occurrence) {
        std::string sequence = std::to_string(lastSequence_[parent] += step);
        require(ComponentCreate(change_.data(), parentNumber.data(), componentNumber.data(), sequence.data(),
                                noType.data(), nothing.data()),
                line);
        ++lines_;
    }
}

} // namespace tools
