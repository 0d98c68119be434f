// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

namespace {

constexpr const char* componentClass = "Component";

} // namespace

int ComponentCreate(char* ecNumber, char* itemNumber, char* componentItemNumber,
                    char* componentSequenceNumber, char* componentType, char** attributeNames)
{
    ObjectOperation op("ComponentCreate");
    op.start();
    op.trace("- Input Attributes ...");
    op.trace("-    EcNumber=", ecNumber, "-");
    op.trace("-    ItemNumber=", itemNumber, "-");
    op.trace("-    ComponentItemNumber=", componentItemNumber, "-");
    op.trace("-    ComponentSequenceNumber=", componentSequenceNumber, "-");
    op.trace("-    ComponentType=", componentType, "-");
    op.traceNames("- Selected Attributes are ...", "-    ", attributeNames);
    op.reset();
    op.capture(attributeNames, 30);
    op.renew(componentClass);
    op.step("- Set Required Fields for cl_save");
    op.set({
        {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
        {"logical_key@loc_id", "", "-   logical_key@loc_id="},
        {"logical_key@comp_item_number", componentItemNumber, "-   logical_key@comp_item_number="},
        {"logical_key@comp_seq_nm", componentSequenceNumber, "-   logical_key@comp_seq_nm="},
    });
    if (given(componentType)) {
        op.set({"item_type@curr_key", componentType, "   item_type@curr_key="});
    }
    op.set({
        {"il_ec_number", ecNumber, "-   il_ec_number="},
        {"update_count", "", "-   update_count=", OnFailure::GoOn},
    });
    op.step("- Set  fields to be selected for Save");
    op.subscribe(attributeNames);
    op.step("- Execute Save method");
    op.save();
    op.count();
    op.exit();
    return entries;
}

int ComponentDelete(char* dbObjectId, char* ecNumber, char* itemNumber, char* componentItemNumber,
                    char* componentSequenceNumber)
{
    ObjectOperation op("ComponentDelete- ");
    op.trace("-----start------");
    op.trace(" \tDbObjectId=", dbObjectId, "-");
    op.trace("\tEcNumber=", ecNumber);
    op.trace("\tItemNumber=", itemNumber);
    op.trace("\tCompItemNumber=", componentItemNumber);
    op.trace("\tSeqNumber=", componentSequenceNumber);
    op.reset();
    NbSelectedAttribute = 0;
    op.renew(componentClass);
    op.step(" set required fields for cl_delete-");
    op.set({
        {"db_object_id", dbObjectId, "    db_object_id="},
        {"il_ec_number", ecNumber, "    il_ec_number="},
        {"logical_key@item_number", itemNumber, "    logical_key@item_numbe="},
        {"logical_key@loc_id", "", "    logical_key@loc_id="},
        {"logical_key@comp_item_number", componentItemNumber, "    logical_key@comp_item_number="},
        {"logical_key@comp_seq_nm", componentSequenceNumber, "    logical_key@comp_seq_nm="},
    });
    op.step(" Execute component delete");
    op.remove();
    op.count();
    op.exit("----Exit------------rc=");
    return entries;
}

int ComponentOpen(char* dbObjectId, char* ecNumber, VELListValVELUnicodeString& attributeNames)
{
    ObjectOperation op("ComponentOpen");
    toUpperCase(ecNumber, Letters::OfLocale);
    op.start();
    op.trace("-    DbObjectId=", dbObjectId, "-");
    op.trace("-    EcNumber=", ecNumber, "-");
    op.traceNames("- Selected Attributes are ...", "-   ", attributeNames);
    op.log("DbObjectId=", dbObjectId, ", EcNumber=", ecNumber);
    op.reset();
    op.capture(attributeNames, 50);
    op.renew(componentClass);
    op.set({
        {"db_object_id", dbObjectId, "-  db_object_id="},
        {"il_ec_number", ecNumber, "-  il_ec_number=", OnFailure::Stop, Detail::None},
    });
    op.step(" Set  fields to be selected for Open");
    op.subscribe(attributeNames);
    op.open();
    op.log("...Component was ", op.count() ? "found" : "not found");
    return entries;
}
