// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include <array>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"
#include "tests/sweep/operations.h"

using harness::Names;
using harness::Text;
using harness::writeFile;

namespace sweep {

namespace {

const std::vector<CallPattern> destroys{{"QV_Destroy_Object", ""}};
const std::vector<CallPattern> fixedSubscriptions{{"QV_Subscribe_Object_Attr", "doc_revision@doc_title"},
                                                  {"QV_Subscribe_Object_Attr", "doc_revision@chg_ctrl"},
                                                  {"QV_Subscribe_Object_Attr", "doc_revision@doc_ctrl_num"}};

/** A vault operation, or the creation of a document: every failure stops it. */
Operation vaultOperation(const std::string& name, std::function<int()> run)
{
    return {name,
            std::move(run),
            [=] { writeFile("QVL_RZM_DEFAULT", name + " doc_type DRW\n" + name + " site A\n"); },
            "Object",
            {},
            destroys};
}

template <class Function>
Operation vaultOperationOf(const std::string& name, const Function& function)
{
    return vaultOperation(name, [=] {
        return function(Text("4711"), Text("D-1"), Text("1"), Names({"db_object_id", "doc_type"}));
    });
}

/** Every branch is taken: the base revision is under the control of the same change. */
Operation newRevision()
{
    std::vector<CallPattern> goesOn = fixedSubscriptions;
    goesOn.push_back({"QV_Subscribe_Object_Attr", "doc_primary_fmt@user_data3"});
    goesOn.push_back({"QV_Set_Object_Attr", "4711"});
    goesOn.push_back({"QV_Set_Object_Attr", "doc_revision@doc_title", "", ""});
    return {"DocumentMakeNewRevision",
            [] {
                std::array<char, 50> number{};
                std::array<char, 50> identifier{};
                return DocumentMakeNewRevision(Text("EC-1"), Text("D-1"), Text("1"), Text("Bracket"),
                                               Text("oid"), Names({"db_object_id", "doc_type"}),
                                               number.data(), identifier.data());
            },
            [] {
                writeFile("QVL_RZM_DEFAULT", "DocumentMakeNewRevision doc_type DRW\n");
                standin::setValue("doc_revision@doc_ctrl_num", "EC-1");
                standin::setRecords({{}, {{"doc_revision@doc_rev_num", "2"}, {"db_object_id", "4711"}}});
            },
            "Object",
            goesOn,
            {{"QV_Destroy_Object", ""}, {"QV_Destroy_List", ""}},
            "",
            {{"QV_SizeOf_List", ""}, {"QV_Read_List", ""}, {"QV_Get_Object_Attr", ""}},
            true};
}

std::vector<Operation> openings()
{
    return {{"DocumentOpen",
             [] {
                 auto names = harness::textList({"db_object_id", "doc_type"});
                 return DocumentOpen(Text("D-1"), Text("1"), names);
             },
             [] {},
             "Object",
             {},
             destroys},
            {"DocumentGetLastRevision",
             [] { return DocumentGetLastRevision("D-1"); },
             [] {
                 standin::setRecords({{}, {}, {}});
             },
             "List",
             {},
             {{"QV_Destroy_List", ""}}}};
}

} // namespace

std::vector<Operation> documents()
{
    std::vector<Operation> all{
        vaultOperation("DocumentCreateCheckIn",
                       [] {
                           return DocumentCreateCheckIn(Text("EC-1"), Text("Bracket"), Text("oid"),
                                                        Names({"db_object_id", "doc_type"}));
                       }),
        vaultOperationOf("DocumentCheckOut", DocumentCheckOut),
        vaultOperationOf("DocumentCheckIn", DocumentCheckIn),
        vaultOperationOf("DocumentCancelCheckOut", DocumentCancelCheckOut),
        newRevision(),
        {"DocumentMakeECControlled",
         [] {
             return DocumentMakeECControlled(Text("EC-1"), Text("D-1"), Text("1"), "Bracket",
                                             Names({"db_object_id", "doc_type"}));
         },
         [] {}, "Object", fixedSubscriptions, destroys}};
    for (const Operation& opening : openings()) {
        all.push_back(opening);
    }
    return all;
}

} // namespace sweep
