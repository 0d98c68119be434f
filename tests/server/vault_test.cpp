// SPDX-License-Identifier: Apache-2.0
//
// Documents in the vault: versions, revisions, who holds them.
#include <algorithm>
#include <map>
#include <optional>
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

int createAndCheckIn(Object& document)
{
    return QV_Create_and_CheckIn_Doc(document.handle(), 0);
}

int checkOut(Object& document)
{
    return QV_CheckOut_Doc(document.handle());
}

int checkIn(Object& document)
{
    return QV_CheckIn_Doc(document.handle(), 0);
}

int cancel(Object& document)
{
    return QV_Cancel_CheckOut_Doc(document.handle());
}

/** Makes the next revision and reads `path` of it. */
int revise(Object& document, const std::string& path, std::string& result)
{
    QV_ObjectHandle revision = nullptr;
    const int code = QV_Make_New_Revision(document.handle(), &revision);
    const char* text = nullptr;
    if (code == 0) {
        EXPECT_EQ(QV_Get_Object_Attr(revision, path.c_str(), &text), 0) << message();
        result = text;
    }
    EXPECT_EQ(revision == nullptr, code < 0);
    QV_Destroy_Object(&revision);
    return code;
}

int revise(Object& document)
{
    std::string ignored;
    document.subscribe(revisionPath);
    return revise(document, revisionPath, ignored);
}

/** Creates a document and checks it in. */
void createDocument(const std::string& number, const std::string& revision, const Pairs& attributes = {})
{
    Object document("DocVersion", attributes);
    document.set(numberPath, number);
    document.set(revisionPath, revision);
    ASSERT_EQ(createAndCheckIn(document), 0) << message();
}

/** Checks the newest version out and in again. */
void makeVersion(const std::string& number, const std::string& revision)
{
    Object document("DocVersion", {{numberPath, number}, {revisionPath, revision}});
    ASSERT_EQ(document.open(), 0) << message();
    ASSERT_EQ(checkOut(document), 0) << message();
    ASSERT_EQ(checkIn(document), 0) << message();
}

/** Every version in the order in which they were made. */
Table everyVersion()
{
    return query("DocVersion", {{"Select", numberPath},
                                {"Select", revisionPath},
                                {"Select", versionPath},
                                {"Select", holderPath},
                                {"OrderBy", "db_object_id"}});
}

/** Revisions and versions of a document in the order of its revisions. */
Table versionsOf(const std::string& number)
{
    return query("DocVersion", {{"Select", revisionPath},
                                {"Select", versionPath},
                                {"Where", "&=(doc_revision@doc_number,'" + number + "')"},
                                {"Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)"},
                                {"Where", "&=(copy_count,0)"},
                                {"OrderBy", "doc_revision@doc_number"},
                                {"OrderBy", "doc_revision@doc_rev_num_v"},
                                {"OrderBy", "doc_ver_num"}});
}

class VaultTest : public ServerTest {};

TEST_F(VaultTest, ANewDocumentIsNumberedFilledInAndCheckedIn)
{
    Object document("DocVersion", {{"doc_revision@doc_title", "BRACKET"},
                                   {"ckin_userdata3", "OID-1"},
                                   {numberPath, ""},
                                   {revisionPath, "1"},
                                   {versionPath, ""},
                                   {holderPath, "somebody"},
                                   {"doc_revision@external_doc", ""}});
    const Pairs expected = {{"doc_revision@doc_title", "BRACKET"},
                            {revisionPath, "1"},
                            {versionPath, "1"},
                            {"copy_count", "0"},
                            {"doc_primary_fmt@user_data3", "OID-1"},
                            {holderPath, ""},
                            {"doc_revision@external_doc", ""},
                            {"update_count", "1"}};
    for (const auto& [path, value] : expected) {
        document.subscribe(path);
    }
    for (const auto& path :
         {numberPath, std::string("db_object_id"), std::string("doc_revision@primary_config@db_object_id")}) {
        document.subscribe(path);
    }
    ASSERT_EQ(createAndCheckIn(document), 0) << message();
    for (const auto& [path, value] : expected) {
        EXPECT_EQ(document.get(path), value) << path;
    }
    EXPECT_NE(document.get(numberPath), "");
    EXPECT_EQ(document.get("doc_revision@primary_config@db_object_id"), document.get("db_object_id"));
    EXPECT_EQ(createAndCheckIn(document), QV_ALREADY_STORED) << "it is one document already";
    EXPECT_EQ(everyVersion().size(), 1U);
}

TEST_F(VaultTest, NumbersOfTheServerAreNeverTakenTwice)
{
    Object first("DocVersion");
    first.subscribe(numberPath);
    ASSERT_EQ(createAndCheckIn(first), 0) << message();
    const std::string number = first.get(numberPath);
    const auto digits = number.find_last_not_of("0123456789") + 1;
    for (int next = 1; next <= 40; ++next) { // whatever comes next is taken by another document
        std::string taken = std::to_string(std::stoi(number.substr(digits)) + next);
        taken.insert(0, number.size() - digits - taken.size(), '0');
        createDocument(number.substr(0, digits) + taken, "B");
    }
    Object last("DocVersion", {{revisionPath, "1"}});
    last.subscribe(numberPath);
    ASSERT_EQ(createAndCheckIn(last), 0) << message();
    EXPECT_EQ(versionsOf(last.get(numberPath)).size(), 1U) << last.get(numberPath);
    Object again("DocVersion", {{numberPath, number}, {revisionPath, ""}, {versionPath, "7"}});
    EXPECT_EQ(createAndCheckIn(again), QV_ALREADY_STORED) << "versions are made by check-ins only";
}

TEST_F(VaultTest, ACheckInMakesTheNextVersionAndLeavesTheOneBefore)
{
    createDocument("D", "A", {{"doc_revision@doc_title", "OLD"}, {"site_attribute", "kept"}});
    const Pairs keys = {{numberPath, "D"}, {revisionPath, "A"}};
    const std::string first = read("DocVersion", keys, "db_object_id");
    Object document("DocVersion", {{"db_object_id", first}, {numberPath, ""}, {revisionPath, ""}});
    for (const auto& path : {versionPath, holderPath, std::string("db_object_id")}) {
        document.subscribe(path);
    }
    ASSERT_EQ(document.open(), 0) << message();
    document.set("ckout_reason", "drawing");
    ASSERT_EQ(checkOut(document), 0) << message();
    EXPECT_EQ(document.get(holderPath), "jdoe");
    EXPECT_EQ(document.get("db_object_id"), first);
    document.set("doc_revision@doc_title", "NEW");
    document.set("added_at_check_in", "yes");
    ASSERT_EQ(checkIn(document), 0) << message();
    EXPECT_EQ(document.get(versionPath), "2");
    EXPECT_EQ(document.get(holderPath), "");

    const std::string second = document.get("db_object_id");
    const auto of = [](const std::string& id, const std::string& path) {
        return read("DocVersion", {{"db_object_id", id}}, path);
    };
    EXPECT_EQ(read("DocVersion", keys, "db_object_id"), second) << "the keys mean the newest";
    EXPECT_EQ(of(first, "doc_revision@doc_title"), "OLD");
    EXPECT_EQ(of(first, holderPath), "");
    EXPECT_EQ(of(first, "added_at_check_in"), "");
    EXPECT_EQ(of(second, "doc_revision@doc_title"), "NEW");
    EXPECT_EQ(of(second, "added_at_check_in"), "yes");
    EXPECT_EQ(of(second, "site_attribute"), "kept");
    EXPECT_EQ(of(second, "ckout_reason"), "drawing");
    EXPECT_EQ(of(second, "doc_revision@primary_config@db_object_id"), second);
    EXPECT_EQ(of(second, "update_count"), "1");

    document.set("doc_revision@doc_title", "NEWER"); // the handle stands for the second version now
    ASSERT_EQ(document.save(), 0) << message();
    EXPECT_EQ(of(second, "doc_revision@doc_title"), "NEWER");
    ASSERT_EQ(document.open(), 0) << message();
    EXPECT_EQ(document.get("db_object_id"), second);
}

TEST_F(VaultTest, CheckInDefaultsKeepTheIdentifierOfTheCallingSystem)
{
    createDocument("D", "1", {{"ckin_userdata3", "OID-1"}});
    const Pairs keys = {{numberPath, "D"}, {revisionPath, "1"}};
    Object document("DocVersion", keys);
    ASSERT_EQ(document.open(), 0) << message();
    document.set("doc_primary_fmt@user_data3", "OID-2");
    ASSERT_EQ(document.save(), 0) << message();
    ASSERT_EQ(QV_Set_Doc_CheckOut_Defaults(document.handle()), 0) << message();
    ASSERT_EQ(checkOut(document), 0) << message();
    ASSERT_EQ(QV_Set_Doc_CheckIn_Defaults(document.handle()), 0) << message();
    ASSERT_EQ(checkIn(document), 0) << message();
    EXPECT_EQ(read("DocVersion", keys, "doc_primary_fmt@user_data3"), "OID-2");
    EXPECT_EQ(read("DocVersion", keys, "ckin_userdata3"), "OID-2");

    ASSERT_EQ(checkOut(document), 0) << message();
    document.set("ckin_userdata3", "OID-3");
    ASSERT_EQ(QV_Set_Doc_CheckIn_Defaults(document.handle()), 0) << message();
    ASSERT_EQ(checkIn(document), 0) << message();
    EXPECT_EQ(read("DocVersion", keys, "doc_primary_fmt@user_data3"), "OID-3");
}

TEST_F(VaultTest, ACanceledCheckOutMakesNoVersion)
{
    createDocument("D", "A");
    Object document("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    document.subscribe(versionPath);
    ASSERT_EQ(document.open(), 0) << message();
    ASSERT_EQ(checkOut(document), 0) << message();
    document.set("reason", "given up");
    ASSERT_EQ(cancel(document), 0) << message();
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", ""}}));
    EXPECT_EQ(read("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}}, "reason"), "given up");
    ASSERT_EQ(checkOut(document), 0) << message();
}

TEST_F(VaultTest, VersionsAreListedInTheOrderOfTheirRevisions)
{
    createDocument("D", "A");
    createDocument("OTHER", "C");
    makeVersion("D", "A");
    Object base("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    ASSERT_EQ(base.open(), 0) << message();
    ASSERT_EQ(revise(base), 0) << message();
    makeVersion("D", "B");
    EXPECT_EQ(versionsOf("D"), (Table{{"A", "1"}, {"A", "2"}, {"B", "1"}, {"B", "2"}}));
    for (int version = 3; version <= 11; ++version) {
        makeVersion("D", "A");
    }
    EXPECT_EQ(versionsOf("D").at(10), (std::vector<std::string>{"A", "11"})) << "versions are numbers";
}

TEST_F(VaultTest, ANewRevisionCopiesItsBaseAndIsTheLast)
{
    createDocument("D", "A", {{"doc_revision@doc_title", "TITLE"}, {"copy_count", "0"}, {"site", "kept"}});
    makeVersion("D", "A");
    Object base("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    for (const auto& path : {revisionPath, versionPath, std::string("doc_revision@doc_title")}) {
        base.subscribe(path);
    }
    ASSERT_EQ(base.open(), 0) << message();
    base.set("set_on_base", "stored");
    std::string title;
    ASSERT_EQ(revise(base, "doc_revision@doc_title", title), 0) << message();
    EXPECT_EQ(title, "TITLE");
    EXPECT_EQ(base.get(revisionPath) + base.get(versionPath), "A2") << "the handle keeps the base";
    const Pairs keys = {{numberPath, "D"}, {revisionPath, "B"}};
    EXPECT_EQ(read("DocVersion", keys, versionPath), "1");
    EXPECT_EQ(read("DocVersion", keys, "site"), "kept");
    EXPECT_EQ(read("DocVersion", keys, "set_on_base"), "stored");
    EXPECT_EQ(read("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}}, "set_on_base"), "stored");
    base.set("doc_revision@chg_ctrl", "0");
    EXPECT_EQ(base.save(), 0) << message();

    for (const std::string number : {"7", "09", "Y", "AZ", "A8", "-"}) { // made by hand
        createDocument("D", number);
    }
    std::set<std::string> revisions;
    for (int round = 0; round < 30; ++round) {
        std::string made;
        ASSERT_EQ(revise(base, revisionPath, made), 0) << message();
        EXPECT_EQ(versionsOf("D").back().front(), made);
        EXPECT_TRUE(revisions.insert(made).second) << made;
    }
    EXPECT_EQ(*revisions.begin(), "BA") << "follows the newest of all, not the base";
}

TEST_F(VaultTest, CallsThatCannotBeMadeAreRefused)
{
    createDocument("D", "A");
    Object notOpened("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    Object other("EngineeringChange", {{"id", "EC1"}});
    ASSERT_EQ(other.save(), 0) << message();
    const std::vector<int (*)(QV_ObjectHandle)> calls = {
        QV_Set_Doc_CheckIn_Defaults,
        QV_Set_Doc_CheckOut_Defaults,
        QV_CheckOut_Doc,
        QV_Cancel_CheckOut_Doc,
        [](QV_ObjectHandle document) { return QV_CheckIn_Doc(document, 0); },
        [](QV_ObjectHandle document) {
            QV_ObjectHandle revision = nullptr;
            const int code = QV_Make_New_Revision(document, &revision);
            EXPECT_EQ(revision, nullptr);
            return code;
        },
        [](QV_ObjectHandle document) { return QV_Create_and_CheckIn_Doc(document, 0); }};
    for (std::size_t call = 0; call < calls.size(); ++call) {
        EXPECT_EQ(calls[call](nullptr), -111) << call;
        EXPECT_EQ(calls[call](other.handle()), -110) << call;
        EXPECT_NE(message().find("EngineeringChange"), std::string::npos) << message();
        if (call + 1 < calls.size()) { // to create one, nothing is opened
            EXPECT_EQ(calls[call](notOpened.handle()), -116) << call;
        }
    }
    ASSERT_EQ(notOpened.open(), 0) << message();
    EXPECT_EQ(QV_CheckIn_Doc(notOpened.handle(), 1), -110);
    EXPECT_EQ(QV_Make_New_Revision(notOpened.handle(), nullptr), -110);
    ASSERT_EQ(checkOut(notOpened), 0) << message();
    notOpened.set(revisionPath, "B");
    EXPECT_EQ(checkIn(notOpened), -232) << "a version stays in its revision";
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", "jdoe"}}));
    ASSERT_EQ(QV_Logoff(), 0);
    for (const auto call : calls) {
        EXPECT_EQ(call(nullptr), -121);
    }
}

TEST_F(VaultTest, ADiscardTakesVaultWorkBack)
{
    createDocument("D", "A");
    Object document("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    ASSERT_EQ(document.open(), 0) << message();
    const Table before = everyVersion();
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(checkOut(document), 0) << message();
    EXPECT_EQ(checkOut(document), vaultState) << "takes back only itself";
    ASSERT_EQ(checkIn(document), 0) << message();
    ASSERT_EQ(revise(document), 0) << message();
    createDocument("", "1");
    EXPECT_EQ(everyVersion().size(), 4U);
    ASSERT_EQ(QV_Discard_Multisave(), 0) << message();
    EXPECT_EQ(everyVersion(), before);
    EXPECT_EQ(checkOut(document), -240) << "the version behind the handle is gone";

    ASSERT_EQ(QV_Start_Multisave(), 0);
    makeVersion("D", "A");
    ASSERT_EQ(QV_Commit_Multisave(), 0) << message();
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", ""}, {"D", "A", "2", ""}}));
}

/** Two users, each in a process, with one store. */
class VaultOfTwoTest : public StoreFileTest {
protected:
    void SetUp() override
    {
        StoreFileTest::SetUp();
        qvlocal::addUser(location, "bob", "secret");
        bob.emplace("bob");
    }
    /** Expects the refusal of a call, with the name of the holder. */
    static void expectRefused(int code, const std::string& holder)
    {
        EXPECT_EQ(code, vaultState);
        EXPECT_NE(message().find("'" + holder + "'"), std::string::npos) << message();
    }

    std::optional<OtherSession> bob;
};

TEST_F(VaultOfTwoTest, RefusalsNameTheHolder)
{
    createDocument("D", "A");
    Object document("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    ASSERT_EQ(document.open(), 0) << message();
    const std::string keys = " DocVersion " + numberPath + "=D " + revisionPath + "=A";
    expectRefused(checkIn(document), "jdoe"); // who does not hold it
    expectRefused(cancel(document), "jdoe");
    ASSERT_EQ(bob->run("check-out" + keys), 0);
    document.set("doc_revision@doc_title", "JDOE'S");
    expectRefused(checkOut(document), "bob");
    expectRefused(checkIn(document), "bob");
    expectRefused(cancel(document), "bob");
    expectRefused(revise(document), "bob");
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", "bob"}}));
    EXPECT_EQ(read("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}}, "doc_revision@doc_title"), "");
    EXPECT_EQ(bob->run("check-in" + keys), 0);
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", ""}, {"D", "A", "2", ""}}));
    ASSERT_EQ(checkOut(document), 0) << message();
    EXPECT_EQ(bob->run("check-out" + keys), 0) << "the newest version is another one";
}

TEST_F(VaultOfTwoTest, WhatAnotherUserSavedIsNotOverwritten)
{
    createDocument("D", "A");
    Object document("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}});
    ASSERT_EQ(document.open(), 0) << message();
    ASSERT_EQ(checkOut(document), 0) << message();
    const std::string id = read("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}}, "db_object_id");
    ASSERT_EQ(bob->run("change DocVersion db_object_id=" + id + " doc_revision@doc_title=BOB"), 0);
    document.set("doc_revision@doc_title", "JDOE");
    EXPECT_EQ(checkIn(document), -240);
    EXPECT_EQ(cancel(document), -240);
    EXPECT_EQ(everyVersion(), (Table{{"D", "A", "1", "jdoe"}}));
    ASSERT_EQ(document.open(), 0) << message();
    ASSERT_EQ(checkIn(document), 0) << message();
    EXPECT_EQ(versionsOf("D").size(), 2U);
    EXPECT_EQ(read("DocVersion", {{numberPath, "D"}, {revisionPath, "A"}}, "doc_revision@doc_title"), "BOB");
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
        createDocument("", "1");
    }
    others.join();
    EXPECT_EQ(failures, 0);
    std::set<std::string> numbers;
    for (const auto& row : everyVersion()) {
        numbers.insert(row.at(0));
    }
    EXPECT_EQ(numbers.size(), 2U * count);
}

/** What the vault should do, in the plainest form. */
class Model {
public:
    struct Document {
        char first;    // the number of its first revision, one character
        int revisions; // how many there are
    };
    struct Version {
        std::size_t document;
        int revision; // counted from 0
        int number;
        std::string holder;
    };

    int apply(const std::string& call, std::size_t index, const std::string& user)
    {
        if (call == "create-and-check-in") {
            const char first = "18AY"[documents.size() % 4];
            documents.push_back({first, 1});
            versions.push_back({documents.size() - 1, 0, 1, ""});
            return 0;
        }
        Version& version = versions[index];
        if (call == "check-in" || call == "cancel" ? version.holder != user : !version.holder.empty()) {
            return vaultState;
        }
        if (call == "check-out") {
            version.holder = user;
        } else if (call == "revise") {
            versions.push_back({version.document, documents[version.document].revisions++, 1, ""});
        } else {
            version.holder.clear();
            if (call == "check-in") {
                versions.push_back({version.document, version.revision, next(version), ""});
            }
        }
        return 0;
    }

    /** As `everyVersion`, but for the documents' numbers. */
    Table table() const
    {
        Table rows;
        for (const Version& version : versions) {
            rows.push_back({std::to_string(version.document), name(version), std::to_string(version.number),
                            version.holder});
        }
        return rows;
    }

    std::vector<Document> documents;
    std::vector<Version> versions;

private:
    int next(const Version& of) const
    {
        int newest = 0;
        for (const Version& version : versions) {
            if (version.document == of.document && version.revision == of.revision) {
                newest = std::max(newest, version.number);
            }
        }
        return newest + 1;
    }
    std::string name(const Version& version) const
    {
        const char first = documents[version.document].first;
        if (first <= '9') {
            return std::to_string(first - '0' + version.revision);
        }
        std::string letters;
        for (int rest = first - 'A' + version.revision; rest >= 0; rest = rest / 26 - 1) {
            letters.insert(letters.begin(), static_cast<char>('A' + rest % 26));
        }
        return letters;
    }
};

class VaultModelTest : public VaultOfTwoTest {
protected:
    int act(bool byBob, const std::string& call, const std::string& path, const std::string& value)
    {
        if (byBob) {
            return bob->run(call + " DocVersion " + path + '=' + value);
        }
        Object document("DocVersion", {{path, value}});
        if (call == "create-and-check-in") {
            return createAndCheckIn(document);
        }
        EXPECT_EQ(document.open(), 0) << message();
        if (call == "check-out") {
            return checkOut(document);
        }
        if (call == "check-in") {
            return checkIn(document);
        }
        return call == "cancel" ? cancel(document) : revise(document);
    }

    /** The versions with the place of their document in the order of creation instead of its number. */
    static Table versionsByDocument()
    {
        Table table = everyVersion();
        std::map<std::string, std::size_t> places;
        for (auto& row : table) {
            row[0] = std::to_string(places.emplace(row[0], places.size()).first->second);
        }
        return table;
    }
    static std::string idOf(std::size_t index)
    {
        return query("DocVersion", {{"Select", "db_object_id"}, {"OrderBy", "db_object_id"}}).at(index).at(0);
    }
};

TEST_F(VaultModelTest, RandomCallsOfTwoUsersAnswerAsTheModelDoes)
{
    const std::vector<std::string> calls = {"check-out", "check-in", "check-in", "cancel",
                                            "check-out", "revise",   "revise",   "create-and-check-in"};
    std::mt19937 random(20090); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same calls at each run
    Model model;
    std::map<int, int> answers;
    for (int step = 0; step < 500; ++step) {
        const bool byBob = random() % 2 == 0;
        const bool dropped = !byBob && random() % 8 == 0; // in a multi-save that is discarded
        const bool isNew = model.documents.size() < 4;
        const std::string& call =
            isNew ? calls.back() : calls[random() % (calls.size() - (step % 50 > 0 ? 1 : 0))];
        const std::size_t count = model.versions.size(); // mostly one of the newest
        const std::size_t index = count == 0 ? 0 : count - 1 - random() % std::min<std::size_t>(count, 12);
        const Model before = model;
        const bool creates = call == calls.back();
        const int expected = model.apply(call, index, byBob ? "bob" : "jdoe");
        if (dropped) {
            ASSERT_EQ(QV_Start_Multisave(), 0) << message();
        }
        const std::string path = creates ? revisionPath : "db_object_id";
        const std::string value = creates ? std::string(1, model.documents.back().first) : idOf(index);
        ASSERT_EQ(act(byBob, call, path, value), expected)
            << "step " << step << ": " << call << " by " << (byBob ? "bob" : "jdoe") << ' ' << message();
        ASSERT_EQ(versionsByDocument(), model.table()) << "step " << step << ": " << call;
        if (dropped) {
            ASSERT_EQ(QV_Discard_Multisave(), 0) << message();
            model = before;
            ASSERT_EQ(versionsByDocument(), model.table()) << "step " << step << ": discarded " << call;
        }
        ++answers[expected];
    }
    EXPECT_GT(answers[0], 100);
    EXPECT_GT(answers[vaultState], 100);
}

} // namespace
} // namespace servertest
