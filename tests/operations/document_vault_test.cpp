// SPDX-License-Identifier: Apache-2.0
//
// Check-out, check-in and the cancelling of a check-out: one story for all three, and a table of what differs.
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
    std::string outcome;
};

const VaultOperation operations[] = {
    {"DocumentCheckOut", DocumentCheckOut,
     "1 @-  *** TEST FOR QV34GA ONLY *** doc_revision@owner@pdi_system_id=-.\n"
     "> QV_Set_Object_Attr(obj1, \"doc_revision@owner@pdi_system_id\", \"\") = 0\n",
     "> QV_Set_Doc_CheckOut_Defaults(obj1) = 0 as \"\"\n", "> QV_CheckOut_Doc(obj1) = 0\n",
     "log @ ...Document was  checked out\n"},
    {"DocumentCheckIn", DocumentCheckIn, "", "> QV_Set_Doc_CheckIn_Defaults(obj1) = 0 as \"\"\n",
     "> QV_CheckIn_Doc(obj1, 0) = 0\n", "log @ ...Document was  checked in\n"},
    {"DocumentCancelCheckOut", DocumentCancelCheckOut, "", "", "> QV_Cancel_CheckOut_Doc(obj1) = 0\n",
     "log @ ...Document check-out was  canceled\n"}};

using DocumentVault = LibraryTest;

TEST_F(DocumentVault, AVersionIsOpenedGivenItsDefaultsAndMoved)
{
    for (const VaultOperation& vault : operations) {
        storiesOf([&] {
            writeFile("QVL_RZM_DEFAULT",
                      vault.name + " site A\nDocument no no\n" + vault.name + " doc_type DRW\n");
            return vault.run(Text("4711x"), Text("d-1b"), Text("a"), Names({"doc_type", "db_object_id"}));
        })
            .tell(
                '\n' + vault.name + R"(:
2 @-----Start------------------------------.
defaults 2
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
new DocVersion
2 @-  db_object_id=4711x-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
2 @-   doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
2 @-   doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
)" + vault.owner +
                "> QV_Open_Object(obj1) = 0\n" + vault.vaultDefaults +
                R"(> QV_Subscribe_Object_Attr(obj1, "doc_type") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
2 @-     doc_type=DRW-. > QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
)" + vault.vaultCall +
                vault.outcome +
                R"(= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[doc_type, db_object_id]
)");
    }
}

} // namespace
