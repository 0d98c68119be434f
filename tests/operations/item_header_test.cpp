// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::countLines;
using harness::errorBlock;
using harness::lines;
using harness::Outcome;
using harness::writeFile;

namespace {

class ItemHeader : public harness::LibraryTest {
protected:
    static Outcome create(const char* change, const char* type = "Pt")
    {
        return record(
            [&] { return ItemHeaderCreate(change, "br-100", "Bracket", "Flat steel", type, "Lvl", "Cat"); });
    }
};

TEST_F(ItemHeader, IsCreatedAndReleasedUnderItsChange)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "ItemHeaderCreate name default\nAffectedItemCreate eff_date_str now\n");
        const VELUnicodeString change("ec-1a");
        const VELUnicodeString number("br-100");
        const VELUnicodeString name("Bracket");
        const Outcome outcome =
            record([&] { return ItemHeaderCreate(change, number, name, "Flat steel", "Pt", "Lvl", "Cat"); });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(QV_RC, 1) << "the result of AffectedItemCreate";
        EXPECT_STREQ(change, "ec-1a");
        EXPECT_STREQ(number, "br-100");
        EXPECT_STREQ(name, "Bracket");
        EXPECT_EQ(NbSelectedAttribute, 1);
        EXPECT_STREQ(SelectedAttribute[0], "db_object_id");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemEngineeringData") = 0
QV_Set_Object_Attr(obj1, "name", "default") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
QV_Set_Object_Attr(obj1, "description", "Flat steel") = 0
QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
QV_Set_Object_Attr(obj1, "x_sec_level_code", "Lvl") = 0
QV_Set_Object_Attr(obj1, "x_sec_cat_code", "Cat") = 0
QV_Set_Object_Attr(obj1, "update_count", "0") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Save_Object(obj1) = 0
QV_Destroy_Object(obj1) = 0
QV_Create_Object(obj2, "AffectedItem") = 0
QV_Set_Object_Attr(obj2, "ec@id", "EC-1A") = 0
QV_Set_Object_Attr(obj2, "item_number", "BR-100") = 0
QV_Set_Object_Attr(obj2, "change_action@curr_key", "REL") = 0
QV_Set_Object_Attr(obj2, "update_count", "") = 0
QV_Subscribe_Object_Attr(obj2, "db_object_id") = 0
QV_Save_Object(obj2) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemHeaderCreate-----Start------------------------------.
2 ItemHeaderCreate- Calling DefaultRead for ItemHeaderCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- name=default.
2 DefaultRead-----Exit----NbOfDefault=1--------.
2 ItemHeaderCreate- rc(DefaultRead)=1.
2 ItemHeaderCreate- Printing Input Attributes ....
2 ItemHeaderCreate	EcNumber=EC-1A.
2 ItemHeaderCreate	ItemNumber=BR-100.
2 ItemHeaderCreate	ItemName=BRACKET.
2 ItemHeaderCreate	ItemDesc=Flat steel.
2 ItemHeaderCreate	ItemType=Pt.
2 ItemHeaderCreate	SecurityLevel=Lvl.
2 ItemHeaderCreate	SecurityCategory=Cat.
2 ItemHeaderCreate-     ... and eventually, some Default Attributes ....
2 ItemHeaderCreate-     name=default-.
5 ItemHeaderCreate QV_Create_Object ItemEngineeringData : QV_RC=0.
2 ItemHeaderCreate Set Required Fields for Save.
2 ItemHeaderCreate-     name=default-.
5 ItemHeaderCreate QV_Set_Object_Attr name default: QV_RC=0.
2 ItemHeaderCreate   il_ec_number=-.
5 ItemHeaderCreate QV_Set_Object_Attr il_ec_number : QV_RC=0.
2 ItemHeaderCreate   logical_key@item_number=br-100-.
5 ItemHeaderCreate QV_Set_Object_Attr logical_key@item_number BR-100: QV_RC=0.
2 ItemHeaderCreate   name=BRACKET-.
5 ItemHeaderCreate QV_Set_Object_Attr name BRACKET: QV_RC=0.
2 ItemHeaderCreate   description=Flat steel-.
5 ItemHeaderCreate QV_Set_Object_Attr description Flat steel: QV_RC=0.
2 ItemHeaderCreate   item_type=Pt-.
5 ItemHeaderCreate QV_Set_Object_Attr item_type Pt: QV_RC=0.
2 ItemHeaderCreate   x_sec_level_code=Lvl-.
5 ItemHeaderCreate QV_Set_Object_Attr x_sec_level_code Lvl: QV_RC=0.
2 ItemHeaderCreate   x_sec_cat_code=Cat-.
5 ItemHeaderCreate QV_Set_Object_Attr x_sec_cat_code Cat: QV_RC=0.
2 ItemHeaderCreate-   update_count=0-.
5 ItemHeaderCreate QV_Set_Object_Attr update_count 0: QV_RC=0.
2 ItemHeaderCreate Set  fields to be selected for Save.
5 ItemHeaderCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 ItemHeaderCreate Execute Save method.
5 ItemHeaderCreate QV_Save_Object  : QV_RC=0.
2 ItemHeaderCreate Calling AffectedItemCreate for Item BR-100 at EC EC-1A.
2 AffectedItemCreate---Start------------------------------.
2 AffectedItemCreate- Calling DefaultRead for AffectedItemCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- eff_date_str=now.
2 DefaultRead-----Exit----NbOfDefault=1--------.
2 AffectedItemCreate- rc(DefaultRead)=1.
2 AffectedItemCreate- Printing Input Attributes ....
2 AffectedItemCreate-      EC Number=EC-1A-.
2 AffectedItemCreate-      Item Number=BR-100-.
2 AffectedItemCreate-      Action=REL-.
2 AffectedItemCreate-      ... plus AffectedItem default attributes ....
2 AffectedItemCreate-      eff_date_str=now-.
2 AffectedItemCreate- Printing Selected Attributes ....
2 AffectedItemCreate-      db_object_id-.
5 AffectedItemCreate QV_Create_Object AffectedItem : QV_RC=0.
2 AffectedItemCreate- Set required fields for cl_save.
2 AffectedItemCreate-      ec@id=EC-1A-.
5 AffectedItemCreate QV_Set_Object_Attr ec@id EC-1A: QV_RC=0.
2 AffectedItemCreate-      item_number=BR-100-.
5 AffectedItemCreate QV_Set_Object_Attr item_number BR-100: QV_RC=0.
2 AffectedItemCreate-      change_action@curr_key=REL-.
5 AffectedItemCreate QV_Set_Object_Attr change_action@curr_key REL: QV_RC=0.
2 AffectedItemCreate-    update_count=-.
5 AffectedItemCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 AffectedItemCreate-      eff_date_str=now-.
2 AffectedItemCreate- Skipping eff_date_str=now because Action=REL.
2 AffectedItemCreate- Set fields to be selected for cl_save.
5 AffectedItemCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 AffectedItemCreate- Execute Save method.
5 AffectedItemCreate QV_Save_Object  : QV_RC=0.
2 AffectedItemCreate---Exit------------entries/rc=1--------------------.
2 ItemHeaderCreate rc(AffectedItemCreate)=1.
2 ItemHeaderCreate----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(countLines(outcome.accessLog, "ItemHeaderCreate- rc("), 12);
        EXPECT_EQ(countLines(outcome.accessLog, "ItemHeaderCreate"), 12) << "no line of its own";
        EXPECT_EQ(countLines(outcome.accessLog, "AffectedItemCreate ...AffectedItem was  created"), 1);
    });
}

TEST_F(ItemHeader, WithoutAChangeNothingIsReleasedAndTheSelectionStays)
{
    connect(2);
    VELListValVELUnicodeString selected = harness::textList({"kept"});
    harness::captureOutput([&] { ItemOpen(harness::Text("BR-1"), harness::Text("EC-1"), selected); });
    const Outcome outcome = create("", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(NbSelectedAttribute, 2);
    EXPECT_STREQ(SelectedAttribute[1], "kept");
    EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(obj1) = 0
QV_Create_Object(obj2, "ItemEngineeringData") = 0
QV_Set_Object_Attr(obj2, "il_ec_number", "") = 0
QV_Set_Object_Attr(obj2, "logical_key@item_number", "BR-100") = 0
QV_Set_Object_Attr(obj2, "name", "BRACKET") = 0
QV_Set_Object_Attr(obj2, "description", "Flat steel") = 0
QV_Set_Object_Attr(obj2, "item_type", "") = 0
QV_Set_Object_Attr(obj2, "x_sec_level_code", "Lvl") = 0
QV_Set_Object_Attr(obj2, "x_sec_cat_code", "Cat") = 0
QV_Set_Object_Attr(obj2, "update_count", "0") = 0
QV_Subscribe_Object_Attr(obj2, "db_object_id") = 0
QV_Save_Object(obj2) = 0
)"));
    EXPECT_EQ(outcome.output.substr(outcome.output.find("ItemHeaderCreate Execute")), lines(R"(
ItemHeaderCreate Execute Save method.
ItemHeaderCreate----Exit------------entries/rc=1--------------------.
)"));
}

TEST_F(ItemHeader, AnItemThatIsNotStoredIsNotReleased)
{
    connect(2);
    standin::answer("QV_Save_Object", QV_ALREADY_STORED, {{"Q220", "Already stored"}});
    const Outcome outcome = create("EC-1");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "AffectedItem"), 0);
    EXPECT_EQ(outcome.output.substr(outcome.output.find("******")), lines(R"(
****** Already stored .
ItemHeaderCreate----Exit------------entries/rc=0--------------------.
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemHeaderCreate", "Already stored "));
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
