// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"
#include "operations/product_structure/deletion.h"

using namespace velrzm;

namespace {

constexpr const char* referenceClass = "ComponentReference";
constexpr const char* designator = "VELOR/Quorvanemaster Integration"; // part of the key of every reference

} // namespace

int ComponentReferenceSave(char* ecNumber, char* itemNumber, char* componentItemNumber,
                           char* componentSequenceNumber, char* componentReferenceXref, char** attributeNames)
{
    return objectOperation("ComponentReferenceSave", [&](Operation& op, CurrentObject& object) {
        const auto traceInputs = [&](int level) {
            op.traceAt(level, "\tEcNumber=", ecNumber);
            op.traceAt(level, "\tItemNumber=", itemNumber);
            op.traceAt(level, "\tCompItemNumber=", componentItemNumber);
            op.traceAt(level, "\tCompSeqNumber=", componentSequenceNumber);
            op.traceAt(level, "\tCompRef=", designator);
            op.traceAt(level, "\tCompRefXref=", componentReferenceXref);
        };

        op.trace("-----start------");
        traceInputs(OperationLevel);
        op.traceNames("Printing Selected Attributes ...", "\t", attributeNames);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew(referenceClass);
        op.step("Set required fields for Open");
        object.set({
            {"db_object_id", "", {"   db_object_id=", ""}},
            {"logical_key@item_number", itemNumber, {"   logical_key@item_number=", ""}},
            {"logical_key@loc_id", "", {"   logical_key@loc_id=", ""}},
            {"logical_key@comp_item_number", componentItemNumber, {"   logical_key@comp_item_number=", ""}},
            {"logical_key@comp_seq_nm", componentSequenceNumber, {"   logical_key@=comp_seq_nm=", ""}},
            {"logical_key@comp_ref", designator, {"   logical_key@=comp_ref=", ""}},
            {"il_ec_number", ecNumber, {"   il_ec_number=", ""}},
        });
        op.step("   Set fields to be selected for Open");
        object.subscribe(attributeNames);
        op.step("Updating comp_ref_xref attribut");
        object.set({
            {"comp_ref_xref", componentReferenceXref, {"   comp_ref_xref=", ""}},
            {"update_count", "", "   update_count=", OnFailure::GoOn},
        });
        op.step("Execute Save method");
        object.save(OnFailure::GoOn);
        if (!op.stopped() && QV_RC == QV_ALREADY_STORED) {
            op.traceAt(ConnectionLevel, " ****** WARNING ****** ComponentReference already exists ?!?");
            traceInputs(ConnectionLevel);
            QV_RC = 0;
        }
        object.count();
        op.trace("-----Exit------entries/rc=", entries, "------");
    });
}

int ComponentReferenceDelete(char* dbObjectId, char* ecNumber)
{
    return deleteRecord({"ComponentReferenceDelete- ", referenceClass, " Execute ComponentReference delete"},
                        dbObjectId, ecNumber);
}
