// SPDX-License-Identifier: Apache-2.0
//
// Engineering changes and items.
#include "tests/flows/flow_test.h"

namespace flowtest {
namespace {

class ChangesAndItems : public FlowTest {
protected:
    static Table query(const std::string& number, const std::string& change, const std::string& type)
    {
        const std::vector<std::string> names = {"logical_key@item_number", "name"};
        ItemQuery(Text(number), Text(change), Text("P"), Text(""), Text(""), Text(""), Text("1"), Text(type),
                  Names(names));
        return result(names);
    }
};

TEST_F(ChangesAndItems, AChangeIsReadBackWithTheDefaultsOfTheSite)
{
    harness::writeFile("QVL_RZM_DEFAULT", "EngineeringChangeCreate reason SAFETY # of the site\n");
    ASSERT_EQ(EngineeringChangeCreate("ec-12a", "Stronger bracket", "3", "", "ada"), 1);
    const std::string id = value("db_object_id");

    const std::vector<std::string> names = {
        "id", "desc", "initiator@person_identifier", "reason", "update_count", "status", "x_sec_level_code"};
    ASSERT_EQ(EngineeringChangeOpen(Text(""), Text("EC-12A"), Names(names)), 1);
    EXPECT_EQ(result(names), (Table{{"EC-12A", "Stronger bracket", "ada", "SAFETY", "1", "OPEN", "3"}}));
    ASSERT_EQ(EngineeringChangeOpen(Text(id), Text(""), Names(names)), 1);
    EXPECT_EQ(value("id"), "EC-12A");

    EXPECT_EQ(EngineeringChangeCreate("EC-12A", "Again", "", "", ""), 0);
    EXPECT_EQ(QV_RC, QV_ALREADY_STORED);
    EXPECT_NE(harness::readFile("last-error").find("EC-12A"), std::string::npos);
    EXPECT_EQ(EngineeringChangeOpen(Text(""), Text("ec-12a"), Names({})), 0) << "opened as it is given";
    EXPECT_NE(harness::readFile("error.log").find("Function EngineeringChangeOpen generated"),
              std::string::npos);
}

TEST_F(ChangesAndItems, AnItemUnderAChangeIsFoundAndOneWithoutOnlyInDevelopment)
{
    ASSERT_EQ(createItem("ec-1", "a-100", "bolt"), 1);
    ASSERT_EQ(createItem("", "A-200", "NUT"), 1);
    ASSERT_EQ(AffectedItemCreate(Text("EC-1"), Text("A-100"), Text("rel"), Names({"item_status"})), 1);

    const Table bolt = {{"A-100", "BOLT"}};
    EXPECT_EQ(query("a-", "", "STD"), bolt);
    EXPECT_EQ(query("", "EC%", "STD"), bolt);
    EXPECT_EQ(query("", "EC-2", "STD"), Table());
    EXPECT_EQ(query("A", "", "DEV"), (Table{{"A-100", "BOLT"}, {"A-200", "NUT"}}));
    EXPECT_EQ(query("=A-200", "", "DEV"), (Table{{"A-200", "NUT"}}));

    ASSERT_EQ(EngineeringChangeOpen(Text(""), Text("EC-1"), Names({"db_object_id"})), 1);
    ASSERT_EQ(
        AffectedItemQuery(Text(value("db_object_id")), Names({"item_number", "change_action@curr_key"})), 1);
    EXPECT_EQ(result({"item_number", "change_action@curr_key"}), (Table{{"A-100", "REL"}}));

    auto names = textList({"mass", "colour", "item_type", "name"});
    ASSERT_EQ(ItemOpen(Text("a-200"), Text(""), names), 1);
    EXPECT_EQ(result({"mass", "colour", "item_type", "name"}), (Table{{"12.5", "", "P", "NUT"}}));
    EXPECT_EQ(ItemOpen(Text("a-300"), Text(""), names), 0);
}

TEST_F(ChangesAndItems, AnItemIsChangedHeadedTiedAndMadeEffective)
{
    ASSERT_EQ(createItem("EC-1", "A-100", "BOLT"), 1);
    auto names = textList({"mass"});
    auto values = textList({"13"});
    auto selected = textList({"update_count", "mass"});
    ASSERT_EQ(ItemSave(Text("EC-1"), Text("A-100"), Text("long bolt"), nullptr, names, values, selected), 1);
    EXPECT_EQ(result({"update_count", "mass"}), (Table{{"2", "13"}}));

    ASSERT_EQ(ItemHeaderCreate("EC-1", "a-300", "plate", "A plate", "P", "1", "A"), 1);
    EXPECT_EQ(query("A-300", "EC-1", "STD"), (Table{{"A-300", "PLATE"}})); // released under the change

    VELListValVELUnicodeString none;
    ASSERT_EQ(
        ItemPUEffectivityCreate(Text("EC-1"), Text("A-100"), Text("bike"), Text("17"), none, none, none), 1);
    auto flag = textList({"net_pu_flg"});
    ASSERT_EQ(ItemOpen(Text("A-100"), Text("EC-1"), flag), 1);
    EXPECT_EQ(value("net_pu_flg"), "Y");

    ASSERT_EQ(ItemAssociationSave(Text("EC-1"), Text("A-100"), Text("OID-7"), Names({})), 1);
    ASSERT_EQ(ItemAssociationOpen(Text(""), Text("A-100"), Text("EC-1"), Names({"alias_xref"})), 1);
    EXPECT_EQ(value("alias_xref"), "OID-7");
}

} // namespace
} // namespace flowtest
