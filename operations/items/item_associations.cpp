// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include "frame/object_request.h"

using namespace velrzm;

namespace {

constexpr const char* associationClass = "ItemAssociationData";
constexpr const char* alias = "HXD"; // under this key every item has one identifier of the calling system

} // namespace

int ItemAssociationOpen(char* dbObjectId, char* itemNumber, char* ecNumber, char** attributeNames)
{
    ObjectOperation op("ItemAssociationOpen");
    op.start();
    op.trace("-    DbObjectId=", dbObjectId, "-");
    op.trace("-    ItemNumber=", itemNumber, "-");
    op.trace("-    EcNumber=", ecNumber, "-");
    op.traceNames("- Selected Attributes are ...", "-   ", attributeNames);
    op.reset();
    op.capture(attributeNames, 50);
    op.renew(associationClass);
    op.set({
        {"db_object_id", dbObjectId, "-  db_object_id="},
        {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
        {"logical_key@loc_id", "", "-   logical_key@loc_id="},
        {"logical_key@alias", alias, "-   logical_key@alias="},
        {"il_ec_number", ecNumber, "-   il_ec_number="},
    });
    op.subscribe(attributeNames);
    op.open();
    op.count();
    return entries;
}

int ItemAssociationSave(char* ecNumber, char* itemNumber, char* systemPartnerOid, char** attributeNames)
{
    ObjectOperation op("ItemAssociationSave");
    op.start();
    op.trace("\tEcNumber=", ecNumber);
    op.trace("\tItemNumber=", itemNumber);
    op.trace("\tSystemPartnerOid=", systemPartnerOid);
    op.traceNames(" Printing Selected Attributes ...", "   ", attributeNames);
    op.reset();
    op.capture(attributeNames, 30);
    op.renew(associationClass);
    if (given(ecNumber)) {
        op.step(" Valuate il_ec_number untyped instance with EC number=", ecNumber, "-");
        op.set({"il_ec_number", ecNumber, "   il_ec_number="});
    }
    op.step(" Set required fields for Save");
    op.set({
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
    op.subscribe(attributeNames);
    op.step(" Execute cl_save method; CLAYR_makeCall, cl_save");
    op.save();
    op.count();
    op.exit();
    return entries;
}
