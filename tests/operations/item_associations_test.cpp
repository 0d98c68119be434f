// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ItemAssociations : public LibraryTest {
protected:
    static Outcome open(const std::string& id, const std::string& item, const std::string& change,
                        const std::vector<std::string>& names = {})
    {
        return record([&] { return ItemAssociationOpen(Text(id), Text(item), Text(change), Names(names)); });
    }
    static Outcome save(const std::string& change, const std::string& item, const std::string& identifier,
                        const std::vector<std::string>& names = {})
    {
        return record(
            [&] { return ItemAssociationSave(Text(change), Text(item), Text(identifier), Names(names)); });
    }
};

TEST_F(ItemAssociations, AnAssociationIsOpened)
{
    atEachLevel([] {
        EXPECT_EQ(open("4711", "br-100", "ec-1", {"alias_xref", "alias_desc"}).story, story(R"(
ItemAssociationOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711-.
2 @-    ItemNumber=br-100-.
2 @-    EcNumber=ec-1-.
2 @- Selected Attributes are ....
2 @-   alias_xref-.
2 @-   alias_desc-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemAssociationData") = 0
2 @-  db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @-   logical_key@item_number=br-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-100") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   logical_key@alias=HXD-. > QV_Set_Object_Attr(obj1, "logical_key@alias", "HXD") = 0
2 @-   il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
> QV_Subscribe_Object_Attr(obj1, "alias_xref") = 0
> QV_Subscribe_Object_Attr(obj1, "alias_desc") = 0
> QV_Open_Object(obj1) = 0
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[alias_xref, alias_desc]
)"));
    });
}

TEST_F(ItemAssociations, AnAssociationIsSaved)
{
    atEachLevel([] {
        EXPECT_EQ(save("ec-1", "br-100", "part-7", {"db_object_id"}).story, story(R"(
ItemAssociationSave:
2 @-----Start------------------------------.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-100.
2 @\tSystemPartnerOid=part-7.
2 @ Printing Selected Attributes ....
2 @   db_object_id-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemAssociationData") = 0
2 @ Valuate il_ec_number untyped instance with EC number=ec-1-.
2 @   il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @ Set required fields for Save.
2 @   db_object_id=. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @   logical_key@item_number=br-100. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-100") = 0
2 @   logical_key@loc_id=. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @   logical_key@alias=HXD. > QV_Set_Object_Attr(obj1, "logical_key@alias", "HXD") = 0
2 @   alias_desc=VELOR/Quorvanemaster Integration. > QV_Set_Object_Attr(obj1, "alias_desc", "VELOR/Quorvanemaster Integration") = 0
2 @   alias_type@curr_key=8. > QV_Set_Object_Attr(obj1, "alias_type@curr_key", "8") = 0
2 @   alias_xref=part-7. > QV_Set_Object_Attr(obj1, "alias_xref", "part-7") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @ Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @ Execute cl_save method; CLAYR_makeCall, cl_save. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)"));
    });
}

TEST_F(ItemAssociations, WithoutAChangeNumberNoneIsSet)
{
    connect(2);
    const Outcome outcome = save("", "BR-1", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "il_ec_number"), 0);
    EXPECT_EQ(countLines(outcome.output, "ItemAssociationSave Set required fields for Save."), 1);
    EXPECT_EQ(countLines(outcome.calls, "\"alias_xref\", \"\""), 1);
}

} // namespace
