// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include "frame/object_request.h"

using namespace velrzm;

namespace {

constexpr const char* associationClass = "ItemAssociationData";
constexpr const char* alias = "HXD"; // the key under which an item has its identifier in the calling system

} // namespace

int ItemAssociationOpen(char* dbObjectId, char* itemNumber, char* ecNumber, char** attributeNames)
{
    return objectOperation("ItemAssociationOpen", [&](Operation& op, CurrentObject& object) {
        op.start();
        op.trace("-    DbObjectId=", dbObjectId, "-");
        op.trace("-    ItemNumber=", itemNumber, "-");
        op.trace("-    EcNumber=", ecNumber, "-");
        op.traceNames("- Selected Attributes are ...", "-   ", attributeNames);
        object.reset();
        op.capture(attributeNames, 50);
        object.renew(associationClass);
        object.set({
            {"db_object_id", dbObjectId, "-  db_object_id="},
            {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
            {"logical_key@alias", alias, "-   logical_key@alias="},
            {"il_ec_number", ecNumber, "-   il_ec_number="},
        });
        object.subscribe(attributeNames);
        object.open();
        object.count();
    });
}

int ItemAssociationSave(char* ecNumber, char* itemNumber, char* systemPartnerOid, char** attributeNames)
{
    return objectOperation("ItemAssociationSave", [&](Operation& op, CurrentObject& object) {
        op.start();
        op.trace("\tEcNumber=", ecNumber);
        op.trace("\tItemNumber=", itemNumber);
        op.trace("\tSystemPartnerOid=", systemPartnerOid);
        op.traceNames(" Printing Selected Attributes ...", "   ", attributeNames);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew(associationClass);
        if (given(ecNumber)) {
            op.step(" Valuate il_ec_number untyped instance with EC number=", ecNumber, "-");
            object.set({"il_ec_number", ecNumber, "   il_ec_number="});
        }
        op.step(" Set required fields for Save");
        object.set({
            {"db_object_id", "", {"   db_object_id=", ""}},
            {"logical_key@item_number", itemNumber, {"   logical_key@item_number=", ""}},
            {"logical_key@loc_id", "", {"   logical_key@loc_id=", ""}},
            {"logical_key@alias", alias, {"   logical_key@alias=", ""}},
            {"alias_desc", "VELOR/Quorvanemaster Integration", {"   alias_desc=", ""}},
            {"alias_type@curr_key", "8", {"   alias_type@curr_key=", ""}},
            {"alias_xref", systemPartnerOid, {"   alias_xref=", ""}},
            {"update_count", "", "   update_count=", OnFailure::GoOn},
        });
        op.step(" Set fields to be selected for cl_save");
        object.subscribe(attributeNames);
        op.step(" Execute cl_save method; CLAYR_makeCall, cl_save");
        object.save();
        object.count();
        object.exit();
    });
}
