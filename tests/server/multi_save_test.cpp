// SPDX-License-Identifier: Apache-2.0
//
// Saves that are stored together or not at all.
#include "tests/server/server_test.h"

namespace servertest {
namespace {

class MultiSaveTest : public StoreFileTest {
protected:
    static std::size_t changes() { return query("EngineeringChange", {}).size(); }
    static int save(const std::string& id) { return Object("EngineeringChange", {{"id", id}}).save(); }
};

TEST_F(MultiSaveTest, OwnReadsSeeTheSavesOthersOnlyAfterTheCommit)
{
    OtherSession other;
    ASSERT_EQ(QV_Start_Multisave(), 0) << message();
    ASSERT_EQ(save("EC1"), 0) << message();
    ASSERT_EQ(save("EC2"), 0) << message();
    EXPECT_EQ(save("EC1"), QV_ALREADY_STORED) << "takes back only itself";
    EXPECT_EQ(
        Object("ItemEngineeringData", {{"logical_key@item_number", "A"}, {"il_ec_number", "EC9"}}).save(),
        -230);
    EXPECT_EQ(changes(), 2U);
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC2"}}, "update_count"), "1");
    EXPECT_EQ(other.run("size EngineeringChange"), 0);
    ASSERT_EQ(QV_Commit_Multisave(), 0) << message();
    EXPECT_EQ(other.run("size EngineeringChange"), 2);
    EXPECT_EQ(query("ItemEngineeringData", {}).size(), 0U);
}

TEST_F(MultiSaveTest, DiscardLogoffAndCloseDropTheSaves)
{
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(save("EC1"), 0);
    ASSERT_EQ(QV_Discard_Multisave(), 0) << message();
    EXPECT_EQ(changes(), 0U);
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(save("EC1"), 0);
    ASSERT_EQ(QV_Logoff(), 0);
    ASSERT_EQ(logon(), 0) << message();
    EXPECT_EQ(changes(), 0U);
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(save("EC1"), 0);
    ASSERT_EQ(QV_Close_Env(), 0);
    ASSERT_EQ(QV_Open_Env(), 0);
    ASSERT_EQ(logon(), 0) << message();
    EXPECT_EQ(changes(), 0U);
}

TEST_F(MultiSaveTest, OnlyOneIsOpenAtATime)
{
    EXPECT_EQ(QV_Commit_Multisave(), -250);
    EXPECT_EQ(QV_Discard_Multisave(), -250);
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(save("EC1"), 0);
    EXPECT_EQ(QV_Start_Multisave(), -250);
    EXPECT_EQ(QV_Commit_Multisave(), 0) << "the open one is not disturbed: " << message();
    EXPECT_EQ(changes(), 1U);
}

TEST_F(MultiSaveTest, AWriterThatWaitsInVainIsTold)
{
    OtherSession other;
    ASSERT_EQ(other.run("start"), 0);
    EXPECT_EQ(changes(), 0U) << "readers never wait";
    Object waiting("EngineeringChange", {{"id", "EC1"}});
    EXPECT_EQ(waiting.save(), -304); // after the time limit of the server
    EXPECT_NE(message().find("busy"), std::string::npos) << message();
    ASSERT_EQ(other.run("commit"), 0);
    EXPECT_EQ(save("EC1"), 0) << message();
}

} // namespace
} // namespace servertest
