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
    } else if (const char* const text = sqlite3_sql(statement)) {
        executed.emplace_back(text);
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

    static std::ptrdiff_t times(const std::string& statement)
    {
        return std::count(executed.begin(), executed.end(), statement);
    }

    /** What the server's own connection, with its functions, answers. */
    static std::string ask(const std::string& statement)
    {
        std::string answer;
        const auto add = [](void* text, int columns, char** values, char** /*names*/) {
            *static_cast<std::string*>(text) += std::string(values[columns - 1]) + '\n';
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(serverDatabase, statement.c_str(), add, &answer, nullptr), SQLITE_OK)
            << sqlite3_errmsg(serverDatabase);
        return answer;
    }

    /** Stores items up to the number `end`, straight into the table. */
    static void storeItems(int end)
    {
        ask("INSERT OR IGNORE INTO ItemEngineeringData (\"logical_key@item_number\") "
            "WITH RECURSIVE number(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM number WHERE n < " +
            std::to_string(end - 1) + ") SELECT printf('P%06d', n) FROM number");
    }

    /** How much work the database has with `use`. */
    static int stepsOf(const std::function<void()>& use)
    {
        use(); // which prepares the statements
        steps = 0;
        use();
        return steps;
    }

    /** The plans of the queries that `use` makes. */
    static std::string plansOf(const std::function<void()>& use)
    {
        executed.clear();
        use();
        std::string plans;
        const std::vector<std::string> made = executed; // what follows is executed, too
        for (const std::string& statement : made) {
            plans += statement.rfind("SELECT", 0) == 0 ? ask("EXPLAIN QUERY PLAN " + statement) : "";
        }
        return plans;
    }
};

TEST_F(DatabaseTest, KeysPrefixesAndRelationsUseIndexes)
{
    const std::string plans = plansOf([] {
        EXPECT_EQ(Object("ItemEngineeringData", item("A", "EC1")).open(), -210);
        query("ItemEngineeringData", {{"Where", "&LIKE(logical_key@item_number, 'A1%')"}});
        query("EngineeringChange", {{"Where", "&LIKE(id, 'EC%')"}});
        query("AffectedItem", {{"Where", "&=(ec@db_object_id,'5')"}});
        query("ItemEngineeringData", {{"Where", "&=(ai_obj@ec@id,'EC1')"}});
    });
    for (const char* const part :
         {"SEARCH t0 USING", "(logical_key@item_number>? AND logical_key@item_number<?)",
          "(id>? AND id<?)"}) {
        EXPECT_NE(plans.find(part), std::string::npos) << plans;
    }
    EXPECT_EQ(plans.find("SCAN"), std::string::npos) << plans;
}

TEST_F(DatabaseTest, AnItemCostsTheSameInALargeStore)
{
    const std::string path = "logical_key@item_number";
    const auto open = [&] { EXPECT_EQ(read("ItemEngineeringData", item("P000007"), path), "P000007"); };
    const auto listPrefix = [&] {
        EXPECT_EQ(query("ItemEngineeringData", {{"Where", "&LIKE(" + path + ",'P00000%')"}}).size(), 10U);
    };
    storeItems(10);
    const int toOpen = stepsOf(open);
    const int toList = stepsOf(listPrefix);
    EXPECT_GT(toOpen, 0);
    EXPECT_GT(toList, toOpen);
    storeItems(100000);
    EXPECT_EQ(stepsOf(open), toOpen);
    EXPECT_NEAR(stepsOf(listPrefix), toList, 10); // it looks at the first record behind the prefix, too

    QV_ListHandle list = nullptr;
    QV_ObjectHandle last = nullptr;
    const char* number = nullptr;
    ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0) << message();
    ASSERT_EQ(QV_Set_Clause(list, "Select", path.c_str()), 0) << message();
    ASSERT_EQ(QV_Set_Clause(list, "OrderBy", path.c_str()), 0) << message();
    ASSERT_EQ(QV_Open_List(list), 0) << message();
    executed.clear();
    ASSERT_EQ(QV_Read_List(list, 100000 - 1, &last), 0) << message();
    ASSERT_EQ(QV_Get_Object_Attr(last, path.c_str(), &number), 0) << message();
    EXPECT_STREQ(number, "P099999");
    EXPECT_TRUE(executed.empty()) << "the database is not asked again: " << executed.front();
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
