// SPDX-License-Identifier: Apache-2.0
//
// Documents in the vault: versions, revisions, who holds them.
#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <thread>

#include <velrzm/qvlocal.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

constexpr int vaultState = -260;
const std::string numberPath = "doc_revision@doc_number";
const std::string revisionPath = "doc_revision@doc_rev_num";
const std::string versionPath = "doc_ver_num";
const std::string holderPath = "ckout_user";
const std::string titlePath = "doc_revision@doc_title";

/** Makes the next revision and reads `path` of it. */
int revise(Object& document, const std::string& path, std::string& result)
{
    QV_ObjectHandle revision = nullptr;
    const int code = QV_Make_New_Revision(document.handle(), &revision);
    const char* text = "";
    EXPECT_EQ(revision == nullptr, code < 0);
    EXPECT_EQ(code == 0 ? QV_Get_Object_Attr(revision, path.c_str(), &text) : 0, 0) << message();
    result = text;
    QV_Destroy_Object(&revision);
    return code;
}

/** The keys of a revision, and what else it is to have. */
Pairs document(const std::string& number, const std::string& revision, const Pairs& attributes = {})
{
    Pairs pairs = {{numberPath, number}, {revisionPath, revision}};
    pairs.insert(pairs.end(), attributes.begin(), attributes.end());
    return pairs;
}

void createDocument(const Pairs& attributes)
{
    ASSERT_EQ(Object("DocVersion", attributes).createAndCheckIn(), 0) << message();
}

/** Every version in the order in which they were made, or those that a clause leaves. */
Table versions(const Clauses& further = {{"OrderBy", "db_object_id"}})
{
    Clauses clauses = {
        {"Select", numberPath}, {"Select", revisionPath}, {"Select", versionPath}, {"Select", holderPath}};
    clauses.insert(clauses.end(), further.begin(), further.end());
    return query("DocVersion", clauses);
}

class VaultTest : public ServerTest {
protected:
    const Pairs keys = document("D", "A");
    std::string readNewest(const std::string& path) const { return read("DocVersion", keys, path); }
};

TEST_F(VaultTest, ANewDocumentIsNumberedFilledInAndCheckedIn)
{
    const Pairs expected = {{titlePath, "BRACKET"},
                            {revisionPath, "1"},
                            {versionPath, "1"},
                            {"copy_count", "0"},
                            {"doc_primary_fmt@user_data3", "OID-1"},
                            {holderPath, ""},
                            {"update_count", "1"}};
    Object made("DocVersion",
                document("", "1",
                         {{titlePath, "BRACKET"},
                          {"ckin_userdata3", "OID-1"},
                          {versionPath, "7"},
                          {holderPath, "somebody"}}),
                {numberPath, "db_object_id", "doc_revision@primary_config@db_object_id"});
    for (const auto& [path, value] : expected) {
        made.subscribe(path);
    }
    ASSERT_EQ(made.createAndCheckIn(), 0) << message();
    for (const auto& [path, value] : expected) {
        EXPECT_EQ(made.get(path), value) << path;
    }
    EXPECT_EQ(made.get("doc_revision@primary_config@db_object_id"), made.get("db_object_id"));
    EXPECT_EQ(
        Object("DocVersion", document(made.get(numberPath), "1", {{versionPath, "7"}})).createAndCheckIn(),
        QV_ALREADY_STORED)
        << "versions are made by check-ins only";
}

TEST_F(VaultTest, NumbersOfTheServerAreNeverTakenTwice)
{
    Object first("DocVersion", {}, {numberPath});
    ASSERT_EQ(first.createAndCheckIn(), 0) << message();
    const std::string number = first.get(numberPath);
    ASSERT_EQ(number.substr(0, 4), "DOC-");
    for (int next = 1; next <= 40; ++next) { // whatever comes next is taken by another document
        const std::string taken = std::to_string(std::stoi(number.substr(4)) + next);
        createDocument(document("DOC-" + std::string(6 - taken.size(), '0') + taken, "B"));
    }
    Object last("DocVersion", {{revisionPath, "1"}}, {numberPath});
    ASSERT_EQ(last.createAndCheckIn(), 0) << message();
    EXPECT_EQ(versions({{"Where", "&=(" + numberPath + ",'" + last.get(numberPath) + "')"}}).size(), 1U);
}

TEST_F(VaultTest, ACheckInMakesTheNextVersionAndLeavesTheOneBefore)
{
    createDocument(document("D", "A", {{titlePath, "OLD"}, {"site_attribute", "kept"}}));
    const std::string first = readNewest("db_object_id");
    Object held("DocVersion", {{"db_object_id", first}, {numberPath, ""}, {revisionPath, ""}},
                {versionPath, holderPath, "db_object_id"});
    ASSERT_EQ(held.open(), 0) << message();
    held.set("ckout_reason", "drawing");
    ASSERT_EQ(held.checkOut(), 0) << message();
    EXPECT_EQ(held.get(holderPath), "jdoe");
    EXPECT_EQ(held.get("db_object_id"), first);
    held.set(titlePath, "NEW");
    held.set("added_at_check_in", "yes");
    ASSERT_EQ(held.checkIn(), 0) << message();
    EXPECT_EQ(held.get(versionPath) + held.get(holderPath), "2");

    const std::string second = held.get("db_object_id");
    const auto expectVersion = [](const std::string& id, const Pairs& values) {
        for (const auto& [path, value] : values) {
            EXPECT_EQ(read("DocVersion", {{"db_object_id", id}}, path), value) << path;
        }
    };
    expectVersion(first, {{titlePath, "OLD"}, {holderPath, ""}, {"added_at_check_in", ""}});
    expectVersion(second, {{titlePath, "NEW"},
                           {"added_at_check_in", "yes"},
                           {"site_attribute", "kept"},
                           {"ckout_reason", "drawing"},
                           {"doc_revision@primary_config@db_object_id", second},
                           {"update_count", "1"}});
    held.set(titlePath, "NEWER"); // the handle stands for the second version now
    ASSERT_EQ(held.save(), 0) << message();
    EXPECT_EQ(readNewest(titlePath), "NEWER") << "the keys mean the newest";
    ASSERT_EQ(held.open(), 0) << message();
    EXPECT_EQ(held.get("db_object_id"), second);
}

TEST_F(VaultTest, CheckInDefaultsKeepTheIdentifierOfTheCallingSystem)
{
    createDocument(document("D", "A", {{"ckin_userdata3", "OID-1"}}));
    Object held("DocVersion", keys);
    ASSERT_EQ(held.open(), 0) << message();
    held.set("doc_primary_fmt@user_data3", "OID-2");
    ASSERT_EQ(held.save(), 0) << message();
    ASSERT_EQ(QV_Set_Doc_CheckOut_Defaults(held.handle()), 0) << message();
    for (const std::string identifier : {"OID-2", "OID-3"}) {
        ASSERT_EQ(held.checkOut(), 0) << message();
        if (identifier == "OID-3") {
            held.set("ckin_userdata3", identifier);
        }
        ASSERT_EQ(QV_Set_Doc_CheckIn_Defaults(held.handle()), 0) << message();
        ASSERT_EQ(held.checkIn(), 0) << message();
        EXPECT_EQ(readNewest("doc_primary_fmt@user_data3"), identifier);
        EXPECT_EQ(readNewest("ckin_userdata3"), identifier);
    }
}

TEST_F(VaultTest, ACanceledCheckOutMakesNoVersion)
{
    createDocument(keys);
    Object held("DocVersion", keys);
    ASSERT_EQ(held.open(), 0) << message();
    ASSERT_EQ(held.checkOut(), 0) << message();
    held.set("reason", "given up");
    ASSERT_EQ(held.cancel(), 0) << message();
    EXPECT_EQ(versions(), (Table{{"D", "A", "1", ""}}));
    EXPECT_EQ(readNewest("reason"), "given up");
    ASSERT_EQ(held.checkOut(), 0) << message();
    held.set(revisionPath, "B");
    EXPECT_EQ(held.checkIn(), -232) << "a version stays in its revision";
    EXPECT_EQ(versions(), (Table{{"D", "A", "1", "jdoe"}}));
}

TEST_F(VaultTest, ANewRevisionCopiesItsBaseAndIsTheLast)
{
    createDocument(document("D", "A", {{titlePath, "TITLE"}, {"site", "kept"}}));
    Object base("DocVersion", keys, {revisionPath, versionPath, titlePath});
    ASSERT_EQ(base.open(), 0) << message();
    for (int version = 2; version <= 11; ++version) {
        ASSERT_EQ(base.checkOut(), 0) << message();
        ASSERT_EQ(base.checkIn(), 0) << message();
    }
    base.set("set_on_base", "stored");
    std::string title;
    ASSERT_EQ(revise(base, titlePath, title), 0) << message();
    EXPECT_EQ(title, "TITLE");
    EXPECT_EQ(base.get(revisionPath) + base.get(versionPath), "A11") << "the handle keeps the base";
    EXPECT_EQ(readNewest("set_on_base"), "stored");
    for (const auto& [path, value] : Pairs{{versionPath, "1"}, {"site", "kept"}, {"set_on_base", "stored"}}) {
        EXPECT_EQ(read("DocVersion", document("D", "B"), path), value) << path;
    }
    base.set("doc_revision@chg_ctrl", "0");
    EXPECT_EQ(base.save(), 0) << message();

    for (const std::string number : {"7", "09", "Y", "AZ", "A8", "-"}) { // made by hand
        createDocument(document("D", number));
    }
    for (const std::string expected : {"BA", "BB", "BC"}) { // follows the newest of all, not the base
        std::string made;
        ASSERT_EQ(revise(base, revisionPath, made), 0) << message();
        EXPECT_EQ(made, expected);
    }
    const Table ordered = versions({{"Where", "&=(" + numberPath + ",'D')"},
                                    {"Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)"},
                                    {"Where", "&=(copy_count,0)"},
                                    {"OrderBy", "doc_revision@doc_rev_num_v"},
                                    {"OrderBy", versionPath}});
    std::string revisions;
    for (const auto& row : ordered) {
        revisions += row.at(1) + row.at(2) + ' ';
    }
    EXPECT_EQ(revisions, "-1 71 091 A1 A2 A3 A4 A5 A6 A7 A8 A9 A10 A11 A81 B1 Y1 AZ1 BA1 BB1 BC1 ");
}

/** Two users with one store, each in a process, beside this one. */
class VaultOfTwoTest : public StoreFileTest {
protected:
    void SetUp() override
    {
        StoreFileTest::SetUp();
        qvlocal::addUser(location, "bob", "secret");
        bob.emplace("bob");
    }

    const Pairs keys = document("D", "A");
    const std::string keysOfBob = " DocVersion " + numberPath + "=D " + revisionPath + "=A";
    std::optional<OtherSession> bob;
};

TEST_F(VaultOfTwoTest, RefusalsNameTheHolder)
{
    createDocument(keys);
    Object mine("DocVersion", keys);
    ASSERT_EQ(mine.open(), 0) << message();
    EXPECT_TRUE(refused(mine.checkIn(), vaultState, "'jdoe'")); // who does not hold it
    EXPECT_TRUE(refused(mine.cancel(), vaultState, "'jdoe'"));
    ASSERT_EQ(bob->run("check-out" + keysOfBob), 0);
    mine.set(titlePath, "JDOE'S");
    std::string ignored;
    EXPECT_TRUE(refused(mine.checkOut(), vaultState, "'bob'"));
    EXPECT_TRUE(refused(mine.checkIn(), vaultState, "'bob'"));
    EXPECT_TRUE(refused(mine.cancel(), vaultState, "'bob'"));
    EXPECT_TRUE(refused(revise(mine, revisionPath, ignored), vaultState, "'bob'"));
    EXPECT_EQ(versions(), (Table{{"D", "A", "1", "bob"}}));
    EXPECT_EQ(read("DocVersion", keys, titlePath), "");
    EXPECT_EQ(bob->run("check-in" + keysOfBob), 0);
    ASSERT_EQ(mine.checkOut(), 0) << message();
    EXPECT_EQ(bob->run("check-out" + keysOfBob), 0) << "the newest version is another one";
}

TEST_F(VaultOfTwoTest, WhatAnotherUserSavedIsNotOverwritten)
{
    createDocument(keys);
    Object mine("DocVersion", keys);
    ASSERT_EQ(mine.open(), 0) << message();
    ASSERT_EQ(mine.checkOut(), 0) << message();
    ASSERT_EQ(bob->run("change" + keysOfBob + " with " + titlePath + "=BOB"), 0);
    mine.set(titlePath, "JDOE");
    EXPECT_EQ(mine.checkIn(), -240);
    EXPECT_EQ(mine.cancel(), -240);
    EXPECT_EQ(versions(), (Table{{"D", "A", "1", "jdoe"}}));
    ASSERT_EQ(mine.open(), 0) << message();
    ASSERT_EQ(QV_Start_Multisave(), 0) << message();
    ASSERT_EQ(mine.checkIn(), 0) << message();
    ASSERT_EQ(QV_Discard_Multisave(), 0) << message();
    EXPECT_EQ(mine.checkOut(), -240) << "the version behind the handle is gone";
    EXPECT_EQ(versions(), (Table{{"D", "A", "1", "jdoe"}}));
    EXPECT_EQ(read("DocVersion", keys, titlePath), "BOB");
}

TEST_F(VaultOfTwoTest, DocumentsMadeAtTheSameTimeHaveNumbersOfTheirOwn)
{
    constexpr int count = 25;
    int failures = 0;
    std::thread others([&] {
        for (int made = 0; made < count; ++made) {
            failures += bob->run("create-and-check-in DocVersion doc_revision@doc_rev_num=1") == 0 ? 0 : 1;
        }
    });
    for (int made = 0; made < count; ++made) {
        createDocument({{revisionPath, "1"}});
    }
    others.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(versions().size(), 2U * count);
}

/** What the vault should do, in the plainest form. */
class Model {
public:
    struct Version {
        std::size_t document;
        int revision; // counted from 0
        int number;
        std::string holder;
    };

    int apply(const std::string& call, std::size_t index, const std::string& user)
    {
        if (call == "create-and-check-in") {
            versions.push_back({revisions.size(), 0, 1, ""});
            revisions.push_back(1);
            return 0;
        }
        Version& version = versions[index];
        if (call == "check-in" || call == "cancel" ? version.holder != user : !version.holder.empty()) {
            return vaultState;
        }
        if (call == "check-out") {
            version.holder = user;
        } else if (call == "revise") {
            versions.push_back({version.document, revisions[version.document]++, 1, ""});
        } else {
            version.holder.clear();
            if (call == "check-in") {
                versions.push_back({version.document, version.revision, next(version), ""});
            }
        }
        return 0;
    }

    /** As `versions`, but for the documents' numbers. */
    Table table() const
    {
        Table rows;
        for (const Version& version : versions) {
            rows.push_back({std::to_string(version.document), std::to_string(version.revision + 1),
                            std::to_string(version.number), version.holder});
        }
        return rows;
    }

    std::vector<int> revisions; // how many there are of each document
    std::vector<Version> versions;

private:
    int next(const Version& of) const
    {
        int newest = 0;
        for (const Version& version : versions) {
            const bool isSame = version.document == of.document && version.revision == of.revision;
            newest = isSame ? std::max(newest, version.number) : newest;
        }
        return newest + 1;
    }
};

TEST_F(VaultOfTwoTest, RandomCallsAreAnsweredAsByTheModel)
{
    const std::vector<std::string> calls = {"check-out", "check-in", "check-in", "cancel",
                                            "check-out", "revise",   "revise"};
    const OtherSession jdoe;
    std::mt19937 random(20090); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same calls at each run
    Model model;
    std::map<int, int> answers;
    for (int step = 0; step < 500; ++step) {
        const bool isBob = random() % 2 == 0;
        const bool isDropped = random() % 16 == 0; // in a multi-save that is discarded
        const bool isNew = step < 4 || step % 50 == 0;
        const std::string& call = isNew ? "create-and-check-in" : calls[random() % calls.size()];
        const std::size_t count = model.versions.size(); // mostly one of the newest
        const std::size_t index = count == 0 ? 0 : count - 1 - random() % std::min<std::size_t>(count, 12);
        const Model before = model;
        const int expected = model.apply(call, index, isBob ? "bob" : "jdoe");
        const OtherSession& user = isBob ? *bob : jdoe;
        const std::string of =
            isNew ? revisionPath + "=1"
                  : "db_object_id=" + query("DocVersion", {{"Select", "db_object_id"}}).at(index).at(0);
        ASSERT_EQ(isDropped ? user.run("start") : 0, 0);
        ASSERT_EQ(user.run(std::string(call).append(" DocVersion ").append(of)), expected)
            << "step " << step << ": " << call;
        if (isDropped) {
            ASSERT_EQ(user.run("size DocVersion"), static_cast<int>(model.versions.size()))
                << "step " << step;
            ASSERT_EQ(user.run("discard"), 0);
            model = before;
        }
        Table table = versions();
        std::map<std::string, std::size_t> places; // of the documents, in the order of creation
        for (auto& row : table) {
            row[0] = std::to_string(places.emplace(row[0], places.size()).first->second);
        }
        ASSERT_EQ(table, model.table())
            << "step " << step << ": " << call << (isDropped ? ", discarded" : "");
        ++answers[expected];
    }
    EXPECT_GT(answers[0], 100);
    EXPECT_GT(answers[vaultState], 100);
}

} // namespace
} // namespace servertest
