// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ItemHeader : public LibraryTest {
protected:
    static int create(const VELUnicodeString& change)
    {
        return ItemHeaderCreate(change, "br-100", "Bracket", "Flat steel", "Pt", "Lvl", "Cat");
    }
};

TEST_F(ItemHeader, IsCreatedAndReleasedUnderItsChange)
{
    const VELUnicodeString change("ec-1a");
    // At the end QV_RC is the result of AffectedItemCreate.
    storiesOf([&] {
        writeFile("QVL_RZM_DEFAULT", "ItemHeaderCreate name default\nAffectedItemCreate eff_date_str now\n");
        return create(change);
    }).tell(R"(
ItemHeaderCreate:
2 @-----Start------------------------------.
defaults 1
2 @- Printing Input Attributes ....
2 @\tEcNumber=EC-1A.
2 @\tItemNumber=BR-100.
2 @\tItemName=BRACKET.
2 @\tItemDesc=Flat steel.
2 @\tItemType=Pt.
2 @\tSecurityLevel=Lvl.
2 @\tSecurityCategory=Cat.
2 @-     ... and eventually, some Default Attributes ....
2 @-     name=default-.
new ItemEngineeringData
2 @ Set Required Fields for Save.
2 @-     name=default-. > QV_Set_Object_Attr(obj1, "name", "default") = 0
2 @   il_ec_number=-. > QV_Set_Object_Attr(obj1, "il_ec_number", "") = 0
2 @   logical_key@item_number=br-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
2 @   name=BRACKET-. > QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
2 @   description=Flat steel-. > QV_Set_Object_Attr(obj1, "description", "Flat steel") = 0
2 @   item_type=Pt-. > QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
2 @   x_sec_level_code=Lvl-. > QV_Set_Object_Attr(obj1, "x_sec_level_code", "Lvl") = 0
2 @   x_sec_cat_code=Cat-. > QV_Set_Object_Attr(obj1, "x_sec_cat_code", "Cat") = 0
2 @-   update_count=0-. > QV_Set_Object_Attr(obj1, "update_count", "0") = 0
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @ Execute Save method. > QV_Save_Object(obj1) = 0
2 @ Calling AffectedItemCreate for Item BR-100 at EC EC-1A.
AffectedItemCreate:
2 @---Start------------------------------.
defaults 1
2 @- Printing Input Attributes ....
2 @-      EC Number=EC-1A-.
2 @-      Item Number=BR-100-.
2 @-      Action=REL-.
2 @-      ... plus AffectedItem default attributes ....
2 @-      eff_date_str=now-.
2 @- Printing Selected Attributes ....
2 @-      db_object_id-.
log @ ItemNumber=BR-100, EcNumber=EC-1A, Action=REL
log @     eff_date_str = now
- QV_Destroy_Object(obj1) = 0
> QV_Create_Object(obj2, "AffectedItem") = 0
2 @- Set required fields for cl_save.
2 @-      ec@id=EC-1A-. > QV_Set_Object_Attr(obj2, "ec@id", "EC-1A") = 0
2 @-      item_number=BR-100-. > QV_Set_Object_Attr(obj2, "item_number", "BR-100") = 0
2 @-      change_action@curr_key=REL-. > QV_Set_Object_Attr(obj2, "change_action@curr_key", "REL") = 0
2 @-    update_count=-. > QV_Set_Object_Attr(obj2, "update_count", "") = 0
2 @-      eff_date_str=now-.
2 @- Skipping eff_date_str=now because Action=REL.
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj2, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj2) = 0
log @ ...AffectedItem was  created
2 @---Exit------------entries/rc=1--------------------.
ItemHeaderCreate:
2 @ rc(AffectedItemCreate)=1.
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=1 SelectedAttribute=[db_object_id]
)");
    EXPECT_STREQ(change, "ec-1a");
}

TEST_F(ItemHeader, WithoutAChangeOrAStoredItemNothingIsReleasedAndTheSelectionStays)
{
    connect(2);
    VELListValVELUnicodeString selected = textList({"kept"});
    captureOutput([&] { ItemOpen(Text("BR-1"), Text("EC-1"), selected); });
    EXPECT_EQ(record([] { return create(nullptr); }).storyFrom("call QV_Save_Object"), story(R"(
ItemHeaderCreate:
> QV_Save_Object(obj2) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, kept]
)"));
    standin::answer("QV_Save_Object", QV_ALREADY_STORED, {{"Q220", "Already stored"}});
    EXPECT_EQ(record([] { return create("EC-1"); }).storyFrom("call QV_Save_Object"), story(R"(
ItemHeaderCreate:
> QV_Save_Object(obj3) = -220
! Q220 - Already stored
2 @----Exit------------entries/rc=0--------------------.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-220 SelectedAttribute=[, kept]
)"));
}

TEST_F(ItemHeader, AChangeOfAnyLengthReachesTheRelease)
{
    connect();
    const std::string calls = record([] { return create(std::string(10000, 'c').c_str()); }).calls;
    EXPECT_EQ(countLines(calls, '"' + std::string(10000, 'C') + '"'), 1);
}

TEST_F(ItemHeader, AReleaseThatFailsDoesNotCount)
{
    connect(2);
    standin::answerCall(20, -7, {{"Q7", "Refused"}}); // the second save
    EXPECT_EQ(record([] { return create("EC-1"); }).storyFrom("call QV_Save_Object(obj2)"), story(R"(
AffectedItemCreate:
> QV_Save_Object(obj2) = -7
! Q7 - Refused
log @ ...AffectedItem was  not created
2 @---Exit------------entries/rc=0--------------------.
ItemHeaderCreate:
2 @ rc(AffectedItemCreate)=0.
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)"));
}

} // namespace
