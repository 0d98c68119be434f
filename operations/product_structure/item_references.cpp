// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"
#include "operations/product_structure/deletion.h"

using namespace velrzm;

namespace {

constexpr const char* referenceClass = "ItemReference";

} // namespace

int ItemReferenceCreate(char* ecNumber, char* itemNumber, char* documentNumber, char* documentRevisionNumber,
                        char* systemPartnerOid, char** attributeNames)
{
    return objectOperation("ItemReferenceCreate", [&](Operation& op, CurrentObject& object) {
        op.start();
        const Defaults read = op.readDefaults();
        const Pairs defaults = op.usual(read);
        toUpperCase(ecNumber, Letters::Ascii);
        toUpperCase(itemNumber, Letters::Ascii);
        toUpperCase(documentNumber, Letters::Ascii);
        op.trace(" Printing Input Attributes ...");
        op.trace("\tEcNumber=", ecNumber);
        op.trace("\tItemNumber=", itemNumber);
        op.trace("\tDocumentNumber=", documentNumber);
        op.trace("\tDocumentRevisionNumber=", documentRevisionNumber);
        op.trace("\tSystemPartnerOid=", systemPartnerOid);
        op.tracePairs("-     ... plus default attributes ...", "-     ", defaults);
        op.traceNames(" Printing Selected Attributes ...", "   ", attributeNames);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew(referenceClass);
        if (given(ecNumber)) {
            op.step("- Valuate il_ec_number untyped instance with EC number=", ecNumber, "-");
            object.set({"il_ec_number", ecNumber, "-   il_ec_number="});
        }
        op.step("- Set Required Fields for save");
        object.set({
            {"logical_key@item_number", itemNumber, {"-   logical_key@item_number", ""}},
            {"logical_key@reference_id", documentNumber, {"-   logical_key@reference_id=", ""}},
            {"reference_level", documentRevisionNumber, {"-   reference_level=", ""}},
            {"item_ref_xref", systemPartnerOid, {"-   item_ref_xref=", ""}},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
            {"update_count", "", "-   update_count=", OnFailure::GoOn},
        });
        object.setDefaults("-     ", defaults);
        op.step("- Set fields to be selected for cl_save");
        object.subscribe(attributeNames);
        op.step("- Execute cl_save method; CLAYR_makeCall, cl_save");
        object.save();
        object.count();
        object.exit();
    });
}

int ItemReferenceDelete(char* dbObjectId, char* ecNumber)
{
    return deleteRecord({"ItemReferenceDelete- ", referenceClass, nullptr}, dbObjectId, ecNumber);
}

int ItemReferenceQuery(char* /*dbObjectId*/, char* /*ecNumber*/, char* /*itemNumber*/,
                       char* /*documentNumber*/, char** /*attributeNames*/)
{
    return 0;
}
