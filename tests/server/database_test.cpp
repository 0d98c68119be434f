// SPDX-License-Identifier: Apache-2.0
//
// What the server makes of the database: which indexes its statements use and how often it commits.
#include <algorithm>

#include <sqlite3.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

sqlite3* serverDatabase = nullptr; // the connection that was opened last
std::vector<std::string> executed;

int noteStatement(unsigned /*event*/, void* /*context*/, void* statement, void* /*text*/)
{
    if (const char* const sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement))) {
        executed.emplace_back(sql);
    }
    return 0;
}

int watchConnection(sqlite3* database, char** /*error*/, const sqlite3_api_routines* /*routines*/)
{
    serverDatabase = database;
    return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, noteStatement, nullptr);
}

class DatabaseTest : public StoreFileTest {
public:
    ~DatabaseTest() override { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watchConnection)); }

protected:
    DatabaseTest() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchConnection)); }

    static std::ptrdiff_t times(const std::string& sql)
    {
        return std::count(executed.begin(), executed.end(), sql);
    }

    /** The plans of the queries that `use` makes. */
    template <typename Use>
    static std::string plansOf(Use use)
    {
        executed.clear();
        use();
        std::string plans;
        for (const std::string& sql : std::vector<std::string>(executed)) {
            if (sql.rfind("SELECT", 0) == 0) {
                const auto add = [](void* text, int columns, char** values, char** /*names*/) {
                    *static_cast<std::string*>(text) += std::string(values[columns - 1]) + '\n';
                    return 0;
                };
                EXPECT_EQ(
                    sqlite3_exec(serverDatabase, ("EXPLAIN QUERY PLAN " + sql).c_str(), add, &plans, nullptr),
                    SQLITE_OK)
                    << sqlite3_errmsg(serverDatabase);
            }
        }
        return plans;
    }
};

TEST_F(DatabaseTest, KeysPrefixesAndRelationsUseIndexes)
{
    const std::string byKey = plansOf([] {
        Object item("ItemEngineeringData", {{"logical_key@item_number", "A"}, {"il_ec_number", "EC1"}});
        EXPECT_EQ(item.open(), -210);
    });
    EXPECT_NE(byKey.find("SEARCH t0 USING"), std::string::npos) << byKey;
    EXPECT_EQ(byKey.find("SCAN"), std::string::npos) << byKey;
    const std::string byPrefix = plansOf([] {
        query("ItemEngineeringData", {{"Where", "&LIKE(logical_key@item_number, 'A1%')"}});
        query("EngineeringChange", {{"Where", "&LIKE(id, 'EC%')"}});
        query("AffectedItem", {{"Where", "&=(ec@db_object_id,'5')"}});
        query("ItemEngineeringData", {{"Where", "&=(ai_obj@ec@id,'EC1')"}});
    });
    EXPECT_NE(byPrefix.find("(logical_key@item_number>? AND logical_key@item_number<?)"), std::string::npos)
        << byPrefix;
    EXPECT_NE(byPrefix.find("(id>? AND id<?)"), std::string::npos) << byPrefix;
    EXPECT_EQ(byPrefix.find("SCAN"), std::string::npos) << byPrefix;
}

TEST_F(DatabaseTest, EverySaveAndEveryMultiSaveIsOneCommit)
{
    executed.clear();
    create("EngineeringChange", {{"id", "EC1"}, {"a", "1"}, {"b", "2"}});
    create("ItemEngineeringData", {{"logical_key@item_number", "A"}, {"create_bomheader", "TRUE"}});
    EXPECT_EQ(times("BEGIN IMMEDIATE"), 2);
    EXPECT_EQ(times("COMMIT"), 2);
    executed.clear();
    ASSERT_EQ(QV_Start_Multisave(), 0);
    create("EngineeringChange", {{"id", "EC2"}});
    create("EngineeringChange", {{"id", "EC3"}});
    EXPECT_EQ(times("COMMIT"), 0);
    ASSERT_EQ(QV_Commit_Multisave(), 0);
    EXPECT_EQ(times("BEGIN IMMEDIATE"), 1);
    EXPECT_EQ(times("COMMIT"), 1);
}

} // namespace
} // namespace servertest
