// SPDX-License-Identifier: Apache-2.0
//
// Engineering changes and the items that they affect.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class EngineeringChanges : public LibraryTest {
protected:
    static int open(const char* number, std::vector<std::string> names)
    {
        return EngineeringChangeOpen(Text("4711"), Text(number), Names(std::move(names)));
    }
};

TEST_F(EngineeringChanges, AChangeIsCreatedWithDefaultsAndEveryInput)
{
    storiesOf([] {
        writeFile("QVL_RZM_DEFAULT", "EngineeringChangeCreate priority high\nEngineeringChangeOpen no no\n");
        writeFile("My_QVL_RZM_DEFAULT", "EngineeringChangeCreate desc default\n");
        return EngineeringChangeCreate("ec-12a", "Stronger bracket", "3", "C", "jdoe");
    }).tell(R"(
EngineeringChangeCreate:
2 @-----Start------------------------------.
defaults 2
2 @- Printing Input Attributes ....
2 @-    EcNumber=ec-12a- EcName=Stronger bracket-.
2 @-    SecurityLevel=3- SecurityCategory=C-.
log @ EcNumber= EC-12A EcName= Stronger bracket
log @ SecurityLevel= 3 SecurityCategory= C
2 @-     ... and eventually, some Default Attributes ....
2 @-     priority=high-.
log @     priority = high
2 @-     desc=default-.
log @     desc = default
new EngineeringChange
2 @ Set Required Fields for Save.
2 @-     priority=high-. > QV_Set_Object_Attr(obj1, "priority", "high") = 0
2 @-     desc=default-. > QV_Set_Object_Attr(obj1, "desc", "default") = 0
2 @-   id=EC-12A-. > QV_Set_Object_Attr(obj1, "id", "EC-12A") = 0
2 @-   desc=Stronger bracket-. > QV_Set_Object_Attr(obj1, "desc", "Stronger bracket") = 0
2 @-   update_count=0-. > QV_Set_Object_Attr(obj1, "update_count", "0") = 0
2 @-   initiator@person_identifier=jdoe-. > QV_Set_Object_Attr(obj1, "initiator@person_identifier", "jdoe") = 0
2 @-   x_sec_level_code=3-. > QV_Set_Object_Attr(obj1, "x_sec_level_code", "3") = 0
2 @-   x_sec_cat_code=C-. > QV_Set_Object_Attr(obj1, "x_sec_cat_code", "C") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ... Engineering Change was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)");
    EXPECT_EQ(lastError(), version);
}

TEST_F(EngineeringChanges, EmptySecurityCodesAreLeftOutTheUserIsTheInitiatorAndTheSelectionStays)
{
    setEnvironment("USER", "jdoe");
    connect(2);
    captureOutput([] { open("EC-1", {"id", "desc"}); });
    const auto create = [] { return EngineeringChangeCreate("ec-1", "", "", "", ""); };
    EXPECT_EQ(record(create).storyFrom("-   initiator@"), story(R"(
EngineeringChangeCreate:
2 @-   initiator@person_identifier=jdoe-. > QV_Set_Object_Attr(obj2, "initiator@person_identifier", "jdoe") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj2, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj2) = 0
log @ ... Engineering Change was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
    setEnvironment("USER", std::nullopt);
    EXPECT_EQ(countLines(record(create).calls, R"("initiator@person_identifier", "")"), 1);
}

TEST_F(EngineeringChanges, AChangeIsOpenedWithTheNamedAttributes)
{
    storiesOf([] {
        return open("ec-12a", {"id", "initiator@person_identifier"});
    }).tell(R"(
EngineeringChangeOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711-.
2 @-    EcNumber=ec-12a-.
2 @- Selected Attributes are ....
2 @-   id-.
2 @-   initiator@person_identifier-.
new EngineeringChange
2 @-  db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @-   id=ec-12a-. > QV_Set_Object_Attr(obj1, "id", "ec-12a") = 0
> QV_Subscribe_Object_Attr(obj1, "id") = 0
> QV_Subscribe_Object_Attr(obj1, "initiator@person_identifier") = 0
> QV_Open_Object(obj1) = 0
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, initiator@person_identifier]
)");
}

using AffectedItems = LibraryTest;

TEST_F(AffectedItems, AnItemIsAddedToAChangeWithDefaults)
{
    storiesOf([] {
        writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemQuery no no\n"
                                     "AffectedItemCreate item_number default\n");
        return AffectedItemCreate(Text("ec-12a"), Text("br-100"), Text("add"), Names({"item_status"}));
    }).tell(R"(
AffectedItemCreate:
2 @---Start------------------------------.
defaults 2
2 @- Printing Input Attributes ....
2 @-      EC Number=EC-12A-.
2 @-      Item Number=BR-100-.
2 @-      Action=ADD-.
2 @-      ... plus AffectedItem default attributes ....
2 @-      eff_date_str=today-.
2 @-      item_number=default-.
2 @- Printing Selected Attributes ....
2 @-      item_status-.
log @ ItemNumber=BR-100, EcNumber=EC-12A, Action=ADD
log @     eff_date_str = today
log @     item_number = default
new AffectedItem
2 @- Set required fields for cl_save.
2 @-      ec@id=EC-12A-. > QV_Set_Object_Attr(obj1, "ec@id", "EC-12A") = 0
2 @-      item_number=BR-100-. > QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
2 @-      change_action@curr_key=ADD-. > QV_Set_Object_Attr(obj1, "change_action@curr_key", "ADD") = 0
2 @-    update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-      eff_date_str=today-. > QV_Set_Object_Attr(obj1, "eff_date_str", "today") = 0
2 @-      item_number=default-. > QV_Set_Object_Attr(obj1, "item_number", "default") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "item_status") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ...AffectedItem was  created
2 @---Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[item_status]
)");
}

TEST_F(AffectedItems, AReleaseLeavesOutTheDateOfEffectivityAloneAndNoActionIsAChange)
{
    const auto create = [](const char* action) {
        return record([=] { return AffectedItemCreate(Text("EC-1"), Text("BR-1"), Text(action), nullptr); });
    };
    connect(2);
    writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemCreate eff_date a\n"
                                 "AffectedItemCreate EFF_DATE_STR b\n");
    const Outcome release = create("rel");
    EXPECT_EQ(countLines(release.accessLog, "    eff_date_str = today"), 1) << "listed, not set";
    EXPECT_EQ(countLines(release.output, "Skipping"), 1);
    EXPECT_EQ(countLines(release.calls, R"("eff_date_str", )"), 0);
    EXPECT_EQ(countLines(release.calls, R"("eff_date", "a")"), 1);
    EXPECT_EQ(countLines(release.calls, R"("EFF_DATE_STR", "b")"), 1);
    EXPECT_EQ(countLines(create("rels").calls, R"("eff_date_str", "today")"), 1);

    const Outcome change = create("");
    EXPECT_EQ(countLines(change.output, "AffectedItemCreate-      Action=-."), 1);
    EXPECT_EQ(countLines(change.accessLog, "AffectedItemCreate ItemNumber=BR-1, EcNumber=EC-1, Action="), 1);
    EXPECT_EQ(countLines(change.output, "AffectedItemCreate-      change_action@curr_key=CHG-."), 1);
    EXPECT_EQ(countLines(change.calls, R"("change_action@curr_key", "CHG")"), 1);
}

TEST_F(AffectedItems, TheItemsOfAChangeAreListed)
{
    storiesOf([] {
        standin::script().records = {{{"item_number", "BR-1"}}, {{"item_number", "BR-2"}}};
        writeFile("QVL_RZM_DEFAULT", "AffectedItemQuery no no\n");
        return AffectedItemQuery(Text("ab'12"), Names({"item_number", "item_status"}));
    }).tell(R"--(
AffectedItemQuery:
2 @-----Start------------------------------.
2 @\tEcDbObjectId=ab'12.
2 @ Printing Selected Attributes ....
2 @   item_number-.
2 @   item_status-.
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, "AffectedItem") = 0
2 @ AppendSelect - item_number. > QV_Set_Clause(list1, "Select", "item_number") = 0
2 @ AppendSelect - item_status. > QV_Set_Clause(list1, "Select", "item_status") = 0
2 @ AppendWhere - &=(ec@db_object_id,'ab'12'). > QV_Set_Clause(list1, "Where", "&=(ec@db_object_id,'ab'12')") = 0
> QV_Set_Clause(list1, "OrderBy", "pln_rev_level") = 0
> QV_Set_Clause(list1, "OrderBy", "item_key@item_number") = 0
> QV_Open_List(list1) = 0
> QV_SizeOf_List(list1, 2) = 0 as QV_SizeOf_List "nb_of_entries" "2"
2 @-----Exit------Nb of entries=2------------.
= 2 FromList=List entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[item_number, item_status]
)--");
    char value[QV_MAX_VALUE_LENGTH + 1];
    captureOutput([&] { EXPECT_EQ(GetValue(1, "item_number", value), 1); });
    EXPECT_STREQ(value, "BR-2");
}

TEST_F(AffectedItems, AMissingChangeIsRefusedWithoutACall)
{
    atEachLevel([] {
        makeListResult({{}, {}, {}});
        const void* const previous = QV_ListPtr;
        EXPECT_EQ(record([] { return AffectedItemQuery(Text(""), Names({"item_number"})); }).story, story(R"(
AffectedItemQuery:
2 @-----Start------------------------------.
2 @\tEcDbObjectId=.
2 @ Printing Selected Attributes ....
2 @   item_number-.
0 @****** ERROR ****** EC db_object_id is not valuated....
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[item_number]
)"));
        EXPECT_EQ(QV_ListPtr, previous);
        EXPECT_EQ(lastError(), version);
    });
}

} // namespace
