// SPDX-License-Identifier: Apache-2.0
//
// The creation of documents and their change control.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class DocumentCreation : public LibraryTest {
protected:
    static Outcome create(const std::string& change, const std::string& title,
                          const std::vector<std::string>& names = {})
    {
        return record(
            [&] { return DocumentCreateCheckIn(Text(change), Text(title), Text("oid-7"), Names(names)); });
    }
};

TEST_F(DocumentCreation, AControlledDocumentIsCreatedWithDefaultsSetLast)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "DocumentCreateCheckIn doc_type DRW\nDocumentCheckIn no no\n");
        writeFile("My_QVL_RZM_DEFAULT", "DocumentCreateCheckIn doc_ver_num A\n");
        EXPECT_EQ(create("ec-12a", "Bracket, 2nd sheet", {"doc_revision@doc_number", "db_object_id"}).story,
                  story(R"(
DocumentCreateCheckIn:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @ Printing Input Attributes ....
2 @\tEc Number=EC-12A.
2 @\tDocumentTitle=BRACKET, 2ND SHEET.
2 @\tSystemPartnerOid=oid-7.
2 @-     ... plus default attributes ....
2 @-     doc_type=DRW-.
2 @-     doc_ver_num=A-.
2 @ Printing Selected Attributes ....
2 @   doc_revision@doc_number-.
2 @   db_object_id-.
log @    EcNumber= EC-12A , DocumentTitle= BRACKET, 2ND SHEET
log @    SystemPartnerOid= oid-7
log @     doc_type = DRW
log @     doc_ver_num = A
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "DocVersion") = 0
2 @- Set Required Fields for cl_create_and_ckin.
2 @-   doc_revision@doc_titleBRACKET, 2ND SHEET. > QV_Set_Object_Attr(obj1, "doc_revision@doc_title", "BRACKET, 2ND SHEET") = 0
2 @-   ckin_userdata3=oid-7. > QV_Set_Object_Attr(obj1, "ckin_userdata3", "oid-7") = 0
2 @-   doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "1") = 0
2 @-   doc_revision@doc_ctrl_num=EC-12A. > QV_Set_Object_Attr(obj1, "doc_revision@doc_ctrl_num", "EC-12A") = 0
2 @-   doc_revision@doc_number=-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "") = 0
2 @-   doc_revision@doc_rev_num=1-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "1") = 0
2 @-   doc_ver_num=-. > QV_Set_Object_Attr(obj1, "doc_ver_num", "") = 0
2 @-   doc_revision@external_doc=-. > QV_Set_Object_Attr(obj1, "doc_revision@external_doc", "") = 0
2 @-     doc_type=DRW-. > QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
2 @-     doc_ver_num=A-. > QV_Set_Object_Attr(obj1, "doc_ver_num", "A") = 0
2 @- Set  fields to be selected for cl_create_and_ckin. > QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_number") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin. > QV_Create_and_CheckIn_Doc(obj1, 0) = 0
log @ ...Document was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[doc_revision@doc_number, db_object_id]
)"));
    });
}

TEST_F(DocumentCreation, WithoutAChangeTheDocumentIsNotControlled)
{
    connect(2);
    const Outcome outcome = create("", "Title");
    EXPECT_EQ(countLines(outcome.accessLog, "   EcNumber=  , DocumentTitle= TITLE"), 1);
    EXPECT_EQ(countLines(outcome.output, "DocumentCreateCheckIn-   doc_revision@chg_ctrl=0."), 1);
    EXPECT_EQ(countLines(outcome.calls, R"("doc_revision@chg_ctrl", "0")"), 1);
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Object_Attr"), 7);
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "doc_ctrl_num"), 0);
}

class DocumentChangeControl : public LibraryTest {
protected:
    static Outcome control(const std::string& change, const char* title,
                           const std::vector<std::string>& names = {})
    {
        return record([&] {
            return DocumentMakeECControlled(Text(change), Text("d-1b"), Text("a"), title, Names(names));
        });
    }
};

TEST_F(DocumentChangeControl, ARevisionIsPutUnderTheControlOfAChange)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "DocumentMakeECControlled site A\n");
        // Neither the title nor the defaults are set.
        EXPECT_EQ(control("ec-12a", "Bracket", {"db_object_id", "doc_revision@doc_title"}).story, story(R"(
DocumentMakeECControlled:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=1.
2 @- Printing Input Attributes ....
2 @-    EcNumber=EC-12A.
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @-    DocumentTitle=Bracket.
2 @- Printing Selected Attributes ....
2 @-   db_object_id-.
2 @-   doc_revision@doc_title-.
log @ EcNumber=EC-12A, DocumentNumber=D-1B, RevisionNumber=a, DocumentTitle=Bracket
log @     site = A
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "DocVersion") = 0
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
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @  ... document is now EC controlled 
2 @-----exit---rc=1-.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, doc_revision@doc_title]
)"));
    });
}

TEST_F(DocumentChangeControl, AnEmptyChangeNumberIsStoredAsItIs)
{
    connect();
    const Outcome outcome = control("", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls, R"("doc_revision@chg_ctrl", "1")"), 1);
    EXPECT_EQ(countLines(outcome.calls, R"("doc_revision@doc_ctrl_num", "")"), 1);
}

} // namespace
