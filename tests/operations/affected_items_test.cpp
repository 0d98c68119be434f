// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class AffectedItems : public LibraryTest {
protected:
    static Outcome create(const std::string& change, const std::string& item, const std::string& action,
                          const std::vector<std::string>& names = {})
    {
        return record(
            [&] { return AffectedItemCreate(Text(change), Text(item), Text(action), Names(names)); });
    }
    static Outcome query(const std::string& id, const std::vector<std::string>& names = {})
    {
        return record([&] { return AffectedItemQuery(Text(id), Names(names)); });
    }
};

TEST_F(AffectedItems, AnItemIsAddedToAChangeWithDefaults)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemQuery no no\n"
                                     "AffectedItemCreate item_number default\n");
        EXPECT_EQ(create("ec-12a", "br-100", "add", {"db_object_id", "item_status"}).story, story(R"(
AffectedItemCreate:
2 @---Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @- Printing Input Attributes ....
2 @-      EC Number=EC-12A-.
2 @-      Item Number=BR-100-.
2 @-      Action=ADD-.
2 @-      ... plus AffectedItem default attributes ....
2 @-      eff_date_str=today-.
2 @-      item_number=default-.
2 @- Printing Selected Attributes ....
2 @-      db_object_id-.
2 @-      item_status-.
log @ ItemNumber=BR-100, EcNumber=EC-12A, Action=ADD
log @     eff_date_str = today
log @     item_number = default
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "AffectedItem") = 0
2 @- Set required fields for cl_save.
2 @-      ec@id=EC-12A-. > QV_Set_Object_Attr(obj1, "ec@id", "EC-12A") = 0
2 @-      item_number=BR-100-. > QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
2 @-      change_action@curr_key=ADD-. > QV_Set_Object_Attr(obj1, "change_action@curr_key", "ADD") = 0
2 @-    update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-      eff_date_str=today-. > QV_Set_Object_Attr(obj1, "eff_date_str", "today") = 0
2 @-      item_number=default-. > QV_Set_Object_Attr(obj1, "item_number", "default") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "item_status") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ...AffectedItem was  created
2 @---Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, item_status]
)"));
    });
}

TEST_F(AffectedItems, AReleaseLeavesOutTheDateOfEffectivityAlone)
{
    connect(2);
    writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemCreate eff_date a\n"
                                 "AffectedItemCreate EFF_DATE_STR b\n");
    const Outcome outcome = create("EC-1", "BR-1", "rel");
    EXPECT_EQ(outcome.storyFrom("-    update_count"), story(R"(
AffectedItemCreate:
2 @-    update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-      eff_date_str=today-.
2 @- Skipping eff_date_str=today because Action=REL.
2 @-      eff_date=a-. > QV_Set_Object_Attr(obj1, "eff_date", "a") = 0
2 @-      EFF_DATE_STR=b-. > QV_Set_Object_Attr(obj1, "EFF_DATE_STR", "b") = 0
2 @- Set fields to be selected for cl_save.
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ...AffectedItem was  created
2 @---Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    EXPECT_EQ(countLines(outcome.accessLog, "    eff_date_str = today"), 1) << "listed all the same";
    EXPECT_EQ(countLines(create("EC-1", "BR-1", "rels").calls, "\"eff_date_str\", \"today\""), 1);
}

TEST_F(AffectedItems, AnEmptyActionIsAChange)
{
    connect(2);
    const Outcome outcome = create("EC-1", "BR-1", "");
    EXPECT_EQ(countLines(outcome.output, "AffectedItemCreate-      Action=-."), 1);
    EXPECT_EQ(countLines(outcome.accessLog, "AffectedItemCreate ItemNumber=BR-1, EcNumber=EC-1, Action="), 1);
    EXPECT_EQ(countLines(outcome.output, "AffectedItemCreate-      change_action@curr_key=CHG-."), 1);
    EXPECT_EQ(countLines(outcome.calls, R"("change_action@curr_key", "CHG")"), 1);
}

TEST_F(AffectedItems, TheItemsOfAChangeAreListed)
{
    atEachLevel([] {
        standin::setRecords({{{"item_number", "BR-1"}}, {{"item_number", "BR-2"}}});
        writeFile("QVL_RZM_DEFAULT", "AffectedItemQuery no no\n");
        EXPECT_EQ(query("ab'12", {"item_number", "item_status"}).story, story(R"--(
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
)--"));
        char value[QV_MAX_VALUE_LENGTH + 1];
        captureOutput([&] { EXPECT_EQ(GetValue(1, "item_number", value), 1); });
        EXPECT_STREQ(value, "BR-2");
        EXPECT_EQ(query("4711").calls.substr(0, 30), "QV_Destroy_List(list1) = 0\nQV_");
    });
}

TEST_F(AffectedItems, AMissingChangeIsRefusedWithoutACall)
{
    atEachLevel([] {
        makeListResult({{}, {}, {}});
        const void* const previous = QV_ListPtr;
        EXPECT_EQ(query("", {"item_number"}).story, story(R"(
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

TEST_F(AffectedItems, AnIdentifierThatDoesNotFitTheClauseIsRefused)
{
    connect(5);
    EXPECT_EQ(query(std::string(58, 'x')).storyFrom("call QV_Create_List"), story(R"(
AffectedItemQuery:
> QV_Create_List(list1, "AffectedItem") = 0
2 @ AppendWhere- QV_Set_Clause-Where  : QV_RC=-1.
log @- rc(AppendWhere- QV_Set_Clause-Where) = -1
! -1 - ecDbObjectId has 58 characters; at most 57 fit the clause &=(ec@db_object_id,'...')
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[]
)"));
}

} // namespace
