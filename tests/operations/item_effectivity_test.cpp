// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::countLines;
using harness::lines;
using harness::Outcome;
using harness::Text;
using harness::textList;
using harness::writeFile;

namespace {

class ItemEffectivity : public harness::LibraryTest {
protected:
    static Outcome create(Text& change, Text& item, Text& product, const std::string& unit,
                          VELListValVELUnicodeString names = {}, VELListValVELUnicodeString values = {},
                          VELListValVELUnicodeString selected = {})
    {
        return record([&] {
            return ItemPUEffectivityCreate(change, item, product, Text(unit), names, values, selected);
        });
    }
};

TEST_F(ItemEffectivity, AnEffectivityIsCreatedWithDefaultsAndFurtherAttributes)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "ItemPUEffectivityCreate prod_id default\nItemCreate no no\n");
        Text change("ec-1a");
        Text item("br-100");
        Text product("p-9x");
        const Outcome outcome =
            create(change, item, product, "u5", textList({"unit", "skipped", "prod_id", "null"}),
                   textList({"EA", "", "given", nullptr}), textList({"db_object_id", "net_pu_flg"}));
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(change.str() + item.str() + product.str(), "EC-1ABR-100P-9X");
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(NbSelectedAttribute, 3);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemProductUnitEffectivity") = 0
QV_Set_Object_Attr(obj1, "prod_id", "default") = 0
QV_Set_Object_Attr(obj1, "unit", "EA") = 0
QV_Set_Object_Attr(obj1, "prod_id", "given") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "loc_id", "") = 0
QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
QV_Set_Object_Attr(obj1, "ecid", "EC-1A") = 0
QV_Set_Object_Attr(obj1, "prod_id", "P-9X") = 0
QV_Set_Object_Attr(obj1, "cut_in_unit", "u5") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "net_pu_flg") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemPUEffectivityCreate------Start------------------------------.
2 ItemPUEffectivityCreate- Calling DefaultRead for ItemPUEffectivityCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- prod_id=default.
2 DefaultRead-----Exit----NbOfDefault=1--------.
2 ItemPUEffectivityCreate- rc(DefaultRead)=1.
2 ItemPUEffectivityCreate- Printing Input Attributes ....
2 ItemPUEffectivityCreate-	EcNumber=EC-1A.
2 ItemPUEffectivityCreate-	ItemNumber=BR-100.
2 ItemPUEffectivityCreate-	ProductId=P-9X.
2 ItemPUEffectivityCreate-	CutInUnit=u5.
2 ItemPUEffectivityCreate-     ... plus some other Input Attributes ....
2 ItemPUEffectivityCreate-   unit=EA-.
2 ItemPUEffectivityCreate-   skipped=-.
2 ItemPUEffectivityCreate-   prod_id=given-.
2 ItemPUEffectivityCreate-   null=-.
2 ItemPUEffectivityCreate-     ... and eventually, some Default Attributes ....
2 ItemPUEffectivityCreate-     prod_id=default-.
2 ItemPUEffectivityCreate- Printing Selected Attributes ....
2 ItemPUEffectivityCreate-   db_object_id-.
2 ItemPUEffectivityCreate-   net_pu_flg-.
5 ItemPUEffectivityCreate- QV_Create_Object ItemProductUnitEffectivity : QV_RC=0.
2 ItemPUEffectivityCreate- Set Required Fields for Save.
2 ItemPUEffectivityCreate-     prod_id=default-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr prod_id default: QV_RC=0.
2 ItemPUEffectivityCreate-     unit=EA-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr unit EA: QV_RC=0.
2 ItemPUEffectivityCreate-     prod_id=given-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr prod_id given: QV_RC=0.
2 ItemPUEffectivityCreate-   update_count=-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr update_count : QV_RC=0.
2 ItemPUEffectivityCreate-   loc_id=-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr loc_id : QV_RC=0.
2 ItemPUEffectivityCreate-   item_number=BR-100-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr item_number BR-100: QV_RC=0.
2 ItemPUEffectivityCreate-   ecid=EC-1A-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr ecid EC-1A: QV_RC=0.
2 ItemPUEffectivityCreate-   prod_id=P-9X-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr prod_id P-9X: QV_RC=0.
2 ItemPUEffectivityCreate-   cut_in_unit=u5-.
5 ItemPUEffectivityCreate- QV_Set_Object_Attr cut_in_unit u5: QV_RC=0.
2 ItemPUEffectivityCreate- Set  fields to be selected for Save.
5 ItemPUEffectivityCreate- QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ItemPUEffectivityCreate- QV_Subscribe_Object_Attr net_pu_flg : QV_RC=0.
2 ItemPUEffectivityCreate- Execute Save method.
5 ItemPUEffectivityCreate- QV_Save_Object  : QV_RC=0.
2 ItemPUEffectivityCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  prod_id <=> default
)")) + lines(R"(
ItemPUEffectivityCreate-- rc(QV_Create_Object::ItemProductUnitEffectivity) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::prod_id=default) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::unit=EA) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::prod_id=given) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::update_count) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::loc_id) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::item_number=BR-100) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::ecid=EC-1A) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::prod_id=P-9X) = 0
ItemPUEffectivityCreate-- rc(QV_Set_Object_Attr::cut_in_unit=u5) = 0
ItemPUEffectivityCreate-- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ItemPUEffectivityCreate-- rc(QV_Subscribe_Object_Attr::net_pu_flg) = 0
ItemPUEffectivityCreate-- rc(QV_Save_Object) = 0
)"));
    });
}

TEST_F(ItemEffectivity, NothingButTheKeysIsEnough)
{
    connect(2);
    Text change("EC-1");
    Text item("BR-1");
    Text product("P-1");
    const Outcome outcome = create(change, item, product, "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(NbSelectedAttribute, 1);
    EXPECT_EQ(countLines(outcome.calls, "\"cut_in_unit\", \"\""), 1);
    EXPECT_EQ(countLines(outcome.output, "..."), 2) << "the headings of the empty lists are left out";
}

} // namespace
