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
        create("ItemEngineeringData", {{"logical_key@item_number", "A"}});
        create("ItemEngineeringData", {{"logical_key@item_number", "B"}});
    }

    static Pairs line(const std::string& parent, const std::string& child, const std::string& sequence)
    {
        return {{"logical_key@item_number", parent},
                {"logical_key@comp_item_number", child},
                {"logical_key@comp_seq_nm", sequence}};
    }
};

TEST_F(ReferencesTest, MissingOnesAreRefusedByName)
{
    struct Case {
        std::string className;
        Pairs attributes;
        std::string named;
    };
    const std::vector<Case> cases = {
        {"AffectedItem", {{"ec@id", "EC9"}, {"item_number", "A"}}, "ec@id='EC9'"},
        {"AffectedItem", {{"ec@id", "EC1"}, {"item_number", "Z"}}, "item_number='Z'"},
        {"AffectedItem", {{"ec@id", "EC1"}}, "item_number=''"},
        {"ItemEngineeringData",
         {{"logical_key@item_number", "C"}, {"il_ec_number", "EC9"}},
         "il_ec_number='EC9'"},
        {"Component", line("Z", "B", "10"), "logical_key@item_number='Z'"},
        {"Component", line("A", "Z", "10"), "logical_key@comp_item_number='Z'"},
        {"ComponentReference", line("A", "B", "10"), "logical_key@comp_seq_nm='10'"},
    };
    for (const Case& wrong : cases) {
        Object refused(wrong.className, wrong.attributes);
        EXPECT_EQ(refused.save(), missing) << wrong.named;
        EXPECT_NE(message().find(wrong.named), std::string::npos) << message();
    }
    EXPECT_TRUE(query("Component", {}).empty());
}

TEST_F(ReferencesTest, PresentOnesAreAcceptedAndKept)
{
    ASSERT_NE(create("AffectedItem", {{"ec@id", "EC1"}, {"item_number", "A"}}), "") << message();
    EXPECT_EQ(Object("EngineeringChange", {{"id", "EC1"}}).remove(), stillReferred);
    EXPECT_EQ(Object("ItemEngineeringData", {{"logical_key@item_number", "A"}}).remove(), stillReferred);
    Object item("ItemEngineeringData", {{"logical_key@item_number", "A"}});
    ASSERT_EQ(item.open(), 0);
    item.set("logical_key@item_number", "RENAMED");
    EXPECT_EQ(item.save(), stillReferred);
    item.set("logical_key@item_number", "A");
    ASSERT_EQ(item.open(), 0) << message();
    item.set("il_ec_number", "EC9");
    EXPECT_EQ(item.save(), missing);
    EXPECT_EQ(Object("ItemEngineeringData", {{"logical_key@item_number", "B"}}).remove(), 0) << message();
    EXPECT_EQ(query("ItemEngineeringData", {{"Select", "logical_key@item_number"}}), (Table{{"A"}}));
}

TEST_F(ReferencesTest, AComponentTakesItsReferencesAlong)
{
    ASSERT_NE(create("Component", line("A", "B", "10")), "") << message();
    ASSERT_NE(create("Component", line("A", "B", "20")), "") << message();
    for (const std::string sequence : {"10", "20"}) {
        Pairs reference = line("A", "B", sequence);
        reference.emplace_back("logical_key@comp_ref", "R");
        ASSERT_NE(create("ComponentReference", reference), "") << message();
    }
    EXPECT_EQ(Object("Component", line("A", "B", "10")).remove(), 0) << message();
    EXPECT_EQ(query("ComponentReference", {{"Select", "logical_key@comp_seq_nm"}}), (Table{{"20"}}));
    EXPECT_EQ(
        query("Component", {{"Select", "comp_item@logical_key@item_number"}, {"Select", "item@insert_by"}})
            .size(),
        1U);
}

} // namespace
} // namespace servertest
