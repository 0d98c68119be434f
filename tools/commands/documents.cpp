// SPDX-License-Identifier: Apache-2.0
//
// Documents.
#include <array>

#include <velrzm/documents.h>
#include <velrzm/qv_sdk.h>

#include "tools/commands/operation_command.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter revision = {"revision", "Revision number", Need::Required};
constexpr Parameter title = {"--title TEXT", "Title of the document"};
constexpr Parameter partner = {"--reference ID", "Identifier of the document in the calling system"};

const ShownAttributes documentAttributes = {"DocVersion",
                                            {"doc_revision@doc_number", "doc_revision@doc_rev_num",
                                             "doc_ver_num", "doc_revision@doc_title", "db_object_id"}};

/** Check-out, check-in and cancelling take the same and differ in the operation alone. */
OperationCommand vaultCommand(const char* name, const char* description, const char* example,
                              int (*operation)(char*, char*, char*, char**))
{
    return {name,
            description,
            example,
            {{"document", "Document number", Need::Optional, Parameter::Takes::ObjectNumber},
             {"revision", "Revision number"},
             {"--id ID", "Database identifier of the version, instead of the numbers"}},
            documentAttributes,
            [operation](Call& call) {
                return call.object(operation(call.text("--id"), call.text("document"), call.text("revision"),
                                             call.selectedArray()));
            }};
}

Outcome reviseDocument(Call& call)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> number{};
    std::array<char, QV_MAX_VALUE_LENGTH + 1> identifier{};
    TextArray none({});
    call.nothing(DocumentMakeNewRevision(call.text("--ec"), call.text("document"), call.text("revision"),
                                         call.text("--title"), call.text("--reference"), none.data(),
                                         number.data(), identifier.data()));
    return {{{"doc_revision@doc_number", "doc_revision@doc_rev_num", "db_object_id"},
             {{call.text("document"), number.data(), identifier.data()}}}};
}

/** The versions of a document; the last one is the latest. */
Outcome listVersions(Call& call)
{
    call.found(DocumentGetLastRevision(call.text("document")));
    Outcome versions{currentRecords({"doc_revision@doc_number", "doc_revision@doc_rev_num"}), Shape::List};
    if (!call.has("--all") && !versions.records.rows.empty()) {
        versions.records.rows.erase(versions.records.rows.begin(), versions.records.rows.end() - 1);
        versions.shape = Shape::Object;
    }
    return versions;
}

} // namespace

CommandGroup documentCommands()
{
    using namespace parameters;
    return {"doc",
            "Create documents, check them out and in, and revise them\n\n"
            "A document has revisions, and a revision has versions in the vault. Whoever checks a version "
            "out holds it until they check it in, which makes the next version, or cancel the check-out. "
            "\"revise\" makes the next revision. The server gives a new document its number.",
            {{"create",
              "Create a document and check in its first version",
              "velrzm doc create \"Bracket drawing\" --ec EC-100",
              {{"title", "Title of the document", Need::Required}, change, partner},
              documentAttributes,
              [](Call& call) {
                  return call.object(DocumentCreateCheckIn(call.text("--ec"), call.text("title"),
                                                           call.text("--reference"), call.selectedArray()));
              }},
             vaultCommand("checkout", "Check a document out of the vault", "velrzm doc checkout 1 1",
                          DocumentCheckOut),
             vaultCommand("checkin", "Check in a document that was checked out", "velrzm doc checkin 1 1",
                          DocumentCheckIn),
             vaultCommand("cancel", "Cancel a check-out", "velrzm doc cancel 1 1", DocumentCancelCheckOut),
             {"revise",
              "Make the next revision of a document",
              "velrzm doc revise 1 1 --title \"Bracket drawing\" --ec EC-100",
              {document, revision, title, change, partner},
              {},
              reviseDocument},
             {"control",
              "Put a document revision under the control of an engineering change",
              "velrzm doc control 1 1 --ec EC-100",
              {document, revision, neededChange},
              documentAttributes,
              [](Call& call) {
                  return call.object(DocumentMakeECControlled(call.text("--ec"), call.text("document"),
                                                              call.text("revision"), "",
                                                              call.selectedArray()));
              }},
             {"open",
              "Show a document revision",
              "velrzm doc open 1 2",
              {document, revision},
              documentAttributes,
              [](Call& call) {
                  return call.object(
                      DocumentOpen(call.text("document"), call.text("revision"), call.selectedList()));
              }},
             {"last",
              "Show the latest revision of a document",
              "velrzm doc last 1",
              {document,
               {"--all", "Show all revisions, the latest last", Need::Optional, Parameter::Takes::Nothing}},
              {},
              listVersions}}};
}

} // namespace tools
