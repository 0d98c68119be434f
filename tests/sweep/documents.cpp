// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include <array>

#include "tests/sweep/operations.h"

using namespace harness;

namespace sweep {

namespace {

const std::vector<CallPattern> fixedSubscriptions{{"QV_Subscribe_Object_Attr", "doc_revision@doc_title"},
                                                  {"QV_Subscribe_Object_Attr", "doc_revision@chg_ctrl"},
                                                  {"QV_Subscribe_Object_Attr", "doc_revision@doc_ctrl_num"}};

/** One of the operations that find a version, or make one, and hand it to the vault. */
template <class Function>
Operation vaultOperation(const std::string& name, const std::string& texts, const Function& function,
                         const std::string& end)
{
    return onObject(name, use(function))
        .takes(texts, 3)
        .takesNames(50)
        .usesDefaults(name, 19, 19)
        .endsWith(end);
}

/** The number of the document is fixed, because it has to fit a clause. */
Operation newRevision()
{
    std::vector<CallPattern> goesOn = fixedSubscriptions;
    goesOn.push_back({"QV_Subscribe_Object_Attr", "doc_primary_fmt@user_data3"});
    goesOn.push_back({"QV_Set_Object_Attr", "4711"});
    goesOn.push_back({"QV_Set_Object_Attr", "doc_revision@doc_title", "", ""});
    Operation operation =
        onObject("DocumentMakeNewRevision",
                 [](Inputs& in) {
                     std::array<char, 10> number{};
                     std::array<char, 10> identifier{};
                     return DocumentMakeNewRevision(in.text(), Text("D-1"), in.text(), in.text(), in.text(),
                                                    in.names(), number.data(), identifier.data());
                 })
            .takes("----", 4)
            .joiningInputs()
            .takesNames(50)
            .usesDefaults("DocumentMakeNewRevision", 19, 19)
            .endsWith("2 @...new revision for document D-1 was not created.\n")
            .notChecking({{"QV_Destroy_Object"}, {"QV_Destroy_List"}})
            .goingOn(goesOn)
            .elsewhere(
                {{"QV_Make_New_Revision"}, {"QV_SizeOf_List"}, {"QV_Read_List"}, {"QV_Get_Object_Attr"}});
    operation.hasOwnHandles = true;
    return operation;
}

} // namespace

std::vector<Operation> documents()
{
    return {
        vaultOperation("DocumentCreateCheckIn", "UU-", DocumentCreateCheckIn,
                       "log @ ...Document was  not created\n"
                       "2 @-----Exit------------entries/rc=0--------------------.\n"),
        vaultOperation("DocumentCheckOut", "-U-", DocumentCheckOut,
                       "log @ ...Document was  not checked out\n")
            .joiningInputs(),
        vaultOperation("DocumentCheckIn", "-U-", DocumentCheckIn, "log @ ...Document was  not checked in\n")
            .joiningInputs(),
        vaultOperation("DocumentCancelCheckOut", "-U-", DocumentCancelCheckOut,
                       "log @ ...Document check-out was  not canceled\n")
            .joiningInputs(),
        newRevision(),
        onObject("DocumentMakeECControlled", use(DocumentMakeECControlled))
            .takes("UU--", 3)
            .joiningInputs()
            .takesNames(50)
            .usesDefaults("DocumentMakeECControlled", 19, 0)
            .endsWith("log @ ... could not make document EC controlled\n2 @-----exit---rc=0-.\n")
            .goingOn(fixedSubscriptions),
        onObject("DocumentOpen", use(DocumentOpen))
            .takes("U-", 2)
            .joiningInputs()
            .takesNameList(50)
            .endsWith("log @ ...Document was  not found\n"),
        onList("DocumentGetLastRevision", use(DocumentGetLastRevision))
            .takes("-", 0)
            .refusing("documentNumber", 49),
    };
}

} // namespace sweep
