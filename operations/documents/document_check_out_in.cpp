// SPDX-License-Identifier: Apache-2.0
//
// Check-out, check-in and cancelling a check-out: one operation, with a table of what differs.
#include <velrzm/documents.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

namespace {

/** One of the three operations. */
struct VaultOperation {
    const char* name;
    bool setsOwner;                           // whether the owning system is set too, to ""
    int (*setVaultDefaults)(QV_ObjectHandle); // null if the vault has none
    const char* function;                     // the name of the call in reports
    int (*call)(QV_ObjectHandle);
    const char* subject; // of the outcome in the access log
    const char* done;
    const char* notDone;
};

constexpr VaultOperation checkOut{"DocumentCheckOut",
                                  true,
                                  QV_Set_Doc_CheckOut_Defaults,
                                  "QV_CheckOut_Doc",
                                  QV_CheckOut_Doc,
                                  "...Document was ",
                                  "checked out",
                                  "not checked out"};

constexpr VaultOperation checkIn{"DocumentCheckIn",
                                 false,
                                 QV_Set_Doc_CheckIn_Defaults,
                                 "QV_CheckIn_Doc",
                                 [](QV_ObjectHandle document) { return QV_CheckIn_Doc(document, 0); },
                                 "...Document was ",
                                 "checked in",
                                 "not checked in"};

constexpr VaultOperation cancel{
    "DocumentCancelCheckOut",     false,      nullptr,       "QV_Cancel_CheckOut_Doc", QV_Cancel_CheckOut_Doc,
    "...Document check-out was ", "canceled", "not canceled"};

int run(const VaultOperation& vault, const char* dbObjectId, char* documentNumber, const char* revisionNumber,
        const AttributeNames& attributeNames)
{
    return objectOperation(vault.name, [&](Operation& op, CurrentObject& object) {
        op.start();
        const Defaults read = op.readDefaults();
        const Pairs defaults = op.usual(read);
        toUpperCase(documentNumber, Letters::OfLocale);
        op.trace("- Printing Input Attributes ...");
        op.trace("-    DbObjectId=", dbObjectId, "-");
        op.trace("-    DocumentNumber=", documentNumber, "-");
        op.trace("-    RevisionNumber=", revisionNumber, "-");
        op.traceNames("- Printing Selected Attributes ...", "-   ", attributeNames);
        op.logInputs({"DbObjectId=", dbObjectId, ", DocumentNumber=", documentNumber,
                      ", RevisionNumber=", revisionNumber});
        op.logPairs("   ", defaults);
        object.reset();
        op.capture(attributeNames, 50);
        object.renew("DocVersion");
        object.set({
            {"db_object_id", dbObjectId, "-  db_object_id="},
            {"doc_revision@doc_number", documentNumber, "-   doc_revision@doc_number="},
            {"doc_revision@doc_rev_num", revisionNumber, "-   doc_revision@doc_rev_num="},
        });
        if (vault.setsOwner) {
            op.stepAt(LogonLevel, "-  *** TEST FOR QV34GA ONLY *** doc_revision@owner@pdi_system_id=", "-");
            object.set("doc_revision@owner@pdi_system_id", "");
        }
        object.open();
        if (vault.setVaultDefaults != nullptr) {
            op.call({""}, [&] { return vault.setVaultDefaults(QV_ObjPtr); });
        }
        object.subscribe(attributeNames);
        object.setDefaults("-     ", defaults);
        op.call({vault.function}, [&] { return vault.call(QV_ObjPtr); });
        op.log(vault.subject, object.count() ? vault.done : vault.notDone);
    });
}

} // namespace

int DocumentCheckOut(char* dbObjectId, char* documentNumber, char* revisionNumber, char** attributeNames)
{
    return run(checkOut, dbObjectId, documentNumber, revisionNumber, attributeNames);
}

int DocumentCheckIn(char* dbObjectId, char* documentNumber, char* revisionNumber, char** attributeNames)
{
    return run(checkIn, dbObjectId, documentNumber, revisionNumber, attributeNames);
}

int DocumentCancelCheckOut(char* dbObjectId, char* documentNumber, char* revisionNumber,
                           char** attributeNames)
{
    return run(cancel, dbObjectId, documentNumber, revisionNumber, attributeNames);
}
