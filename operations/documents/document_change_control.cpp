// SPDX-License-Identifier: Apache-2.0
#include <velrzm/documents.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int DocumentMakeECControlled(char* ecNumber, char* documentNumber, char* revisionNumber,
                             const char* documentTitle, char** attributeNames)
{
    return objectOperation("DocumentMakeECControlled", [&](Operation& op, CurrentObject& object) {
        ObjectRequest base(op, QV_ObjPtr, "base doc: ");
        op.start();
        const Defaults read = op.readDefaults();
        toUpperCase(ecNumber, Letters::OfLocale);
        toUpperCase(documentNumber, Letters::OfLocale);
        op.trace("- Printing Input Attributes ...");
        op.trace("-    EcNumber=", ecNumber);
        op.trace("-    DocumentNumber=", documentNumber);
        op.trace("-    RevisionNumber=", revisionNumber);
        op.trace("-    DocumentTitle=", documentTitle);
        op.traceNames("- Printing Selected Attributes ...", "-   ", attributeNames);
        op.logInputs({"EcNumber=", ecNumber, ", DocumentNumber=", documentNumber,
                      ", RevisionNumber=", revisionNumber, ", DocumentTitle=", documentTitle});
        op.logPairs("   ", op.usual(read)); // logged only, not set on the revision
        object.reset();
        op.capture(attributeNames, 50);
        object.renew("DocVersion");
        object.set({
            {"db_object_id", "", "-  db_object_id="},
            {"doc_revision@doc_number", documentNumber, "-  doc_revision@doc_number="},
            {"doc_revision@doc_rev_num", revisionNumber, "-  doc_revision@doc_rev_num="},
        });
        base.subscribe("doc_revision@doc_title", OnFailure::GoOn);
        object.subscribe("doc_revision@chg_ctrl", OnFailure::GoOn);
        object.subscribe("doc_revision@doc_ctrl_num", OnFailure::GoOn);
        object.open();
        object.set({
            {"doc_revision@chg_ctrl", "1", {"-   doc_revision@chg_ctrl=", ""}},
            {"doc_revision@doc_ctrl_num", ecNumber, {"-   doc_revision@doc_ctrl_num=", ""}},
        });
        object.subscribe(attributeNames);
        op.step("- Execute Save method");
        object.save();
        op.log(object.count() ? " ... document is now EC controlled "
                              : "... could not make document EC controlled");
        op.trace("-----exit---rc=", entries, "-");
    });
}
