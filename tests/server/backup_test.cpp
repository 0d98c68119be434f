// SPDX-License-Identifier: Apache-2.0
//
// Copies of a store that is in use.
#include <filesystem>
#include <set>

#include <unistd.h>

#include <velrzm/qvlocal.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

namespace fs = std::filesystem;

class BackupTest : public StoreFileTest {
protected:
    static std::size_t changes() { return query("EngineeringChange").size(); }
    static int save(const std::string& id, const std::string& text = "")
    {
        return Object("EngineeringChange", {{"id", id}, {"desc", text}}).save();
    }

    /** How many changes the copy holds; it must be whole and complete as it is. */
    std::size_t changesIn(const std::string& copy)
    {
        EXPECT_FALSE(fs::exists(copy + "-wal") || fs::exists(copy + "-journal"));
        EXPECT_EQ(QV_Logoff(), 0);
        environment.set("QV_STORE", "sqlite:" + copy);
        EXPECT_EQ(logon(), 0) << message();
        const std::size_t found = changes();
        EXPECT_EQ(QV_Logoff(), 0);
        environment.set("QV_STORE", location);
        EXPECT_EQ(logon(), 0) << message();
        EXPECT_EQ(sql(copy, "PRAGMA integrity_check"), "ok");
        return found;
    }

    static std::set<std::string> files()
    {
        std::set<std::string> names;
        for (const auto& entry :
             fs::recursive_directory_iterator(".", fs::directory_options::skip_permission_denied)) {
            names.insert(entry.path().string());
        }
        return names;
    }

    /** The complaint about a backup that must be refused and leave everything as it was. */
    static std::string refusal(const std::string& file, qvlocal::Replace replace = qvlocal::Replace::Yes,
                               const std::string& store = location)
    {
        const auto contentOf = [&] { return fs::is_regular_file(file) ? harness::readFile(file) : ""; };
        const auto before = files();
        const std::string content = contentOf();
        std::string complaint = failureOf([&] { qvlocal::backUpStore(store, file, replace); });
        EXPECT_EQ(files(), before);
        EXPECT_EQ(contentOf(), content);
        EXPECT_NE(complaint.find(file), std::string::npos) << complaint;
        return complaint;
    }
};

TEST_F(BackupTest, OnlyWhatIsCommittedIsCopied)
{
    OtherSession other;
    ASSERT_EQ(save("BEFORE"), 0) << message();
    ASSERT_EQ(other.run("start"), 0);
    ASSERT_EQ(other.run("create EngineeringChange id=WITHIN"), 0);
    qvlocal::backUpStore(location, "copy.db");
    ASSERT_EQ(other.run("commit"), 0);
    EXPECT_EQ(changesIn("copy.db"), 1U);
    EXPECT_EQ(changes(), 2U);
    EXPECT_EQ(fs::status("copy.db").permissions(), fs::status("store.db").permissions());
    qvlocal::backUpStore(location, "copy.db", qvlocal::Replace::Yes);
    EXPECT_EQ(changesIn("copy.db"), 2U);
}

TEST_F(BackupTest, CommitsOfOthersNeitherDelayTheCopyNorGetIntoIt)
{
    constexpr std::size_t stored = 1000; // more than is copied at once
    ASSERT_EQ(QV_Start_Multisave(), 0);
    for (std::size_t number = 0; number < stored; ++number) {
        ASSERT_EQ(save("EC" + std::to_string(number), std::string(QV_MAX_VALUE_LENGTH, 'x')), 0) << message();
    }
    ASSERT_EQ(QV_Commit_Multisave(), 0);
    OtherSession other;
    std::size_t reports = 0;
    std::uintmax_t last = 0;
    qvlocal::backUpStore(location, "copy.db", qvlocal::Replace::No,
                         [&](std::uintmax_t done, std::uintmax_t total) {
                             EXPECT_GT(done, last);
                             EXPECT_LE(done, total);
                             last = done;
                             const std::string id = "OTHER" + std::to_string(++reports);
                             ASSERT_LT(reports, 1000U) << "the copy begins again with every commit";
                             EXPECT_EQ(other.run("create EngineeringChange id=" + id), 0);
                         });
    EXPECT_GT(reports, 1U);
    EXPECT_EQ(last, fs::file_size("copy.db"));
    EXPECT_EQ(changesIn("copy.db"), stored);
    EXPECT_EQ(changes(), stored + reports);
}

TEST_F(BackupTest, WhatStandsInTheWayIsToldAndNothingIsLeft)
{
    harness::writeFile("other", "content");
    EXPECT_NE(refusal("other", qvlocal::Replace::No).find("--force"), std::string::npos);
    fs::create_symlink("store.db", "link");
    fs::create_hard_link("store.db", "name");
    fs::create_directory("folder");
    for (const std::string file : {"store.db", "./store.db", "link", "name", "store.db-wal", "folder",
                                   "folder/missing/copy.db", "other/copy.db", "/dev/null"}) {
        EXPECT_NE(refusal(file), "") << file;
    }
    harness::writeFile("used.db-wal", ""); // of a store that somebody has open
    EXPECT_NE(refusal("used.db").find("used.db-wal"), std::string::npos);
    EXPECT_NE(refusal("missing.db", qvlocal::Replace::No, "sqlite:missing.db").find("velrzm init"),
              std::string::npos);
    EXPECT_THROW(qvlocal::backUpStore("sqlite::memory:", "copy.db"), qvlocal::StoreError);
}

TEST_F(BackupTest, AFolderThatCannotBeWrittenIsTold)
{
    const bool isRoot = geteuid() == 0; // whom permissions do not bind
    constexpr uid_t nobody = 65534;
    for (const auto& entry : fs::directory_iterator(".")) {
        fs::permissions(entry.path(), fs::perms::all);
    }
    fs::permissions(".", fs::perms::all);
    fs::create_directory("locked");
    fs::permissions("locked", fs::perms(0555));
    ASSERT_TRUE(!isRoot || seteuid(nobody) == 0);
    const std::string complaint = refusal("locked/copy.db");
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    EXPECT_NE(complaint.find("Permission denied"), std::string::npos) << complaint;
}

TEST_F(BackupTest, WhoIsToldOfTheProgressMayEndIt)
{
    struct Stop {};
    const auto before = files();
    EXPECT_THROW(qvlocal::backUpStore(location, "copy.db", qvlocal::Replace::No,
                                      [](std::uintmax_t, std::uintmax_t) { throw Stop(); }),
                 Stop);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(save("AFTER"), 0) << message();
}

TEST_F(BackupTest, ASummaryCountsWhatIsStored)
{
    ASSERT_EQ(save("EC1"), 0);
    ASSERT_EQ(save("EC2"), 0);
    const qvlocal::StoreSummary summary = qvlocal::summarizeStore(location);
    EXPECT_EQ(summary.formatVersion, 1);
    EXPECT_EQ(summary.users, 1U);
    EXPECT_GE(summary.bytes, fs::file_size("store.db"));
    EXPECT_GT(summary.objects.size(), 1U);
    for (const auto& [name, count] : summary.objects) {
        EXPECT_EQ(count, name == "EngineeringChange" ? 2U : 0U) << name;
    }
    EXPECT_THROW(qvlocal::summarizeStore("sqlite:missing.db"), qvlocal::StoreError);
}

} // namespace
} // namespace servertest
