// SPDX-License-Identifier: Apache-2.0
//
// Items, their product-unit effectivities and their associations.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using List = VELListValVELUnicodeString;

/** What creating and saving tell from the reading of the defaults to the new object. */
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
2 @   null=-.
2 @   missing=-.
2 @-     ... and eventually, some Default Attributes ....
2 @-     name=default-.
2 @-     unit=EA-.
2 @ Printing Selected Attributes ....
2 @-   db_object_id-.
new ItemEngineeringData
)";

/** What both set of the defaults and the pairs. */
const std::string pairsAreSet = R"(2 @ Set Required Fields for Save.
2 @-     name=default-. > QV_Set_Object_Attr(obj1, "name", "default") = 0
2 @-     unit=EA-. > QV_Set_Object_Attr(obj1, "unit", "EA") = 0
2 @-     name=given-. > QV_Set_Object_Attr(obj1, "name", "given") = 0
)";

class Items : public LibraryTest {
protected:
    using Function = decltype(&ItemCreate);

    static int use(Function operation, const char* type, List names = {}, List values = {},
                   List selected = {})
    {
        return operation(Text("ec-12a"), Text("br-100"), Text("Bracket"), Text(type), names, values,
                         selected);
    }
    /** Defaults and pairs that meet each other and fixed attributes; three are without a value. */
    int useWithPairs(Function operation)
    {
        writeFile("QVL_RZM_DEFAULT", "ItemCreate name default\nItemCreate unit EA\nItemSave no no\n");
        setEnvironment("QVL_BOM_HEADER_CREATE", "YES"); // is for new items alone
        return use(operation, "Pt", textList({"name", "skipped", "null", "missing"}),
                   textList({"given", "", nullptr}), textList({"db_object_id"}));
    }
};

TEST_F(Items, AnItemIsCreatedFromDefaultsPairsAndFixedAttributesInThisOrder)
{
    storiesOf([this] { return useWithPairs(ItemCreate); })
        .tell(
            R"(
ItemCreate:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
)" + inputsAndObject +
            pairsAreSet +
            R"(2 @   logical_key@item_number=BR-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
2 @   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @   il_ec_number=EC-12A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
2 @   name=BRACKET-. > QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
2 @   item_type=Pt-. > QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
2 @   design_loc_id =-. > QV_Set_Object_Attr(obj1, "design_loc_id", "") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @  create_bomheader =TRUE-. > QV_Set_Object_Attr(obj1, "create_bomheader", "TRUE") = 0
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @ Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, db_object_id]
)");
}

TEST_F(Items, AnItemIsFoundBeforeItIsChangedAndSaved)
{
    storiesOf([this] { return useWithPairs(ItemSave); }).tell(R"(
ItemSave:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for ItemCreate.
)" + inputsAndObject + R"(2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   logical_key@item_number=BR-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   il_ec_number=EC-12A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
2 @-   update_count=-. > QV_Subscribe_Object_Attr(obj1, "update_count") = 0
> QV_Open_Object(obj1) = 0
)" + pairsAreSet + R"(2 @-   name=BRACKET-. > QV_Set_Object_Attr(obj1, "name", "BRACKET") = 0
2 @-   item_type=Pt-. > QV_Set_Object_Attr(obj1, "item_type", "Pt") = 0
2 @- Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, db_object_id]
)");
}

TEST_F(Items, WithoutATypeNoneIsSet)
{
    connect(2);
    for (const Function operation : {ItemCreate, ItemSave}) {
        const Outcome outcome = record([&] {
            return use(operation, "", {}, textList({"without", "names"}));
        });
        EXPECT_EQ(countLines(outcome.calls + outcome.output, "item_type"), 0);
        EXPECT_EQ(countLines(outcome.output, "..."), 2) << "the headings of the empty lists are left out";
        EXPECT_EQ(countLines(outcome.calls, "without"), 0);
    }
}

TEST_F(Items, ABomHeaderIsAskedForByYesAloneReadAtEveryCall)
{
    connect();
    for (const std::optional<std::string>& setting :
         std::initializer_list<std::optional<std::string>>{"YES", "yes", "YES ", "1", "", std::nullopt}) {
        setEnvironment("QVL_BOM_HEADER_CREATE", setting);
        EXPECT_EQ(countLines(record([] { return use(ItemCreate, ""); }).calls, "create_bomheader"),
                  setting == "YES" ? 1 : 0);
    }
}

using ItemEffectivity = LibraryTest;

TEST_F(ItemEffectivity, AnEffectivityIsCreatedWithDefaultsAndFurtherAttributes)
{
    const auto create = [](List names, List values, List selected) {
        return ItemPUEffectivityCreate(Text("ec-1a"), Text("br-100"), Text("p-9x"), Text("u5"), names, values,
                                       selected);
    };
    storiesOf([&] {
        writeFile("QVL_RZM_DEFAULT", "ItemPUEffectivityCreate prod_id default\nItemCreate no no\n");
        return create(textList({"prod_id", "null"}), textList({"given", nullptr}), textList({"net_pu_flg"}));
    }).tell(R"(
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
2 @   prod_id=given-.
2 @   null=-.
2 @     ... and eventually, some Default Attributes ....
2 @     prod_id=default-.
2 @ Printing Selected Attributes ....
2 @   net_pu_flg-.
new ItemProductUnitEffectivity
2 @ Set Required Fields for Save.
2 @     prod_id=default-. > QV_Set_Object_Attr(obj1, "prod_id", "default") = 0
2 @     prod_id=given-. > QV_Set_Object_Attr(obj1, "prod_id", "given") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @   loc_id=-. > QV_Set_Object_Attr(obj1, "loc_id", "") = 0
2 @   item_number=BR-100-. > QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
2 @   ecid=EC-1A-. > QV_Set_Object_Attr(obj1, "ecid", "EC-1A") = 0
2 @   prod_id=P-9X-. > QV_Set_Object_Attr(obj1, "prod_id", "P-9X") = 0
2 @   cut_in_unit=u5-. > QV_Set_Object_Attr(obj1, "cut_in_unit", "u5") = 0
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "net_pu_flg") = 0
2 @ Execute Save method. > QV_Save_Object(obj1) = 0
2 @----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, net_pu_flg]
)");
    writeFile("QVL_RZM_DEFAULT", "");
    EXPECT_EQ(countLines(record([&] { return create({}, {}, {}); }).output, "..."), 2)
        << "the headings of the empty lists are left out";
}

using ItemAssociations = LibraryTest;

TEST_F(ItemAssociations, AnAssociationIsOpened)
{
    storiesOf([] {
        return ItemAssociationOpen(Text("4711"), Text("br-100"), Text("ec-1"), Names({"alias_xref"}));
    }).tell(R"(
ItemAssociationOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711-.
2 @-    ItemNumber=br-100-.
2 @-    EcNumber=ec-1-.
2 @- Selected Attributes are ....
2 @-   alias_xref-.
new ItemAssociationData
2 @-  db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @-   logical_key@item_number=br-100-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-100") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   logical_key@alias=HXD-. > QV_Set_Object_Attr(obj1, "logical_key@alias", "HXD") = 0
2 @-   il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
> QV_Subscribe_Object_Attr(obj1, "alias_xref") = 0
> QV_Open_Object(obj1) = 0
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[alias_xref]
)");
}

TEST_F(ItemAssociations, AnAssociationIsSaved)
{
    const auto save = [](const char* change) {
        return ItemAssociationSave(Text(change), Text("br-100"), Text("part-7"), Names({"db_object_id"}));
    };
    storiesOf([&] { return save("ec-1"); }).tell(R"(
ItemAssociationSave:
2 @-----Start------------------------------.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-100.
2 @\tSystemPartnerOid=part-7.
2 @ Printing Selected Attributes ....
2 @   db_object_id-.
new ItemAssociationData
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
)");
    const Outcome withoutChange = record([&] { return save(""); });
    EXPECT_EQ(countLines(withoutChange.calls + withoutChange.output, "il_ec_number"), 0);
}

} // namespace
