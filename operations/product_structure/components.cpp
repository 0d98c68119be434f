// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"
#include "operations/product_structure/deletion.h"

using namespace velrzm;

namespace {

constexpr const char* componentClass = "Component";

} // namespace

int ComponentCreate(char* ecNumber, char* itemNumber, char* componentItemNumber,
                    char* componentSequenceNumber, char* componentType, char** attributeNames)
{
    return objectOperation("ComponentCreate", [&](Operation& op, CurrentObject& object) {
        op.start();
        op.trace("- Input Attributes ...");
        op.trace("-    EcNumber=", ecNumber, "-");
        op.trace("-    ItemNumber=", itemNumber, "-");
        op.trace("-    ComponentItemNumber=", componentItemNumber, "-");
        op.trace("-    ComponentSequenceNumber=", componentSequenceNumber, "-");
        op.trace("-    ComponentType=", componentType, "-");
        op.traceNames("- Selected Attributes are ...", "-    ", attributeNames);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew(componentClass);
        op.step("- Set Required Fields for cl_save");
        object.set({
            {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
            {"logical_key@comp_item_number", componentItemNumber, "-   logical_key@comp_item_number="},
            {"logical_key@comp_seq_nm", componentSequenceNumber, "-   logical_key@comp_seq_nm="},
        });
        if (given(componentType)) {
            object.set({"item_type@curr_key", componentType, "   item_type@curr_key="});
        }
        object.set({
            {"il_ec_number", ecNumber, "-   il_ec_number="},
            {"update_count", "", "-   update_count=", OnFailure::GoOn},
        });
        op.step("- Set  fields to be selected for Save");
        object.subscribe(attributeNames);
        op.step("- Execute Save method");
        object.save();
        object.count();
        object.exit();
    });
}

int ComponentDelete(char* dbObjectId, char* ecNumber, char* itemNumber, char* componentItemNumber,
                    char* componentSequenceNumber)
{
    return deleteRecord(
        {"ComponentDelete- ", componentClass, " Execute component delete"}, dbObjectId, ecNumber,
        {
            {"\tItemNumber=", {"logical_key@item_number", itemNumber, "    logical_key@item_numbe="}},
            {nullptr, {"logical_key@loc_id", "", "    logical_key@loc_id="}},
            {"\tCompItemNumber=",
             {"logical_key@comp_item_number", componentItemNumber, "    logical_key@comp_item_number="}},
            {"\tSeqNumber=",
             {"logical_key@comp_seq_nm", componentSequenceNumber, "    logical_key@comp_seq_nm="}},
        });
}

int ComponentOpen(char* dbObjectId, char* ecNumber, VELListValVELUnicodeString& attributeNames)
{
    return objectOperation("ComponentOpen", [&](Operation& op, CurrentObject& object) {
        toUpperCase(ecNumber, Letters::OfLocale);
        op.start();
        op.trace("-    DbObjectId=", dbObjectId, "-");
        op.trace("-    EcNumber=", ecNumber, "-");
        op.traceNames("- Selected Attributes are ...", "-   ", attributeNames);
        op.log("DbObjectId=", dbObjectId, ", EcNumber=", ecNumber);
        object.reset();
        op.capture(attributeNames, 50);
        object.renew(componentClass);
        object.set({
            {"db_object_id", dbObjectId, "-  db_object_id="},
            {"il_ec_number", ecNumber, "-  il_ec_number=", OnFailure::Stop, Detail::None},
        });
        op.step(" Set  fields to be selected for Open");
        object.subscribe(attributeNames);
        object.open();
        op.log("...Component was ", object.count() ? "found" : "not found");
    });
}
