// SPDX-License-Identifier: Apache-2.0
//
// A document in the vault.
#include <array>

#include <velrzm/documents.h>
#include <velrzm/qv_sdk.h>

#include "tools/demo/story.h"
#include "tools/process/attribute_names.h"

namespace tools::demo {

namespace {

constexpr const char* numberPath = "doc_revision@doc_number";
constexpr const char* revisionPath = "doc_revision@doc_rev_num";

/** A document revision, as the operations want it named. */
struct Revision {
    std::string document;
    std::string number;
};

Revision createDocument(Narrator& tell)
{
    tell.step("Create a document and check it in", "DocumentCreateCheckIn");
    std::string change = changeNumber;
    std::string title = "Frame drawing";
    std::string reference = "cad-4711";
    TextArray selected({numberPath, revisionPath});
    const int created = tell.call([&] {
        return DocumentCreateCheckIn(change.data(), title.data(), reference.data(), selected.data());
    });
    require(created == 1, "creating the document");
    Revision revision{currentValue(0, numberPath), currentValue(0, revisionPath)};
    tell.good("the server gave it the number " + revision.document + ", revision " + revision.number);
    return revision;
}

void checkOutAndIn(Narrator& tell, Revision revision)
{
    tell.step("Check it out, and in again as its next version", "DocumentCheckOut, DocumentCheckIn");
    std::string noIdentifier;
    TextArray selected({"doc_ver_num"});
    for (const auto operation : {&DocumentCheckOut, &DocumentCheckIn}) {
        const int checked = tell.call([&] {
            return operation(noIdentifier.data(), revision.document.data(), revision.number.data(),
                             selected.data());
        });
        require(checked == 1, "the vault operation");
        tell.good((operation == &DocumentCheckOut ? "checked out: version " : "checked in: version ") +
                  currentValue(0, "doc_ver_num"));
    }
}

void makeNewRevision(Narrator& tell, Revision revision)
{
    tell.step("Make its next revision under the change", "DocumentMakeNewRevision");
    std::string change = changeNumber;
    std::string title = "Frame drawing, stronger head tube";
    std::string reference = "cad-4712";
    TextArray selected({});
    std::array<char, QV_MAX_VALUE_LENGTH + 1> newNumber{};
    std::array<char, QV_MAX_VALUE_LENGTH + 1> newIdentifier{};
    const int made = tell.call([&] {
        return DocumentMakeNewRevision(change.data(), revision.document.data(), revision.number.data(),
                                       title.data(), reference.data(), selected.data(), newNumber.data(),
                                       newIdentifier.data());
    });
    require(made == 1, "making the new revision");
    tell.good(std::string("revision ") + newNumber.data());
}

void listRevisions(Narrator& tell, const Revision& revision)
{
    tell.step("List its revisions, the latest last", "DocumentGetLastRevision, GetValue");
    const int found = tell.call([&] { return DocumentGetLastRevision(revision.document.c_str()); });
    require(found > 0, "listing the revisions");
    tell.table(currentRecords({numberPath, revisionPath}));
}

} // namespace

void keepDocument(Narrator& tell)
{
    const Revision revision = createDocument(tell);
    checkOutAndIn(tell, revision);
    makeNewRevision(tell, revision);
    listRevisions(tell, revision);
}

} // namespace tools::demo
