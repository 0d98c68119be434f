// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"

using namespace velrzm;

namespace {

constexpr const char* referenceClass = "ComponentReference";
constexpr const char* designator =
    "VELOR/Quorvanemaster Integration"; // of every reference, as part of its key

} // namespace

int ComponentReferenceSave(char* ecNumber, char* itemNumber, char* componentItemNumber,
                           char* componentSequenceNumber, char* componentReferenceXref, char** attributeNames)
{
    ObjectOperation op("ComponentReferenceSave");
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
    op.reset();
    op.capture(attributeNames, 30);
    op.renew(referenceClass);
    op.step("Set required fields for Open");
    op.set({
        {"db_object_id", "", {"   db_object_id=", ""}},
        {"logical_key@item_number", itemNumber, {"   logical_key@item_number=", ""}},
        {"logical_key@loc_id", "", {"   logical_key@loc_id=", ""}},
        {"logical_key@comp_item_number", componentItemNumber, {"   logical_key@comp_item_number=", ""}},
        {"logical_key@comp_seq_nm", componentSequenceNumber, {"   logical_key@=comp_seq_nm=", ""}},
        {"logical_key@comp_ref", designator, {"   logical_key@=comp_ref=", ""}},
        {"il_ec_number", ecNumber, {"   il_ec_number=", ""}},
    });
    op.step("   Set fields to be selected for Open");
    op.subscribe(attributeNames);
    op.step("Updating comp_ref_xref attribut");
    op.set({
        {"comp_ref_xref", componentReferenceXref, {"   comp_ref_xref=", ""}},
        {"update_count", "", "   update_count=", OnFailure::GoOn},
    });
    op.step("Execute Save method");
    op.save(OnFailure::GoOn);
    if (!op.stopped() && QV_RC == QV_ALREADY_STORED) {
        op.traceAt(ConnectionLevel, " ****** WARNING ****** ComponentReference already exists ?!?");
        traceInputs(ConnectionLevel);
        QV_RC = 0;
    }
    op.count();
    op.trace("-----Exit------entries/rc=", entries, "------");
    return entries;
}

int ComponentReferenceDelete(char* dbObjectId, char* ecNumber)
{
    ObjectOperation op("ComponentReferenceDelete- ");
    op.trace("-----start------");
    op.trace(" \tDbObjectId=", dbObjectId, "-");
    op.trace("\tEcNumber=", ecNumber);
    op.reset();
    NbSelectedAttribute = 0;
    op.renew(referenceClass);
    op.step(" set required fields for cl_delete-");
    op.set({
        {"db_object_id", dbObjectId, "    db_object_id="},
        {"il_ec_number", ecNumber, "    il_ec_number="},
    });
    op.step(" Execute ComponentReference delete");
    op.remove();
    op.count();
    op.exit("----Exit------------rc=");
    return entries;
}
