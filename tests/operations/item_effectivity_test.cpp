// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ItemEffectivity : public LibraryTest {
protected:
    static Outcome create(const std::string& unit, VELListValVELUnicodeString names = {},
                          VELListValVELUnicodeString values = {}, VELListValVELUnicodeString selected = {})
    {
        return record([&] {
            return ItemPUEffectivityCreate(Text("ec-1a"), Text("br-100"), Text("p-9x"), Text(unit), names,
                                           values, selected);
        });
    }
};

TEST_F(ItemEffectivity, AnEffectivityIsCreatedWithDefaultsAndFurtherAttributes)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "ItemPUEffectivityCreate prod_id default\nItemCreate no no\n");
        const Outcome outcome =
            create("u5", textList({"unit", "skipped", "prod_id", "null"}),
                   textList({"EA", "", "given", nullptr}), textList({"db_object_id", "net_pu_flg"}));
        EXPECT_EQ(outcome.story, story(R"(
ItemPUEffectivityCreate-:
2 @-----Start------------------------------.
2 @ Calling DefaultRead for ItemPUEffectivityCreate.
2 DefaultRead-----Start------------------------------.
2 @ rc(DefaultRead)=1.
2 @ Printing Input Attributes ....
2 @\tEcNumber=EC-1A.
2 @\tItemNumber=BR-100.
2 @\tProductId=P-9X.
2 @\tCutInUnit=u5.
2 @     ... plus some other Input Attributes ....
2 @   unit=EA-.
2 @   skipped=-.
2 @   prod_id=given-.
2 @   null=-.
2 @     ... and eventually, some Default Attributes ....
2 @     prod_id=default-.
2 @ Printing Selected Attributes ....
2 @   db_object_id-.
2 @   net_pu_flg-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemProductUnitEffectivity") = 0
2 @ Set Required Fields for Save.
2 @     prod_id=default-. > QV_Set_Object_Attr(obj1, "prod_id", "default") = 0
2 @     unit=EA-. > QV_Set_Object_Attr(obj1, "unit", "EA") = 0
2 @     prod_id=given-. > QV_Set_Object_Attr(obj1, "prod_id", "given") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @   loc_id=-. > QV_Set_Object_Attr(obj1, "loc_id", "") = 0
2 @   item_number=BR-100-. > QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
2 @   ecid=EC-1A-. > QV_Set_Object_Attr(obj1, "ecid", "EC-1A") = 0
2 @   prod_id=P-9X-. > QV_Set_Object_Attr(obj1, "prod_id", "P-9X") = 0
2 @   cut_in_unit=u5-. > QV_Set_Object_Attr(obj1, "cut_in_unit", "u5") = 0
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "net_pu_flg") = 0
2 @ Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, db_object_id, net_pu_flg]
)"));
    });
}

TEST_F(ItemEffectivity, NothingButTheKeysIsEnough)
{
    connect(2);
    const Outcome outcome = create("");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls, "\"cut_in_unit\", \"\""), 1);
    EXPECT_EQ(countLines(outcome.output, "..."), 2) << "the headings of the empty lists are left out";
}

} // namespace
