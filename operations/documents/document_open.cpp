// SPDX-License-Identifier: Apache-2.0
#include <velrzm/documents.h>

#include "frame/list_request.h"
#include "frame/object_request.h"
#include "frame/upper_case.h"
#include "operations/documents/document_versions.h"

namespace velrzm {

void openVersions(ListRequest& list, const char* documentNumber, const char* const* columns)
{
    list.renew("DocVersion");
    list.select(columns);
    list.where(versionsOf(documentNumber));
    list.where("&=(doc_revision@primary_config@db_object_id,db_object_id)");
    list.where("&=(copy_count,0)");
    list.orderBy({"doc_revision@doc_number", "doc_revision@doc_rev_num_v", "doc_ver_num"});
    list.open();
}

} // namespace velrzm

using namespace velrzm;

int DocumentOpen(char* documentNumber, char* revisionNumber, VELListValVELUnicodeString& attributeNames)
{
    return objectOperation("DocumentOpen", [&](Operation& op, CurrentObject& object) {
        op.start();
        toUpperCase(documentNumber, Letters::OfLocale);
        op.trace("- Printing Input Attributes ...");
        op.trace("-    DocumentNumber=", documentNumber);
        op.trace("-    RevisionNumber=", revisionNumber);
        op.traceNames("- Printing Selected Attributes ...", "-   ", attributeNames);
        op.logInputs({"DocumentNumber=", documentNumber, ", RevisionNumber=", revisionNumber});
        object.reset();
        op.capture(attributeNames, 50);
        object.renew("DocVersion");
        object.set({
            {"db_object_id", "", "-  db_object_id="},
            {"doc_revision@doc_number", documentNumber, "-   doc_revision@doc_number="},
            {"doc_revision@doc_rev_num", revisionNumber, "-   doc_revision@doc_rev_num="},
        });
        object.subscribe(attributeNames);
        object.open();
        op.log("...Document was ", object.count() ? "found" : "not found");
    });
}

int DocumentGetLastRevision(const char* documentNumber)
{
    constexpr const char* columns[] = {"doc_revision@doc_number", "doc_revision@doc_rev_num", nullptr};

    return listOperation("DocumentGetLastRevision", [&](Operation& op, CurrentList& list) {
        op.start();
        op.trace("\tDocNumber=", documentNumber);
        if (given(documentNumber)) {
            list.reset();
            NbSelectedAttribute = 0;
            openVersions(list, documentNumber, columns);
            list.count();
        } else {
            op.traceAt(ConnectionLevel, "****** ERROR ******  Document Number is not valuated...");
            QV_RC = -1;
            entries = 0; // the rest of the current result is left unchanged
        }
        list.exit();
    });
}
