// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using Function = decltype(&ItemCreate);
using List = VELListValVELUnicodeString;

/** What both operations tell from the reading of the defaults to the new object. */
const std::string inputsAndObject = R"(2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @- Printing Input Attributes ....
2 @\tEcNumber=EC-12A.
2 @\tItemNumber=BR-100.
2 @\tItemName=BRACKET.
2 @\tItemType=Pt.
2 @-     ... plus some other Input Attributes ....
2 @   name=given-.
2 @   skipped=-.
2 @   unit=KG-.
2 @   null=-.
2 @   weight=5-.
2 @-     ... and eventually, some Default Attributes ....
2 @-     name=default-.
2 @-     unit=EA-.
2 @ Printing Selected Attributes ....
2 @-   db_object_id-.
2 @-   status-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemEngineeringData") = 0
)";

class Items : public LibraryTest {
protected:
    static Outcome run(Function operation, const char* type = "Pt", List names = {}, List values = {},
                       List selected = {})
    {
        return record([&] {
            return operation(Text("ec-12a"), Text("br-100"), Text("Bracket"), Text(type), names, values,
                             selected);
        });
    }
    /** The operation with defaults and pairs that meet each other and fixed attributes; two are without a value. */
    Outcome runWithPairs(Function operation)
    {
        writeFile("QVL_RZM_DEFAULT", "ItemCreate name default\nItemCreate unit EA\nItemSave no no\n");
        setEnvironment("QVL_BOM_HEADER_CREATE", "YES"); // is for new items alone
        return run(operation, "Pt", textList({"name", "skipped", "unit", "null", "weight"}),
                   textList({"given", "", "KG", nullptr, "5"}), textList({"db_object_id", "status"}));
    }
};

TEST_F(Items, AnItemIsCreatedFromDefaultsPairsAndFixedAttributesInThisOrder)
{
    atEachLevel([this] {
        EXPECT_EQ(runWithPairs(ItemCreate).story, story(R"(
ItemCreate:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
)" + inputsAndObject + R"(2 @ Set Required Fields for Save.
2 @-     name=default-. > QV_Set_Object_Attr(obj1, "name", "default") = 0
2 @-     unit=EA-. > QV_Set_Object_Attr(obj1, "unit", "EA") = 0
2 @-     name=given-. > QV_Set_Object_Attr(obj1, "name", "given") = 0
2 @-     unit=KG-. > QV_Set_Object_Attr(obj1, "unit", "KG") = 0
2 @-     weight=5-. > QV_Set_Object_Attr(obj1, "weight", "5") = 0
2 @   logical_key@item_number=BR-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
2 @   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @   il_ec_number=EC-12A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
2 @   name=BRACKET-. > QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
2 @   item_type=Pt-. > QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
2 @   design_loc_id =-. > QV_Set_Object_Attr(obj1, "design_loc_id", "") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @  create_bomheader =TRUE-. > QV_Set_Object_Attr(obj1, "create_bomheader", "TRUE") = 0
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "status") = 0
2 @ Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, db_object_id, status]
)"));
    });
}

TEST_F(Items, AnItemIsFoundBeforeItIsChangedAndSaved)
{
    atEachLevel([this] {
        EXPECT_EQ(runWithPairs(ItemSave).story, story(R"(
ItemSave:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for ItemCreate.
)" + inputsAndObject + R"(2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   logical_key@item_number=BR-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   il_ec_number=EC-12A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
2 @-   update_count=-. > QV_Subscribe_Object_Attr(obj1, "update_count") = 0
> QV_Open_Object(obj1) = 0
2 @ Set Required Fields for Save.
2 @-     name=default-. > QV_Set_Object_Attr(obj1, "name", "default") = 0
2 @-     unit=EA-. > QV_Set_Object_Attr(obj1, "unit", "EA") = 0
2 @-     name=given-. > QV_Set_Object_Attr(obj1, "name", "given") = 0
2 @-     unit=KG-. > QV_Set_Object_Attr(obj1, "unit", "KG") = 0
2 @-     weight=5-. > QV_Set_Object_Attr(obj1, "weight", "5") = 0
2 @-   name=BRACKET-. > QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
2 @-   item_type=Pt-. > QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
2 @- Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "status") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, db_object_id, status]
)"));
    });
}

TEST_F(Items, WithoutATypeNoneIsSet)
{
    connect(2);
    for (const Function operation : {ItemCreate, ItemSave}) {
        const Outcome outcome = run(operation, "");
        EXPECT_EQ(countLines(outcome.calls + outcome.output, "item_type"), 0);
        EXPECT_EQ(countLines(outcome.output, "\tItemType=."), 1);
        EXPECT_EQ(countLines(outcome.output, "..."), 2) << "the headings of the empty lists are left out";
    }
}

TEST_F(Items, MissingValuesCountAsNone)
{
    connect(2);
    for (const Function operation : {ItemCreate, ItemSave}) {
        const Outcome outcome = run(operation, "", textList({"weight", "colour", "unit"}), textList({"5"}));
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(countLines(outcome.calls, "\"weight\", \"5\""), 1);
        EXPECT_EQ(countLines(outcome.calls, "\"colour\"") + countLines(outcome.calls, "\"unit\""), 0);
        EXPECT_EQ(countLines(outcome.output, "   colour=-."), 1) << "listed, not set";
    }
    EXPECT_EQ(countLines(run(ItemCreate, "", {}, textList({"without", "names"})).calls, "without"), 0);
}

TEST_F(Items, ABomHeaderIsAskedForByYesAloneReadAtEveryCall)
{
    connect();
    for (const char* const setting : {"YES", "yes", "YES ", "1", ""}) {
        setEnvironment("QVL_BOM_HEADER_CREATE", setting);
        EXPECT_EQ(countLines(run(ItemCreate).calls, "create_bomheader"),
                  setting == std::string("YES") ? 1 : 0)
            << setting;
    }
    setEnvironment("QVL_BOM_HEADER_CREATE", std::nullopt);
    EXPECT_EQ(countLines(run(ItemCreate).calls, "create_bomheader"), 0);
}

} // namespace
