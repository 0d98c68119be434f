// SPDX-License-Identifier: Apache-2.0
//
// Check-out, check-in and the cancelling of a check-out: one test for all three, and a table of what differs.
#include <ostream>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

struct VaultOperation {
    std::string name;
    int (*run)(char*, char*, char*, char**);
    // Lines of the story.
    std::string owner;
    std::string vaultDefaults; // this one call is reported without a name
    std::string vaultCall;
    // The line in the log.
    std::string subject;
    std::string done;
};

void PrintTo(const VaultOperation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

class DocumentVault : public LibraryTest, public ::testing::WithParamInterface<VaultOperation> {
protected:
    static Outcome run(const std::string& revision, char** names)
    {
        return record([&] { return GetParam().run(Text("4711x"), Text("d-1b"), Text(revision), names); });
    }
};

TEST_P(DocumentVault, AVersionIsOpenedGivenItsDefaultsAndMoved)
{
    const VaultOperation& vault = GetParam();
    atEachLevel([&] {
        writeFile("QVL_RZM_DEFAULT",
                  vault.name + " site A\nDocument no no\n" + vault.name + " doc_type DRW\n");
        EXPECT_EQ(run("a", Names({"doc_type", "db_object_id"})).story,
                  story('\n' + vault.name + R"(:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @- Printing Input Attributes ....
2 @-    DbObjectId=4711x-.
2 @-    DocumentNumber=D-1B-.
2 @-    RevisionNumber=a-.
2 @- Printing Selected Attributes ....
2 @-   doc_type-.
2 @-   db_object_id-.
log @ DbObjectId=4711x, DocumentNumber=D-1B, RevisionNumber=a
log @     site = A
log @     doc_type = DRW
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "DocVersion") = 0
2 @-  db_object_id=4711x-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
2 @-   doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
2 @-   doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
)" + vault.owner + "> QV_Open_Object(obj1) = 0\n" +
                        vault.vaultDefaults + R"(> QV_Subscribe_Object_Attr(obj1, "doc_type") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
2 @-     doc_type=DRW-. > QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
> )" + vault.vaultCall + " = 0\n" +
                        "log @ ..." + vault.subject + " was  " + vault.done + R"(
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[doc_type, db_object_id]
)"));
    });
}

TEST_P(DocumentVault, WithoutDefaultsAndNamesTheVaultCallFollowsAtOnce)
{
    const VaultOperation& vault = GetParam();
    connect();
    EXPECT_EQ(run("1", nullptr).storyFrom("QV_Open_Object"),
              story('\n' + vault.name + ":\n> QV_Open_Object(obj1) = 0\n" + vault.vaultDefaults + "> " +
                    vault.vaultCall + " = 0\nlog @ ..." + vault.subject + " was  " + vault.done + R"(
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
}

INSTANTIATE_TEST_SUITE_P(
    Operations, DocumentVault,
    ::testing::Values(
        VaultOperation{"DocumentCheckOut", DocumentCheckOut,
                       "1 @-  *** TEST FOR QV34GA ONLY *** doc_revision@owner@pdi_system_id=-.\n"
                       "> QV_Set_Object_Attr(obj1, \"doc_revision@owner@pdi_system_id\", \"\") = 0\n",
                       "> QV_Set_Doc_CheckOut_Defaults(obj1) = 0 as \"\"\n", "QV_CheckOut_Doc(obj1)",
                       "Document", "checked out"},
        VaultOperation{"DocumentCheckIn", DocumentCheckIn, "",
                       "> QV_Set_Doc_CheckIn_Defaults(obj1) = 0 as \"\"\n", "QV_CheckIn_Doc(obj1, 0)",
                       "Document", "checked in"},
        VaultOperation{"DocumentCancelCheckOut", DocumentCancelCheckOut, "", "",
                       "QV_Cancel_CheckOut_Doc(obj1)", "Document check-out", "canceled"}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
