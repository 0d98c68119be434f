// SPDX-License-Identifier: Apache-2.0
//
// Of the administration of stores what the command does not show: who is told of the progress of a copy, and
// users that the command itself would refuse.
#include <velrzm/qvlocal.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include <velrzm/qv_sdk.h>

#include "tests/harness/files.h"
#include "tests/standin/memory.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* store = "sqlite:store.db";

int saveChange(const std::string& id, const std::string& text = "")
{
    QV_ObjectHandle change = nullptr;
    QV_Create_Object(&change, "EngineeringChange");
    QV_Set_Object_Attr(change, "id", id.c_str());
    QV_Set_Object_Attr(change, "desc", text.c_str());
    const int code = QV_Save_Object(change);
    QV_Destroy_Object(&change);
    return code;
}

int logOn()
{
    std::array<char, 1> reserved = {};
    return QV_Open_Env() + QV_Logon("jdoe", "secret", reserved.data(), reserved.data());
}

/** A static object of a program, which goes on with the session until the very end. */
struct StaticObject {
    bool isUsed = false;
    ~StaticObject()
    {
        if (isUsed && saveChange("LAST") + QV_Logoff() + QV_Close_Env() != 0) {
            std::_Exit(1);
        }
    }
} staticObject;

TEST(SessionTest, LastsUntilTheDestructorsOfStaticObjects)
{
    const auto useSession = [] {
        harness::Environment environment;
        environment.set("QV_STORE", "sqlite::memory:");
        staticObject.isUsed = logOn() == 0;
        std::exit(staticObject.isUsed ? 0 : 2);
    };
    EXPECT_EXIT(useSession(), testing::ExitedWithCode(0), "");
}

TEST(StoreTest, IsMadeOrLeavesNothingBehindWhenMemoryEnds)
{
    const harness::TemporaryDirectory directory;
    int failures = 0;
    for (int allocations = 16; !fs::exists("store.db"); allocations *= 2) {
        try {
            const standin::ScarceMemory scarce(allocations);
            qvlocal::initializeStore(store, "jdoe", "secret");
        } catch (const std::exception&) {
            EXPECT_TRUE(fs::is_empty(".")) << allocations;
            ++failures;
        }
    }
    EXPECT_GT(failures, 3);
}

/** A session over a store in a file. */
class AdministrationTest : public testing::Test {
protected:
    AdministrationTest()
    {
        environment.set("QV_STORE", store);
        qvlocal::initializeStore(store, "jdoe", "secret");
        EXPECT_EQ(logOn(), 0);
    }
    void TearDown() override { QV_Close_Env(); }

    static std::size_t changesIn(const std::string& location)
    {
        const auto objects = qvlocal::summarizeStore(location).objects;
        const auto changes = std::find_if(objects.begin(), objects.end(), [](const auto& counted) {
            return counted.first == "EngineeringChange";
        });
        return changes->second;
    }

    harness::TemporaryDirectory directory;
    harness::Environment environment;
};

TEST_F(AdministrationTest, CommitsOfOthersNeitherDelayACopyNorGetIntoIt)
{
    constexpr std::size_t stored = 1000; // more than is copied at once
    ASSERT_EQ(QV_Start_Multisave(), 0);
    for (std::size_t number = 0; number < stored; ++number) {
        ASSERT_EQ(saveChange("EC" + std::to_string(number), std::string(QV_MAX_VALUE_LENGTH, 'x')), 0);
    }
    ASSERT_EQ(QV_Commit_Multisave(), 0);
    std::size_t reports = 0;
    std::uintmax_t last = 0;
    qvlocal::backUpStore(store, "copy.db", qvlocal::Replace::No,
                         [&](std::uintmax_t done, std::uintmax_t total) {
                             EXPECT_GT(done, last);
                             EXPECT_LE(done, total);
                             last = done;
                             ASSERT_LT(++reports, 1000U) << "the copy begins again with every commit";
                             EXPECT_EQ(saveChange("OTHER" + std::to_string(reports)), 0);
                         });
    EXPECT_GT(reports, 1U);
    EXPECT_EQ(last, fs::file_size("copy.db"));
    EXPECT_EQ(changesIn("sqlite:copy.db"), stored);
    EXPECT_EQ(changesIn(store), stored + reports);
}

TEST_F(AdministrationTest, WhoIsToldOfTheProgressMayEndTheCopying)
{
    struct Stop {};
    const auto stop = [](std::uintmax_t, std::uintmax_t) { throw Stop(); };
    const auto filesBefore = std::distance(fs::directory_iterator("."), {});
    EXPECT_THROW(qvlocal::backUpStore(store, "copy.db", qvlocal::Replace::No, stop), Stop);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), filesBefore);
    EXPECT_EQ(saveChange("AFTER"), 0);
}

TEST_F(AdministrationTest, AStoreThatComesIntoUseMeanwhileIsNotReplaced)
{
    qvlocal::backUpStore(store, "other.db");
    const auto useOther = [&](std::uintmax_t, std::uintmax_t) {
        QV_Logoff();
        environment.set("QV_STORE", "sqlite:other.db");
        EXPECT_EQ(logOn(), 0);
    };
    EXPECT_THROW(qvlocal::backUpStore(store, "other.db", qvlocal::Replace::Yes, useOther),
                 qvlocal::StoreError);
    EXPECT_EQ(saveChange("OTHER"), 0);
    EXPECT_EQ(changesIn("sqlite:other.db"), 1U);
}

TEST_F(AdministrationTest, UnusableUsersAreRefused)
{
    EXPECT_THROW(qvlocal::addUser(store, "", "x"), qvlocal::StoreError);
    EXPECT_THROW(qvlocal::addUser(store, "empty", ""), qvlocal::StoreError);
    EXPECT_THROW(qvlocal::setPassword(store, "nobody", "x"), qvlocal::StoreError);
    EXPECT_THROW(qvlocal::listUsers("sqlite::memory:"), qvlocal::StoreError);
    EXPECT_THROW(qvlocal::backUpStore("sqlite::memory:", "copy.db"), qvlocal::StoreError);
    EXPECT_THROW(qvlocal::summarizeStore("sqlite:missing.db"), qvlocal::StoreError);
    EXPECT_EQ(qvlocal::listUsers(store), std::vector<std::string>{"jdoe"});
}

} // namespace
