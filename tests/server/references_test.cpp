// SPDX-License-Identifier: Apache-2.0
//
// What an object refers to must be stored, and stays stored.
#include "tests/server/server_test.h"

namespace servertest {
namespace {

class ReferencesTest : public ServerTest {
protected:
    static constexpr int missing = -230;
    static constexpr int stillReferred = -231;

    void SetUp() override
    {
        ServerTest::SetUp();
        create("EngineeringChange", {{"id", "EC1"}});
        create("ItemEngineeringData", item("A"));
        create("ItemEngineeringData", item("B"));
    }
};

TEST_F(ReferencesTest, MissingOnesAreRefusedByName)
{
    struct Case {
        std::string className;
        Pairs attributes;
        std::string named;
    };
    for (const Case& wrong : std::vector<Case>{
             {"AffectedItem", {{"ec@id", "EC9"}, {"item_number", "A"}}, "ec@id='EC9'"},
             {"AffectedItem", {{"ec@id", "EC1"}, {"item_number", "Z"}}, "item_number='Z'"},
             {"AffectedItem", {{"ec@id", "EC1"}}, "item_number=''"},
             {"ItemEngineeringData", item("C", "EC9"), "il_ec_number='EC9'"},
             {"Component", component("Z", "B", "10"), "logical_key@item_number='Z'"},
             {"Component", component("A", "Z", "10"), "logical_key@comp_item_number='Z'"},
             {"ComponentReference", component("A", "B", "10"), "logical_key@comp_seq_nm='10'"},
         }) {
        EXPECT_TRUE(refused(Object(wrong.className, wrong.attributes).save(), missing, wrong.named));
        EXPECT_TRUE(wrong.className == "ItemEngineeringData" || query(wrong.className).empty());
    }
}

TEST_F(ReferencesTest, PresentOnesAreAcceptedAndKept)
{
    ASSERT_NE(create("AffectedItem", {{"ec@id", "EC1"}, {"item_number", "A"}}), "") << message();
    EXPECT_EQ(Object("EngineeringChange", {{"id", "EC1"}}).remove(), stillReferred);
    EXPECT_EQ(Object("ItemEngineeringData", item("A")).remove(), stillReferred);
    Object changed("ItemEngineeringData", item("A"));
    ASSERT_EQ(changed.open(), 0);
    changed.set("logical_key@item_number", "RENAMED");
    EXPECT_EQ(changed.save(), stillReferred);
    changed.set("logical_key@item_number", "A");
    changed.set("il_ec_number", "EC9");
    EXPECT_EQ(changed.save(), missing);
    EXPECT_EQ(Object("ItemEngineeringData", item("B")).remove(), 0) << message();
    EXPECT_EQ(
        query("ItemEngineeringData", {{"Select", "logical_key@item_number"}, {"Select", "il_ec_number"}}),
        (Table{{"A", ""}}));
}

TEST_F(ReferencesTest, AComponentTakesItsReferencesAlong)
{
    for (const std::string sequence : {"10", "20"}) {
        ASSERT_NE(create("Component", component("A", "B", sequence)), "") << message();
        Pairs reference = component("A", "B", sequence);
        reference.emplace_back("logical_key@comp_ref", "R");
        ASSERT_NE(create("ComponentReference", reference), "") << message();
    }
    EXPECT_EQ(Object("Component", component("A", "B", "10")).remove(), 0) << message();
    EXPECT_EQ(query("ComponentReference", {{"Select", "logical_key@comp_seq_nm"}}), (Table{{"20"}}));
}

} // namespace
} // namespace servertest
