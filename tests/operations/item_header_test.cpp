// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ItemHeader : public LibraryTest {
protected:
    static Outcome create(const VELUnicodeString& change, const char* type = "Pt")
    {
        return record(
            [&] { return ItemHeaderCreate(change, "br-100", "Bracket", "Flat steel", type, "Lvl", "Cat"); });
    }
};

TEST_F(ItemHeader, IsCreatedAndReleasedUnderItsChange)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "ItemHeaderCreate name default\nAffectedItemCreate eff_date_str now\n");
        const VELUnicodeString change("ec-1a");
        // At the end QV_RC is the result of AffectedItemCreate.
        EXPECT_EQ(create(change).story, story(R"(
ItemHeaderCreate:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=1.
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
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemEngineeringData") = 0
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
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=1.
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
)"));
        EXPECT_STREQ(change, "ec-1a");
    });
}

TEST_F(ItemHeader, WithoutAChangeNothingIsReleasedAndTheSelectionStays)
{
    connect(2);
    VELListValVELUnicodeString selected = textList({"kept"});
    captureOutput([&] { ItemOpen(Text("BR-1"), Text("EC-1"), selected); });
    for (const char* const none : {"", static_cast<const char*>(nullptr)}) {
        const Outcome outcome = create(none, "");
        EXPECT_EQ(countLines(outcome.calls, R"("item_type", "")"), 1);
        EXPECT_EQ(outcome.storyFrom("ItemHeaderCreate- rc(QV_Save_Object)"), story(R"(
ItemHeaderCreate:
log @- rc(QV_Save_Object) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, kept]
)"));
    }
}

TEST_F(ItemHeader, AChangeOfAnyLengthReachesTheRelease)
{
    connect();
    EXPECT_EQ(countLines(create(std::string(10000, 'c').c_str()).calls, '"' + std::string(10000, 'C') + '"'),
              1);
}

TEST_F(ItemHeader, AnItemThatIsNotStoredIsNotReleased)
{
    connect(2);
    standin::answer("QV_Save_Object", QV_ALREADY_STORED, {{"Q220", "Already stored"}});
    EXPECT_EQ(create("EC-1").storyFrom("call QV_Save_Object"), story(R"(
ItemHeaderCreate:
> QV_Save_Object(obj1) = -220
! Q220 - Already stored
2 @----Exit------------entries/rc=0--------------------.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-220 SelectedAttribute=[]
)"));
}

TEST_F(ItemHeader, AReleaseThatFailsDoesNotCount)
{
    for (std::size_t failing = 14; failing <= 20; ++failing) { // from its create to its save
        SCOPED_TRACE("with call " + std::to_string(failing) + " failing");
        restart();
        connect(2);
        standin::answerCall(failing, -7, {{"Q7", "Refused"}});
        const Outcome outcome = create("EC-1");
        const bool released = failing == 18; // the update count may fail
        EXPECT_EQ(standin::calls().size(), released ? 20 : failing);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_EQ(QV_RC, released ? 1 : 0);
        EXPECT_EQ(outcome.errorLog, errorBlock("AffectedItemCreate", "Refused "));
        EXPECT_EQ(countLines(outcome.output, released ? "ItemHeaderCreate rc(AffectedItemCreate)=1."
                                                      : "ItemHeaderCreate rc(AffectedItemCreate)=0."),
                  1);
        EXPECT_EQ(countLines(outcome.output, "ItemHeaderCreate----Exit------------entries/rc=1-"), 1);
        EXPECT_EQ(countLines(outcome.accessLog, "...AffectedItem was  not created"), released ? 0 : 1);
    }
}

} // namespace
