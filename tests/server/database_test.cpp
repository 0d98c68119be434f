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
int steps = 0; // of the database's machine, in all statements that ended

int noteStatement(unsigned event, void* /*context*/, void* pointer, void* /*text*/)
{
    auto* const statement = static_cast<sqlite3_stmt*>(pointer);
    if (event == SQLITE_TRACE_PROFILE) {
        steps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 1);
    } else if (const char* const sql = sqlite3_sql(statement)) {
        executed.emplace_back(sql);
    }
    return 0;
}

int watchConnection(sqlite3* database, char** /*error*/, const sqlite3_api_routines* /*routines*/)
{
    serverDatabase = database;
    return sqlite3_trace_v2(database, SQLITE_TRACE_STMT | SQLITE_TRACE_PROFILE, noteStatement, nullptr);
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

    /** Stores items up to the number `end`, straight into the table. */
    static void storeItems(int end)
    {
        const std::string sql =
            "INSERT OR IGNORE INTO ItemEngineeringData (\"logical_key@item_number\") "
            "WITH RECURSIVE number(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM number WHERE n < " +
            std::to_string(end - 1) + ") SELECT printf('P%06d', n) FROM number";
        ASSERT_EQ(sqlite3_exec(serverDatabase, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(serverDatabase);
    }

    /** How much work the database has with `use`. */
    template <typename Use>
    static int stepsOf(Use use)
    {
        use(); // which prepares the statements
        steps = 0;
        use();
        return steps;
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

TEST_F(DatabaseTest, AnItemCostsTheSameInALargeStore)
{
    const auto open = [] {
        EXPECT_EQ(
            read("ItemEngineeringData", {{"logical_key@item_number", "P000007"}}, "logical_key@item_number"),
            "P000007");
    };
    const auto listPrefix = [] {
        EXPECT_EQ(
            query("ItemEngineeringData", {{"Where", "&LIKE(logical_key@item_number,'P00000%')"}}).size(),
            10U);
    };
    storeItems(10);
    const int toOpen = stepsOf(open);
    const int toList = stepsOf(listPrefix);
    EXPECT_GT(toOpen, 0);
    EXPECT_GT(toList, toOpen);
    storeItems(100000);
    EXPECT_EQ(stepsOf(open), toOpen);
    EXPECT_NEAR(stepsOf(listPrefix), toList, 10); // it looks at the first record behind the prefix, too
}

TEST_F(DatabaseTest, TheLastRecordOfALongListIsAsNearAsTheFirst)
{
    constexpr int size = 100000;
    storeItems(size);
    QV_ListHandle list = nullptr;
    ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0) << message();
    ASSERT_EQ(QV_Set_Clause(list, "Select", "logical_key@item_number"), 0) << message();
    ASSERT_EQ(QV_Set_Clause(list, "OrderBy", "logical_key@item_number"), 0) << message();
    ASSERT_EQ(QV_Open_List(list), 0) << message();
    executed.clear();
    for (const auto& [record, number] : {std::pair(size - 1, "P099999"), std::pair(0, "P000000")}) {
        QV_ObjectHandle object = nullptr;
        const char* value = nullptr;
        ASSERT_EQ(QV_Read_List(list, record, &object), 0) << message();
        ASSERT_EQ(QV_Get_Object_Attr(object, "logical_key@item_number", &value), 0) << message();
        EXPECT_STREQ(value, number);
        EXPECT_EQ(QV_Destroy_Object(&object), 0) << message();
    }
    EXPECT_TRUE(executed.empty()) << "the database is not asked again: " << executed.front();
    EXPECT_EQ(QV_Destroy_List(&list), 0) << message();
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
