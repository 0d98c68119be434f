// SPDX-License-Identifier: Apache-2.0
//
// The references from items to documents.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ItemReferences : public LibraryTest {
protected:
    static Outcome create(const std::string& change, const std::vector<std::string>& names = {})
    {
        return record([&] {
            return ItemReferenceCreate(Text(change), Text("br-1b"), Text("d-1c"), Text("a"), Text("oid"),
                                       Names(names));
        });
    }
    static int remove() { return ItemReferenceDelete(Text("4711"), Text("ec-1")); }
};

TEST_F(ItemReferences, AReferenceIsCreatedWithDefaultsOverTheFixedAttributes)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT",
                  "ItemReferenceCreate logical_key@loc_id LOC\nItemReferenceCreate site A\n");
        EXPECT_EQ(create("ec-1a", {"db_object_id", "item_ref_xref"}).story, story(R"(
ItemReferenceCreate:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @ Printing Input Attributes ....
2 @\tEcNumber=EC-1A.
2 @\tItemNumber=BR-1B.
2 @\tDocumentNumber=D-1C.
2 @\tDocumentRevisionNumber=a.
2 @\tSystemPartnerOid=oid.
2 @-     ... plus default attributes ....
2 @-     logical_key@loc_id=LOC-.
2 @-     site=A-.
2 @ Printing Selected Attributes ....
2 @   db_object_id-.
2 @   item_ref_xref-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemReference") = 0
2 @- Valuate il_ec_number untyped instance with EC number=EC-1A-.
2 @-   il_ec_number=EC-1A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0
2 @- Set Required Fields for save.
2 @-   logical_key@item_numberBR-1B. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-1B") = 0
2 @-   logical_key@reference_id=D-1C. > QV_Set_Object_Attr(obj1, "logical_key@reference_id", "D-1C") = 0
2 @-   reference_level=a. > QV_Set_Object_Attr(obj1, "reference_level", "a") = 0
2 @-   item_ref_xref=oid. > QV_Set_Object_Attr(obj1, "item_ref_xref", "oid") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-     logical_key@loc_id=LOC-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "LOC") = 0
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "item_ref_xref") = 0
2 @- Execute cl_save method; CLAYR_makeCall, cl_save. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, item_ref_xref]
)"));
    });
}

TEST_F(ItemReferences, WithoutAChangeNoneIsSet)
{
    connect(2);
    const Outcome outcome = create("");
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "il_ec_number"), 0);
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Object_Attr"), 6);
    EXPECT_EQ(countLines(outcome.output, "... plus default attributes ..."), 0);
}

TEST_F(ItemReferences, AReferenceIsDeletedWithoutATraceOfTheCall)
{
    atEachLevel([] {
        NbSelectedAttribute = 7;
        EXPECT_EQ(record(remove).story, story(R"(
ItemReferenceDelete- :
2 @-----start------.
2 @ \tDbObjectId=4711-.
2 @\tEcNumber=ec-1.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemReference") = 0
2 @ set required fields for cl_delete-.
2 @    db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @    il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
> QV_Delete_Object(obj1) = 0
2 @----Exit------------rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    });
}

TEST_F(ItemReferences, TheQueryDoesNothing)
{
    connect(9);
    record(remove);
    QV_RC = -5;
    QV_ObjectHandle const object = QV_ObjPtr;
    Text text("br-1");
    for (char* const argument : {static_cast<char*>(text), static_cast<char*>(nullptr)}) {
        EXPECT_EQ(
            record([=] { return ItemReferenceQuery(argument, argument, argument, argument, nullptr); }).story,
            story(R"(
= 0 FromList=Object entries=1 LastRecNo=-1 QV_RC=-5 SelectedAttribute=[]
)"));
    }
    EXPECT_EQ(text.str(), "br-1");
    EXPECT_EQ(QV_ObjPtr, object);
}

} // namespace
