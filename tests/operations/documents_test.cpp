// SPDX-License-Identifier: Apache-2.0
//
// The creation of documents, their change control, their opening, and the list that ends with the latest revision.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using Documents = LibraryTest;

int createDocument(const char* change)
{
    return DocumentCreateCheckIn(Text(change), Text("Bracket, 2nd sheet"), Text("oid-7"),
                                 Names({"db_object_id"}));
}

TEST_F(Documents, AControlledDocumentIsCreatedWithDefaultsSetLast)
{
    storiesOf([] {
        writeFile("QVL_RZM_DEFAULT", "DocumentCreateCheckIn doc_ver_num A\nDocumentCheckIn no no\n");
        return createDocument("ec-12a");
    }).tell(R"(
DocumentCreateCheckIn:
2 @-----Start------------------------------.
defaults 1
2 @ Printing Input Attributes ....
2 @\tEc Number=EC-12A.
2 @\tDocumentTitle=BRACKET, 2ND SHEET.
2 @\tSystemPartnerOid=oid-7.
2 @-     ... plus default attributes ....
2 @-     doc_ver_num=A-.
2 @ Printing Selected Attributes ....
2 @   db_object_id-.
log @    EcNumber= EC-12A , DocumentTitle= BRACKET, 2ND SHEET
log @    SystemPartnerOid= oid-7
log @     doc_ver_num = A
new DocVersion
2 @- Set Required Fields for cl_create_and_ckin.
2 @-   doc_revision@doc_titleBRACKET, 2ND SHEET. > QV_Set_Object_Attr(obj1, "doc_revision@doc_title", "BRACKET, 2ND SHEET") = 0
2 @-   ckin_userdata3=oid-7. > QV_Set_Object_Attr(obj1, "ckin_userdata3", "oid-7") = 0
2 @-   doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "1") = 0
2 @-   doc_revision@doc_ctrl_num=EC-12A. > QV_Set_Object_Attr(obj1, "doc_revision@doc_ctrl_num", "EC-12A") = 0
2 @-   doc_revision@doc_number=-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "") = 0
2 @-   doc_revision@doc_rev_num=1-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "1") = 0
2 @-   doc_ver_num=-. > QV_Set_Object_Attr(obj1, "doc_ver_num", "") = 0
2 @-   doc_revision@external_doc=-. > QV_Set_Object_Attr(obj1, "doc_revision@external_doc", "") = 0
2 @-     doc_ver_num=A-. > QV_Set_Object_Attr(obj1, "doc_ver_num", "A") = 0
2 @- Set  fields to be selected for cl_create_and_ckin. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin. > QV_Create_and_CheckIn_Doc(obj1, 0) = 0
log @ ...Document was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)");
}

TEST_F(Documents, WithoutAChangeADocumentIsNotControlled)
{
    connect(2);
    const Outcome outcome = record([] { return createDocument(""); });
    EXPECT_EQ(countLines(outcome.output, "DocumentCreateCheckIn-   doc_revision@chg_ctrl=0."), 1);
    EXPECT_EQ(countLines(outcome.calls, R"("doc_revision@chg_ctrl", "0")"), 1);
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Object_Attr"), 7);
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "doc_ctrl_num"), 0);
}

TEST_F(Documents, ARevisionIsPutUnderTheControlOfAChange)
{
    const auto control = [](const char* change) {
        return DocumentMakeECControlled(Text(change), Text("d-1b"), Text("a"), "Bracket",
                                        Names({"db_object_id"}));
    };
    storiesOf([&] {
        writeFile("QVL_RZM_DEFAULT", "DocumentMakeECControlled site A\n");
        return control("ec-12a"); // neither the title nor the defaults are set
    }).tell(R"(
DocumentMakeECControlled:
2 @-----Start------------------------------.
defaults 1
2 @- Printing Input Attributes ....
2 @-    EcNumber=EC-12A.
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @-    DocumentTitle=Bracket.
2 @- Printing Selected Attributes ....
2 @-   db_object_id-.
log @ EcNumber=EC-12A, DocumentNumber=D-1B, RevisionNumber=a, DocumentTitle=Bracket
log @     site = A
new DocVersion
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-  doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
2 @-  doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@chg_ctrl") = 0
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
> QV_Open_Object(obj1) = 0
2 @-   doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "1") = 0
2 @-   doc_revision@doc_ctrl_num=EC-12A. > QV_Set_Object_Attr(obj1, "doc_revision@doc_ctrl_num", "EC-12A") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @  ... document is now EC controlled 
2 @-----exit---rc=1-.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)");
    const Outcome withoutChange = record([&] { return control(""); });
    EXPECT_EQ(countLines(withoutChange.calls, R"("doc_revision@chg_ctrl", "1")"), 1);
    EXPECT_EQ(countLines(withoutChange.calls, R"("doc_revision@doc_ctrl_num", "")"), 1);
}

TEST_F(Documents, ARevisionIsOpenedByItsNumbers)
{
    storiesOf([] {
        // A list is captured from slot 1 on, so that its positions are the attribute numbers.
        std::string("kept").copy(SelectedAttribute[0], 5);
        auto names = textList({"db_object_id"});
        return DocumentOpen(Text("d-1b"), Text("a"), names);
    }).tell(R"(
DocumentOpen:
2 @-----Start------------------------------.
2 @- Printing Input Attributes ....
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @- Printing Selected Attributes ....
2 @-   db_object_id-.
log @ DocumentNumber=D-1B, RevisionNumber=a
new DocVersion
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
2 @-   doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Open_Object(obj1) = 0
log @ ...Document was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[kept, db_object_id]
)");
}

TEST_F(Documents, TheVersionsAreListedWithTheLatestLast)
{
    storiesOf([] {
        standin::script().records = {{}, {}, {}, {}};
        NbSelectedAttribute = 7;
        return DocumentGetLastRevision("d-1b");
    }).tell(R"--(
DocumentGetLastRevision:
2 @-----Start------------------------------.
2 @\tDocNumber=d-1b.
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, "DocVersion") = 0
2 @ AppendSelect - doc_revision@doc_number. > QV_Set_Clause(list1, "Select", "doc_revision@doc_number") = 0
2 @ AppendSelect - doc_revision@doc_rev_num. > QV_Set_Clause(list1, "Select", "doc_revision@doc_rev_num") = 0
2 @ AppendWhere - &=(doc_revision@doc_number,'d-1b'). > QV_Set_Clause(list1, "Where", "&=(doc_revision@doc_number,'d-1b')") = 0
2 @ AppendWhere - &=(doc_revision@primary_config@db_object_id,db_object_id). > QV_Set_Clause(list1, "Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)") = 0
2 @ AppendWhere - &=(copy_count,0). > QV_Set_Clause(list1, "Where", "&=(copy_count,0)") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_number") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_rev_num_v") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_ver_num") = 0
> QV_Open_List(list1) = 0
> QV_SizeOf_List(list1, 4) = 0 as QV_SizeOf_List "nb_of_entries" "4"
2 @-----Exit------Nb of entries=4------------.
= 4 FromList=List entries=4 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)--");
    standin::script().records = {};
    EXPECT_EQ(record([] { return DocumentGetLastRevision("D-9"); }).result, 0);
    EXPECT_EQ(QV_RC, 0) << "an unknown document is no error";
}

TEST_F(Documents, AMissingDocumentNumberIsRefusedAndLeavesTheCurrentResult)
{
    storiesOf([] {
        setFromList("Object");
        NbSelectedAttribute = 1;
        LastRecNo = 3;
        return DocumentGetLastRevision("");
    }).tell(R"(
DocumentGetLastRevision:
2 @-----Start------------------------------.
2 @\tDocNumber=.
0 @****** ERROR ******  Document Number is not valuated....
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=Object entries=0 LastRecNo=3 QV_RC=-1 SelectedAttribute=[]
)");
}

} // namespace
