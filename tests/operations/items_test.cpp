// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::countLines;
using harness::errorBlock;
using harness::lines;
using harness::Outcome;
using harness::Text;
using harness::textList;
using harness::writeFile;

namespace {

using Function = decltype(&ItemCreate);
using List = VELListValVELUnicodeString;

class Items : public harness::LibraryTest {
protected:
    static Outcome run(Function operation, const char* type = "Pt", List names = {}, List values = {},
                       List selected = {})
    {
        return record([&] {
            return operation(Text("ec-12a"), Text("br-100"), Text("Bracket"),
                             type == nullptr ? nullptr : Text(type).operator char*(), names, values,
                             selected);
        });
    }
    static void writeDefaults()
    {
        writeFile("QVL_RZM_DEFAULT", "ItemCreate name default\nItemCreate unit EA\nItemSave no no\n");
    }
    /** Both operations with pairs that meet defaults and fixed attributes, and two without a value. */
    static Outcome runWithPairs(Function operation)
    {
        return run(operation, "Pt", textList({"name", "skipped", "unit", "null", "weight"}),
                   textList({"given", "", "KG", nullptr, "5"}), textList({"db_object_id", "status"}));
    }
    static void expectResult(int count)
    {
        EXPECT_EQ(entries, count);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
    }
};

TEST_F(Items, AnItemIsCreatedFromDefaultsPairsAndFixedAttributesInThisOrder)
{
    atEachLevel([this](int level) {
        writeDefaults();
        setEnvironment("QVL_BOM_HEADER_CREATE", "YES");
        const Outcome outcome = runWithPairs(ItemCreate);
        EXPECT_EQ(outcome.result, 1);
        expectResult(1);
        EXPECT_EQ(NbSelectedAttribute, 3);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemEngineeringData") = 0
QV_Set_Object_Attr(obj1, "name", "default") = 0
QV_Set_Object_Attr(obj1, "unit", "EA") = 0
QV_Set_Object_Attr(obj1, "name", "given") = 0
QV_Set_Object_Attr(obj1, "unit", "KG") = 0
QV_Set_Object_Attr(obj1, "weight", "5") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
QV_Set_Object_Attr(obj1, "design_loc_id", "") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "create_bomheader", "TRUE") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "status") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemCreate-----Start------------------------------.
2 ItemCreate- Calling DefaultRead for ItemCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- name=default.
5 DefaultRead- unit=EA.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 ItemCreate- rc(DefaultRead)=2.
2 ItemCreate- Printing Input Attributes ....
2 ItemCreate	EcNumber=EC-12A.
2 ItemCreate	ItemNumber=BR-100.
2 ItemCreate	ItemName=BRACKET.
2 ItemCreate	ItemType=Pt.
2 ItemCreate-     ... plus some other Input Attributes ....
2 ItemCreate   name=given-.
2 ItemCreate   skipped=-.
2 ItemCreate   unit=KG-.
2 ItemCreate   null=-.
2 ItemCreate   weight=5-.
2 ItemCreate-     ... and eventually, some Default Attributes ....
2 ItemCreate-     name=default-.
2 ItemCreate-     unit=EA-.
2 ItemCreate Printing Selected Attributes ....
2 ItemCreate-   db_object_id-.
2 ItemCreate-   status-.
5 ItemCreate QV_Create_Object ItemEngineeringData : QV_RC=0.
2 ItemCreate Set Required Fields for Save.
2 ItemCreate-     name=default-.
5 ItemCreate QV_Set_Object_Attr name default: QV_RC=0.
2 ItemCreate-     unit=EA-.
5 ItemCreate QV_Set_Object_Attr unit EA: QV_RC=0.
2 ItemCreate-     name=given-.
5 ItemCreate QV_Set_Object_Attr name given: QV_RC=0.
2 ItemCreate-     unit=KG-.
5 ItemCreate QV_Set_Object_Attr unit KG: QV_RC=0.
2 ItemCreate-     weight=5-.
5 ItemCreate QV_Set_Object_Attr weight 5: QV_RC=0.
2 ItemCreate   logical_key@item_number=BR-100-.
5 ItemCreate QV_Set_Object_Attr logical_key@item_number BR-100: QV_RC=0.
2 ItemCreate   logical_key@loc_id=-.
5 ItemCreate QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemCreate   il_ec_number=EC-12A-.
5 ItemCreate QV_Set_Object_Attr il_ec_number EC-12A: QV_RC=0.
2 ItemCreate   name=BRACKET-.
5 ItemCreate QV_Set_Object_Attr name BRACKET: QV_RC=0.
2 ItemCreate   item_type=Pt-.
5 ItemCreate QV_Set_Object_Attr item_type Pt: QV_RC=0.
2 ItemCreate   design_loc_id =-.
5 ItemCreate QV_Set_Object_Attr design_loc_id : QV_RC=0.
2 ItemCreate   update_count=-.
5 ItemCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 ItemCreate  create_bomheader =TRUE-.
5 ItemCreate QV_Set_Object_Attr create_bomheader TRUE: QV_RC=0.
2 ItemCreate Set  fields to be selected for Save.
5 ItemCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ItemCreate QV_Subscribe_Object_Attr status : QV_RC=0.
2 ItemCreate Execute Save method.
5 ItemCreate QV_Save_Object  : QV_RC=0.
2 ItemCreate----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  name <=> default
DefaultRead -  unit <=> EA
)")) + lines(R"(
ItemCreate- rc(QV_Create_Object::ItemEngineeringData) = 0
ItemCreate- rc(QV_Set_Object_Attr::name=default) = 0
ItemCreate- rc(QV_Set_Object_Attr::unit=EA) = 0
ItemCreate- rc(QV_Set_Object_Attr::name=given) = 0
ItemCreate- rc(QV_Set_Object_Attr::unit=KG) = 0
ItemCreate- rc(QV_Set_Object_Attr::weight=5) = 0
ItemCreate- rc(QV_Set_Object_Attr::logical_key@item_number=BR-100) = 0
ItemCreate- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ItemCreate- rc(QV_Set_Object_Attr::il_ec_number=EC-12A) = 0
ItemCreate- rc(QV_Set_Object_Attr::name=BRACKET) = 0
ItemCreate- rc(QV_Set_Object_Attr::item_type=Pt) = 0
ItemCreate- rc(QV_Set_Object_Attr::design_loc_id) = 0
ItemCreate- rc(QV_Set_Object_Attr::update_count) = 0
ItemCreate- rc(QV_Set_Object_Attr::create_bomheader=TRUE) = 0
ItemCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ItemCreate- rc(QV_Subscribe_Object_Attr::status) = 0
ItemCreate- rc(QV_Save_Object) = 0
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(Items, AnItemIsFoundBeforeItIsChangedAndSaved)
{
    atEachLevel([this](int level) {
        writeDefaults();
        setEnvironment("QVL_BOM_HEADER_CREATE", "YES"); // is for new items alone
        const Outcome outcome = runWithPairs(ItemSave);
        EXPECT_EQ(outcome.result, 1);
        expectResult(1);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemEngineeringData") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
QV_Subscribe_Object_Attr(obj1, "update_count") = 0
QV_Open_Object(obj1) = 0
QV_Set_Object_Attr(obj1, "name", "default") = 0
QV_Set_Object_Attr(obj1, "unit", "EA") = 0
QV_Set_Object_Attr(obj1, "name", "given") = 0
QV_Set_Object_Attr(obj1, "unit", "KG") = 0
QV_Set_Object_Attr(obj1, "weight", "5") = 0
QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "status") = 0
QV_Save_Object(obj1) = 0
)"));
        const std::size_t listing = outcome.output.find("ItemSave- Printing");
        EXPECT_EQ(outcome.output.substr(0, outcome.output.find("DefaultRead-----Start")), atLevel(level, R"(
2 ItemSave-----Start------------------------------.
2 ItemSave- Calling DefaultRead for ItemCreate.
)"));
        EXPECT_EQ(level < 2 ? outcome.output : outcome.output.substr(listing), atLevel(level, R"(
2 ItemSave- Printing Input Attributes ....
2 ItemSave	EcNumber=EC-12A.
2 ItemSave	ItemNumber=BR-100.
2 ItemSave	ItemName=BRACKET.
2 ItemSave	ItemType=Pt.
2 ItemSave-     ... plus some other Input Attributes ....
2 ItemSave   name=given-.
2 ItemSave   skipped=-.
2 ItemSave   unit=KG-.
2 ItemSave   null=-.
2 ItemSave   weight=5-.
2 ItemSave-     ... and eventually, some Default Attributes ....
2 ItemSave-     name=default-.
2 ItemSave-     unit=EA-.
2 ItemSave Printing Selected Attributes ....
2 ItemSave-   db_object_id-.
2 ItemSave-   status-.
5 ItemSave QV_Create_Object ItemEngineeringData : QV_RC=0.
2 ItemSave-  db_object_id=-.
5 ItemSave QV_Set_Object_Attr db_object_id : QV_RC=0.
2 ItemSave-   logical_key@item_number=BR-100-.
5 ItemSave QV_Set_Object_Attr logical_key@item_number BR-100: QV_RC=0.
2 ItemSave-   logical_key@loc_id=-.
5 ItemSave QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemSave-   il_ec_number=EC-12A-.
5 ItemSave QV_Set_Object_Attr il_ec_number EC-12A: QV_RC=0.
2 ItemSave-   update_count=-.
5 ItemSave QV_Subscribe_Object_Attr update_count : QV_RC=0.
5 ItemSave QV_Open_Object  : QV_RC=0.
2 ItemSave Set Required Fields for Save.
2 ItemSave-     name=default-.
5 ItemSave QV_Set_Object_Attr name default: QV_RC=0.
2 ItemSave-     unit=EA-.
5 ItemSave QV_Set_Object_Attr unit EA: QV_RC=0.
2 ItemSave-     name=given-.
5 ItemSave QV_Set_Object_Attr name given: QV_RC=0.
2 ItemSave-     unit=KG-.
5 ItemSave QV_Set_Object_Attr unit KG: QV_RC=0.
2 ItemSave-     weight=5-.
5 ItemSave QV_Set_Object_Attr weight 5: QV_RC=0.
2 ItemSave-   name=BRACKET-.
5 ItemSave QV_Set_Object_Attr name BRACKET: QV_RC=0.
2 ItemSave-   item_type=Pt-.
5 ItemSave QV_Set_Object_Attr item_type Pt: QV_RC=0.
2 ItemSave- Set  fields to be selected for Save.
5 ItemSave QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ItemSave QV_Subscribe_Object_Attr status : QV_RC=0.
2 ItemSave- Execute Save method.
5 ItemSave QV_Save_Object  : QV_RC=0.
2 ItemSave----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(countLines(outcome.accessLog, "ItemSave- rc("), 17);
        EXPECT_EQ(countLines(outcome.accessLog, "ItemSave"), 17) << "no line of its own";
    });
}

TEST_F(Items, WithoutATypeNoneIsSet)
{
    for (const Function operation : {ItemCreate, ItemSave}) {
        for (const char* const type : {"", static_cast<const char*>(nullptr)}) {
            restart();
            connect(2);
            const Outcome outcome = run(operation, type);
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(countLines(outcome.calls + outcome.output, "item_type"), 0);
            EXPECT_EQ(countLines(outcome.output, "\tItemType=."), 1);
            EXPECT_EQ(countLines(outcome.output, "..."), 2) << "the headings of the empty lists are left out";
        }
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

TEST_F(Items, ABomHeaderIsAskedForByYesAlone)
{
    for (const char* const setting : {"YES", "yes", "YES ", "1", ""}) {
        restart();
        connect();
        setEnvironment("QVL_BOM_HEADER_CREATE", setting);
        EXPECT_EQ(countLines(run(ItemCreate).calls, "create_bomheader"),
                  setting == std::string("YES") ? 1 : 0)
            << setting;
        // It is read at every call.
        setEnvironment("QVL_BOM_HEADER_CREATE", std::nullopt);
        EXPECT_EQ(countLines(run(ItemCreate).calls, "create_bomheader"), 0);
    }
}

TEST_F(Items, TheCallersKeysAndNameAreTurnedToUpperCaseAndTheTypeIsNot)
{
    connect();
    List none;
    for (const Function operation : {ItemCreate, ItemSave}) {
        Text change("ec-1\xe4z");
        Text item("br_{a}");
        Text name("Flat washer 1/2");
        Text type("pT");
        EXPECT_EQ(record([&] { return operation(change, item, name, type, none, none, none); }).result, 1);
        EXPECT_EQ(change.str(), "EC-1\xe4Z");
        EXPECT_EQ(item.str(), "BR_{A}");
        EXPECT_EQ(name.str(), "FLAT WASHER 1/2");
        EXPECT_EQ(type.str(), "pT");
    }
}

TEST_F(Items, AnItemThatIsNotFoundIsNotChanged)
{
    connect(2);
    writeDefaults();
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such item"}});
    const Outcome outcome = runWithPairs(ItemSave);
    EXPECT_EQ(outcome.result, 0);
    expectResult(0);
    EXPECT_NE(QV_ObjPtr, nullptr);
    EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_Open")), "QV_Open_Object(obj1) = -7\n");
    EXPECT_EQ(outcome.output.substr(outcome.output.find("ItemSave-   update_count")), lines(R"(
ItemSave-   update_count=-.
****** No such item .
ItemSave----Exit------------entries/rc=0--------------------.
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemSave", "No such item "));
}

TEST_F(Items, SixtyDefaultsAreSetSinceTheseOperationsHaveNoLimit)
{
    std::string file;
    for (const std::string& name : harness::numberedNames("attribute", 60)) {
        file += "ItemCreate " + name + " value\n";
    }
    writeFile("QVL_RZM_DEFAULT", file);
    connect();
    for (const Function operation : {ItemCreate, ItemSave}) {
        const Outcome outcome = run(operation);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(countLines(outcome.calls, "\"attribute"), 60);
    }
}

} // namespace
