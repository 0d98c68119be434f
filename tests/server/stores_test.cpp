// SPDX-License-Identifier: Apache-2.0
//
// Stores and their users: making them, logging on, and everything that can stand in a store's place.
#include <filesystem>

#include <unistd.h>

#include <velrzm/qvlocal.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

namespace fs = std::filesystem;

class StoresTest : public ServerTest {
protected:
    StoresTest() : ServerTest("sqlite:store.db") {}
    void SetUp() override { ASSERT_EQ(QV_Open_Env(), 0); }

    static void initialize(const std::string& user = "jdoe")
    {
        qvlocal::initializeStore("sqlite:store.db", user, "secret");
    }
};

TEST_F(StoresTest, AStoreIsMadeOnceAndUsedByItsUsersOnly)
{
    EXPECT_TRUE(refused(logon(), -300, "velrzm init"));
    initialize();
    EXPECT_THROW(initialize("mallory"), qvlocal::StoreError);
    EXPECT_EQ(logon(), 0) << message();
    ASSERT_EQ(QV_Logoff(), 0);
    EXPECT_EQ(logon("jdoe", "Secret"), -122);
    const std::string wrongPassword = message();
    EXPECT_EQ(logon("jdo", "secret"), -122);
    EXPECT_EQ(message().replace(message().find("'jdo'"), 5, "'jdoe'"), wrongPassword);
    EXPECT_EQ(logon("", ""), -122);
    EXPECT_EQ(logon("jdoe", std::string(10000, 'x')), -122);
    EXPECT_EQ(QV_Logon(nullptr, nullptr, nullptr, nullptr), -110);
    EXPECT_EQ(harness::readFile("store.db").find("secret"), std::string::npos);
}

TEST_F(StoresTest, UsersAreAdministered)
{
    const std::string store = "sqlite:made/on/the/way/store.db";
    environment.set("QV_STORE", store);
    qvlocal::initializeStore(qvlocal::currentStore(), "jdoe", "secret");
    qvlocal::addUser(store, "asmith", "first");
    for (const std::function<void()>& wrong : std::vector<std::function<void()>>{
             [&] { qvlocal::addUser(store, "asmith", "x"); }, [&] { qvlocal::addUser(store, "", "x"); },
             [&] { qvlocal::addUser(store, "empty", ""); },
             [&] { qvlocal::setPassword(store, "nobody", "x"); },
             [&] { qvlocal::removeUser(store, "nobody"); }, [] { qvlocal::listUsers("sqlite::memory:"); }}) {
        EXPECT_THROW(wrong(), qvlocal::StoreError);
    }
    qvlocal::setPassword(store, "asmith", "second");
    EXPECT_EQ(logon("asmith", "first"), -122);
    EXPECT_EQ(logon("asmith", "second"), 0) << message();
    EXPECT_EQ(qvlocal::listUsers(store), (std::vector<std::string>{"asmith", "jdoe"}));
    qvlocal::removeUser(store, "asmith");
    ASSERT_EQ(QV_Logoff(), 0);
    EXPECT_EQ(logon("asmith", "second"), -122);
}

TEST_F(StoresTest, TheUsersOwnStoreIsTheDefault)
{
    environment.set("QV_STORE", std::nullopt);
    environment.set("HOME", "/home/jdoe");
    environment.set("XDG_DATA_HOME", "relative");
    EXPECT_EQ(qvlocal::currentStore(), "sqlite:/home/jdoe/.local/share/velrzm/store.db");
    environment.set("XDG_DATA_HOME", fs::current_path().string());
    EXPECT_EQ(qvlocal::defaultStore(), "sqlite:" + fs::current_path().string() + "/velrzm/store.db");
    qvlocal::initializeStore(qvlocal::defaultStore(), "jdoe", "secret");
    EXPECT_EQ(logon(), 0) << message();
    environment.set("XDG_DATA_HOME", std::nullopt);
    environment.set("HOME", std::nullopt);
    EXPECT_THROW(qvlocal::defaultStore(), qvlocal::StoreError);
}

TEST_F(StoresTest, WhatIsNoStoreIsNamed)
{
    fs::create_directory("store.db");
    EXPECT_TRUE(refused(logon(), -301, "is a folder"));
    fs::remove("store.db");
    harness::writeFile("store.db",
                       "This is not a database, but long enough to look like one at first sight.");
    EXPECT_TRUE(refused(logon(), -301, "not a store"));
    harness::writeFile("store.db", "");
    EXPECT_TRUE(refused(logon(), -301, "not a store"));
    sql("store.db", "CREATE TABLE t (x)");
    EXPECT_TRUE(refused(logon(), -301, "not a store"));
    for (const std::string location : {"nonsense", "sqlite:", "oracle:x"}) {
        environment.set("QV_STORE", location);
        EXPECT_TRUE(refused(logon(), -110, "'" + location + "'"));
    }
    environment.set("QV_STORE", "sqlite::memory:");
    EXPECT_EQ(logon("", ""), -122);
    EXPECT_EQ(logon("anybody", ""), 0) << message();
}

TEST_F(StoresTest, AStoreOfAnotherVersionIsLeftAlone)
{
    initialize();
    sql("store.db", "PRAGMA user_version = 99");
    EXPECT_TRUE(refused(logon(), -302, "99"));
    sql("store.db", "PRAGMA user_version = 0");
    EXPECT_TRUE(refused(logon(), -302, "velrzm init"));
}

TEST_F(StoresTest, AReadOnlyStoreIsRefused)
{
    initialize();
    fs::permissions("store.db", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(".", fs::perms::all); // the folder is not what stands in the way
    const bool isRoot = geteuid() == 0;   // whom permissions do not bind
    constexpr uid_t nobody = 65534;
    ASSERT_TRUE(!isRoot || seteuid(nobody) == 0);
    const int code = logon();
    const std::string text = message();
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    EXPECT_EQ(code, -303) << text;
}

} // namespace
} // namespace servertest
