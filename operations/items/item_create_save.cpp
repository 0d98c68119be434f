// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include <cstdlib>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

namespace {

/** The arguments of ItemCreate and ItemSave. */
struct ItemInputs {
    char* ecNumber;
    char* itemNumber;
    char* itemName;
    char* itemType;
    Pairs further;
    AttributeNames selected;
};

/** The common beginning, up to the new request object. Both operations use the defaults of ItemCreate. */
Defaults begin(Operation& op, CurrentObject& object, const ItemInputs& item)
{
    op.start();
    Defaults defaults = op.readDefaults("ItemCreate");
    toUpperCase(item.itemNumber, Letters::OfLocale);
    toUpperCase(item.ecNumber, Letters::OfLocale);
    toUpperCase(item.itemName, Letters::OfLocale);
    op.trace("- Printing Input Attributes ...");
    op.trace("\tEcNumber=", item.ecNumber);
    op.trace("\tItemNumber=", item.itemNumber);
    op.trace("\tItemName=", item.itemName);
    op.trace("\tItemType=", item.itemType);
    op.tracePairs("-     ... plus some other Input Attributes ...", "   ", item.further);
    op.tracePairs("-     ... and eventually, some Default Attributes ...", "-     ", defaults.all());
    op.traceNames(" Printing Selected Attributes ...", "-   ", item.selected);
    object.reset();
    op.capture(item.selected, 30);
    object.renew("ItemEngineeringData");
    return defaults;
}

void finish(CurrentObject& object)
{
    object.count();
    object.exit("----Exit------------entries/rc=");
}

bool bomHeaderWanted()
{
    return std::string_view("YES") == orEmpty(std::getenv("QVL_BOM_HEADER_CREATE"));
}

} // namespace

int ItemCreate(char* ecNumber, char* itemNumber, char* itemName, char* itemType,
               VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
               VELListValVELUnicodeString& selectedNames)
{
    return objectOperation("ItemCreate", [&](Operation& op, CurrentObject& object) {
        const ItemInputs item{ecNumber,     itemNumber, itemName, itemType, {inputNames, inputValues},
                              selectedNames};
        const Defaults defaults = begin(op, object, item);
        op.step(" Set Required Fields for Save");
        object.setDefaults("-     ", defaults.all());
        object.setGiven("-     ", item.further);
        object.set({
            {"logical_key@item_number", itemNumber, "   logical_key@item_number="},
            {"logical_key@loc_id", "", "   logical_key@loc_id="},
            {"il_ec_number", ecNumber, "   il_ec_number="},
            {"name", itemName, "   name="},
        });
        if (given(itemType)) {
            object.set({"item_type", itemType, "   item_type="});
        }
        object.set({
            {"design_loc_id", "", "   design_loc_id ="},
            {"update_count", "", "   update_count=", OnFailure::GoOn},
        });
        if (bomHeaderWanted()) {
            object.set({"create_bomheader", "TRUE", "  create_bomheader ="});
        }
        op.step(" Set  fields to be selected for Save");
        object.subscribe(item.selected);
        op.step(" Execute Save method");
        object.save();
        finish(object);
    });
}

int ItemSave(char* ecNumber, char* itemNumber, char* itemName, char* itemType,
             VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
             VELListValVELUnicodeString& selectedNames)
{
    return objectOperation("ItemSave", [&](Operation& op, CurrentObject& object) {
        const ItemInputs item{ecNumber,     itemNumber, itemName, itemType, {inputNames, inputValues},
                              selectedNames};
        const Defaults defaults = begin(op, object, item);
        object.set({
            {"db_object_id", "", "-  db_object_id="},
            {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
            {"il_ec_number", ecNumber, "-   il_ec_number="},
        });
        op.step("-   update_count=", "-");
        object.subscribe("update_count", OnFailure::GoOn);
        object.open();
        op.step(" Set Required Fields for Save");
        object.setDefaults("-     ", defaults.all());
        object.setGiven("-     ", item.further);
        object.set({"name", itemName, "-   name="});
        if (given(itemType)) {
            object.set({"item_type", itemType, "-   item_type="});
        }
        op.step("- Set  fields to be selected for Save");
        object.subscribe(item.selected);
        op.step("- Execute Save method");
        object.save();
        finish(object);
    });
}
