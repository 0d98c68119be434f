// SPDX-License-Identifier: Apache-2.0
//
// Saves that are stored together or not at all.
#include "tests/server/server_test.h"

namespace servertest {
namespace {

class MultiSaveTest : public StoreFileTest {
protected:
    static std::size_t changes() { return query("EngineeringChange").size(); }
    static int save(const std::string& id) { return Object("EngineeringChange", {{"id", id}}).save(); }
};

TEST_F(MultiSaveTest, OwnReadsSeeTheSavesOthersOnlyAfterTheCommit)
{
    const OtherSession other;
    EXPECT_EQ(QV_Commit_Multisave(), -250);
    EXPECT_EQ(QV_Discard_Multisave(), -250);
    ASSERT_EQ(QV_Start_Multisave(), 0) << message();
    ASSERT_EQ(save("EC1"), 0) << message();
    ASSERT_EQ(save("EC2"), 0) << message();
    EXPECT_EQ(QV_Start_Multisave(), -250) << "one is open, which goes on";
    EXPECT_EQ(save("EC1"), QV_ALREADY_STORED) << "takes back only itself";
    EXPECT_EQ(Object("ItemEngineeringData", item("A", "EC9")).save(), -230);
    EXPECT_EQ(changes(), 2U);
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC2"}}, "update_count"), "1");
    EXPECT_EQ(other.run("size EngineeringChange"), 0);
    ASSERT_EQ(QV_Commit_Multisave(), 0) << message();
    EXPECT_EQ(other.run("size EngineeringChange"), 2);
    EXPECT_EQ(query("ItemEngineeringData").size(), 0U);
}

TEST_F(MultiSaveTest, DiscardLogoffAndCloseDropTheSaves)
{
    const std::vector<std::function<int()>> ends = {
        QV_Discard_Multisave, [] { return QV_Logoff() == 0 ? logon() : -1; },
        [] { return QV_Close_Env() == 0 && QV_Open_Env() == 0 ? logon() : -1; }};
    for (const auto& end : ends) {
        ASSERT_EQ(QV_Start_Multisave(), 0) << message();
        ASSERT_EQ(save("EC1"), 0) << message();
        ASSERT_EQ(end(), 0) << message();
        EXPECT_EQ(changes(), 0U);
    }
}

TEST_F(MultiSaveTest, AWriterThatWaitsInVainIsTold)
{
    const OtherSession other;
    ASSERT_EQ(other.run("start"), 0);
    EXPECT_EQ(changes(), 0U) << "readers never wait";
    EXPECT_TRUE(refused(save("EC1"), -304, "busy")); // after the time limit of the server
    ASSERT_EQ(other.run("commit"), 0);
    EXPECT_EQ(save("EC1"), 0) << message();
}

} // namespace
} // namespace servertest
