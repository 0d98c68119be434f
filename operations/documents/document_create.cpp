// SPDX-License-Identifier: Apache-2.0
#include <velrzm/documents.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int DocumentCreateCheckIn(char* ecNumber, char* documentTitle, char* systemPartnerOid, char** attributeNames)
{
    return objectOperation("DocumentCreateCheckIn", [&](Operation& op, CurrentObject& object) {
        op.start();
        const Defaults read = op.readDefaults();
        const Pairs defaults = op.usual(read);
        toUpperCase(ecNumber, Letters::OfLocale);
        toUpperCase(documentTitle, Letters::OfLocale);
        op.trace(" Printing Input Attributes ...");
        op.trace("\tEc Number=", ecNumber);
        op.trace("\tDocumentTitle=", documentTitle);
        op.trace("\tSystemPartnerOid=", systemPartnerOid);
        op.tracePairs("-     ... plus default attributes ...", "-     ", defaults);
        op.traceNames(" Printing Selected Attributes ...", "   ", attributeNames);
        op.log("   EcNumber=", ecNumber, ", DocumentTitle=", documentTitle);
        op.log("   SystemPartnerOid=", systemPartnerOid);
        op.logPairs("   ", defaults);
        object.reset();
        op.capture(attributeNames, 50);
        object.renew("DocVersion");
        op.step("- Set Required Fields for cl_create_and_ckin");
        object.set({
            {"doc_revision@doc_title", documentTitle, {"-   doc_revision@doc_title", ""}},
            {"ckin_userdata3", systemPartnerOid, {"-   ckin_userdata3=", ""}},
        });
        if (given(ecNumber)) {
            object.set({
                {"doc_revision@chg_ctrl", "1", {"-   doc_revision@chg_ctrl=", ""}},
                {"doc_revision@doc_ctrl_num", ecNumber, {"-   doc_revision@doc_ctrl_num=", ""}},
            });
        } else {
            object.set({"doc_revision@chg_ctrl", "0", {"-   doc_revision@chg_ctrl=", ""}});
        }
        object.set({
            {"doc_revision@doc_number", "", "-   doc_revision@doc_number="},
            {"doc_revision@doc_rev_num", "1", "-   doc_revision@doc_rev_num="},
            {"doc_ver_num", "", "-   doc_ver_num="},
            {"doc_revision@external_doc", "", "-   doc_revision@external_doc="},
        });
        object.setDefaults("-     ", defaults);
        op.step("- Set  fields to be selected for cl_create_and_ckin");
        object.subscribe(attributeNames);
        op.step("- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin");
        op.call({"QV_Create_and_CheckIn_Doc"}, [] { return QV_Create_and_CheckIn_Doc(QV_ObjPtr, 0); });
        op.log("...Document was ", object.count() ? "created" : "not created");
        object.exit();
    });
}
