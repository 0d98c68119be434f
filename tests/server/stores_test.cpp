// SPDX-License-Identifier: Apache-2.0
//
// Stores and their users: making them, logging on, and everything that can stand in a store's place.
#include <filesystem>
#include <fstream>

#include <sqlite3.h>
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

    /** Whether the logon is refused with that code and a text that holds `hint`. */
    static void expectRefused(int code, const std::string& hint)
    {
        EXPECT_EQ(logon(), code) << message();
        EXPECT_NE(message().find(hint), std::string::npos) << message();
    }
};

/** What a StoreError says; "" when there is none. */
template <typename Call>
std::string failureOf(Call call)
{
    try {
        call();
        return "";
    } catch (const qvlocal::StoreError& error) {
        return error.what();
    }
}

void runSql(const std::string& path, const std::string& sql)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
}

TEST_F(StoresTest, AStoreIsMadeOnceAndUsedByItsUsersOnly)
{
    expectRefused(-300, "velrzm init");
    qvlocal::initializeStore("sqlite:store.db", "jdoe", "secret");
    EXPECT_NE(failureOf([] { qvlocal::initializeStore("sqlite:store.db", "mallory", "x"); }), "");
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
    EXPECT_NE(failureOf([&] { qvlocal::addUser(store, "asmith", "x"); }), "");
    EXPECT_NE(failureOf([&] { qvlocal::addUser(store, "", "x"); }), "");
    EXPECT_NE(failureOf([&] { qvlocal::addUser(store, "empty", ""); }), "");
    EXPECT_NE(failureOf([&] { qvlocal::setPassword(store, "nobody", "x"); }), "");
    EXPECT_NE(failureOf([&] { qvlocal::removeUser(store, "nobody"); }), "");
    qvlocal::setPassword(store, "asmith", "second");
    EXPECT_EQ(logon("asmith", "first"), -122);
    EXPECT_EQ(logon("asmith", "second"), 0) << message();
    EXPECT_EQ(qvlocal::listUsers(store), (std::vector<std::string>{"asmith", "jdoe"}));
    qvlocal::removeUser(store, "asmith");
    ASSERT_EQ(QV_Logoff(), 0);
    EXPECT_EQ(logon("asmith", "second"), -122);
    EXPECT_NE(failureOf([] { qvlocal::listUsers("sqlite::memory:"); }), "");
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
    EXPECT_NE(failureOf([] { qvlocal::defaultStore(); }), "");
}

TEST_F(StoresTest, WhatIsNoStoreIsNamed)
{
    fs::create_directory("store.db");
    expectRefused(-301, "is a folder");
    fs::remove("store.db");
    harness::writeFile("store.db",
                       "This is not a database, but long enough to look like one at first sight.");
    expectRefused(-301, "not a store");
    harness::writeFile("store.db", "");
    expectRefused(-301, "not a store");
    runSql("store.db", "CREATE TABLE t (x)");
    expectRefused(-301, "not a store");
    for (const std::string location : {"nonsense", "sqlite:", "oracle:x"}) {
        environment.set("QV_STORE", location);
        expectRefused(-110, "'" + location + "'");
    }
    environment.set("QV_STORE", "sqlite::memory:");
    EXPECT_EQ(logon("", ""), -122);
    EXPECT_EQ(logon("anybody", ""), 0) << message();
}

TEST_F(StoresTest, AStoreOfAnotherVersionIsLeftAlone)
{
    qvlocal::initializeStore("sqlite:store.db", "jdoe", "secret");
    runSql("store.db", "PRAGMA user_version = 99");
    expectRefused(-302, "99");
    runSql("store.db", "PRAGMA user_version = 0");
    expectRefused(-302, "velrzm init");
}

TEST_F(StoresTest, AReadOnlyStoreIsRefused)
{
    qvlocal::initializeStore("sqlite:store.db", "jdoe", "secret");
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
