// SPDX-License-Identifier: Apache-2.0
//
// A new revision of a document. Three objects are involved: the base revision, which is the current object, the list
// record in which the new revision is found, and the new revision itself.
#include <velrzm/documents.h>

#include "frame/list_request.h"
#include "frame/object_request.h"
#include "frame/upper_case.h"
#include "operations/documents/document_versions.h"

using namespace velrzm;

namespace {

struct RevisionInputs {
    const char* ecNumber;
    const char* documentNumber;
    const char* revisionNumber;
    const char* newTitle;
    const char* systemPartnerOid;
    AttributeNames attributeNames;
    Pairs defaults;
};

/** The caller's buffers for the number and the identifier of the new revision. */
struct RevisionOutputs {
    char* revisionNumber;
    char* dbObjectId;
};

/** An object that belongs to the operation and is destroyed with it. */
class OwnObject {
public:
    OwnObject() = default;
    OwnObject(const OwnObject&) = delete;
    OwnObject& operator=(const OwnObject&) = delete;
    ~OwnObject()
    {
        if (handle != nullptr) {
            QV_Destroy_Object(&handle);
        }
    }

    QV_ObjectHandle handle = nullptr;
};

/** The value of an attribute; empty if the server returns none. */
std::string attributeOf(QV_ObjectHandle object, const char* name)
{
    const char* value = nullptr;
    QV_Get_Object_Attr(object, name, &value);
    return orEmpty(value);
}

void copyWhole(char* buffer, const std::string& text)
{
    copyToFit(buffer, text.size() + 1, text);
}

void listInputs(const Operation& op, const RevisionInputs& in)
{
    op.trace("- Printing Input Attributes ...");
    op.trace("-    EcNumber=", in.ecNumber);
    op.trace("-    DocumentNumber=", in.documentNumber);
    op.trace("-    RevisionNumber=", in.revisionNumber);
    op.trace("-    NewRevDocumentTitle=", in.newTitle);
    op.trace("-    SystemPartnerOid=", in.systemPartnerOid);
    op.traceNames("- Printing Selected Attributes ...", "-   ", in.attributeNames);
    op.logInputs({"EcNumber=", in.ecNumber, ", DocumentNumber=", in.documentNumber,
                  ", RevisionNumber=", in.revisionNumber, ", NewRevDocumentTitle=", in.newTitle});
    op.logPairs("   ", in.defaults);
    op.log("   SystemPartnerOid=", in.systemPartnerOid);
}

/** Opens the base revision. Returns the number of the change that controls it so far. */
std::string openBase(Operation& op, CurrentObject& object, ObjectRequest& base, const RevisionInputs& in)
{
    object.renew("DocVersion");
    base.set({
        {"db_object_id", "", "-  base doc: db_object_id="},
        {"doc_revision@doc_number", in.documentNumber, "-   base doc: doc_revision@doc_number="},
        {"doc_revision@doc_rev_num", in.revisionNumber, "-   base doc: doc_revision@doc_rev_num="},
    });
    for (const char* const name :
         {"doc_revision@doc_title", "doc_revision@chg_ctrl", "doc_revision@doc_ctrl_num"}) {
        base.subscribe(name, OnFailure::GoOn);
    }
    base.open();
    if (op.stopped()) {
        return {};
    }
    std::string controlNumber = attributeOf(QV_ObjPtr, "doc_revision@doc_ctrl_num");
    op.step("-     base doc: IniCtrlEcNumber=", controlNumber, "-");
    return controlNumber;
}

/** Makes the new revision on the server. The handle that comes back is not used: findRevision looks it up. */
void makeRevision(Operation& op)
{
    if (op.stopped()) {
        return;
    }
    QV_ObjectHandle revision = nullptr;
    QV_RC = QV_Make_New_Revision(QV_ObjPtr, &revision);
    QV_Destroy_Object(&revision);
    op.check({"base doc: QV_MakeNewRevision_Doc"});
    if (!op.stopped()) {
        op.log("...Document New Revision was ", "created");
    }
}

/** Reads number and identifier of the new revision, the last version of the document. Returns the identifier. */
std::string findRevision(Operation& op, OwnObject& record, const RevisionInputs& in,
                         const RevisionOutputs& out)
{
    constexpr const char* columns[] = {"doc_revision@doc_number", "doc_revision@doc_rev_num", "db_object_id",
                                       nullptr};

    ListRequest versions(op);
    openVersions(versions, in.documentNumber, columns);
    if (op.stopped()) {
        return {};
    }
    QV_RC = QV_SizeOf_List(QV_ListPtr, &entries);
    if (entries >= 1) {
        QV_RC = QV_Read_List(QV_ListPtr, entries - 1, &record.handle);
    }
    if (record.handle == nullptr) {
        op.stop();
        return {};
    }
    const std::string number = attributeOf(record.handle, "doc_revision@doc_rev_num");
    std::string identifier = attributeOf(record.handle, "db_object_id");
    copyWhole(out.revisionNumber, number);
    copyWhole(out.dbObjectId, identifier);
    op.log("... new Revision Number=", number, " new DbObjectId=", identifier);
    return identifier;
}

void openRevision(ObjectRequest& revision, const std::string& identifier, const RevisionInputs& in)
{
    revision.create("DocVersion");
    revision.set({
        {"db_object_id", identifier.c_str(), {}, OnFailure::GoOn},
        {"doc_revision@doc_title", "", {}, OnFailure::GoOn},
    });
    for (const char* const name :
         {"doc_primary_fmt@user_data3", "doc_revision@chg_ctrl", "doc_revision@doc_ctrl_num"}) {
        revision.subscribe(name, OnFailure::GoOn);
    }
    revision.open();
    revision.set({
        {"doc_revision@doc_title", in.newTitle},
        {"doc_primary_fmt@user_data3", in.systemPartnerOid},
    });
}

/** Moves change control to the new revision: a change controls only the newer of the two. */
void controlByChange(const Operation& op, ObjectRequest& base, ObjectRequest& revision,
                     const std::string& controlNumber, const char* ecNumber)
{
    op.step("-IniCtrlEcNumber=", controlNumber, "- EcNumber=", ecNumber, "-");
    if (given(ecNumber) && controlNumber == ecNumber) {
        base.set({"doc_revision@chg_ctrl", "0", {"-   base doc: doc_revision@chg_ctrl=", ""}});
        op.step(" base doc: Execute Save method");
        base.save();
    }
    revision.set({
        {"doc_revision@chg_ctrl",
         given(ecNumber) ? "1" : "0",
         {"-   new rev doc: doc_revision@chg_ctrl=", ""}},
        {"doc_revision@doc_ctrl_num", ecNumber, {"-   new rev doc: doc_revision@doc_ctrl_num=", ""}},
    });
}

/** Makes the new revision and stores it. Returns whether that worked. */
bool revise(Operation& op, CurrentObject& object, const RevisionInputs& in, const RevisionOutputs& out)
{
    OwnObject record;
    OwnObject own;
    ObjectRequest base(op, QV_ObjPtr, "base doc: ");
    ObjectRequest revision(op, own.handle, "new rev doc: ");

    // Checked first, so that no revision is made that could not be found afterwards.
    ListRequest(op).requireFit(versionsOf(in.documentNumber));
    const std::string controlNumber = openBase(op, object, base, in);
    base.subscribe(in.attributeNames);
    base.setDefaults("-     ", in.defaults);
    makeRevision(op);
    const std::string identifier = findRevision(op, record, in, out);
    openRevision(revision, identifier, in);
    controlByChange(op, base, revision, controlNumber, in.ecNumber);
    op.step(" new rev doc: Execute Save method");
    revision.save();
    if (!op.stopped()) {
        op.log("...Document New Revision was ", "updated");
    }
    return !op.stopped();
}

} // namespace

int DocumentMakeNewRevision(char* ecNumber, char* documentNumber, char* revisionNumber,
                            char* newRevDocumentTitle, char* systemPartnerOid, char** attributeNames,
                            char* newRevisionNumber, char* newDbObjectId)
{
    constexpr const char* name = "DocumentMakeNewRevision";

    const auto run = [&] {
        Operation op(name);
        CurrentObject object(op);
        op.start();
        const Defaults read = op.readDefaults();
        const RevisionInputs in{ecNumber,         documentNumber, revisionNumber, newRevDocumentTitle,
                                systemPartnerOid, attributeNames, op.usual(read)};
        toUpperCase(documentNumber, Letters::OfLocale);
        listInputs(op, in);
        object.reset();
        op.capture(in.attributeNames, 50);
        const bool revised = revise(op, object, in, {newRevisionNumber, newDbObjectId});
        if (revised) {
            op.trace("...revision ", newRevisionNumber, " for document ", documentNumber, " was created");
        } else {
            op.trace("...new revision for document ", documentNumber, " was not created");
        }
        return revised ? 1 : 0;
    };
    return guarded(name, run, withoutResult);
}
