// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/schema.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "server/base/class_table.h"
#include "server/base/errors.h"

namespace qvserver {

namespace {

constexpr std::int64_t applicationId = 0x51564C53; // "QVLS", in the header of the file
constexpr std::int64_t schemaVersion = 1;

const std::array commonTables = {
    "CREATE TABLE sequence (last INTEGER NOT NULL)",
    "CREATE TABLE user (name TEXT PRIMARY KEY, password TEXT NOT NULL) WITHOUT ROWID",
    "CREATE TABLE attribute (object INTEGER NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL,"
    " PRIMARY KEY (object, name)) WITHOUT ROWID",
};

std::string tableOf(const Class& described)
{
    std::string sql = "CREATE TABLE " + sqlName(described.name) +
                      " (db_object_id INTEGER PRIMARY KEY, update_count INTEGER NOT NULL DEFAULT 1";
    for (const Attribute& attribute : described.attributes) {
        sql += ", " + sqlName(attribute.path) + " TEXT NOT NULL DEFAULT '' COLLATE RTRIM";
    }
    return sql + ')';
}

std::string keyIndexOf(const Class& described)
{
    auto keys = described.keys;
    if (described.vault) {
        keys.push_back(described.vault->version);
    }
    return "CREATE UNIQUE INDEX " + sqlName(std::string(described.name) + " key") + " ON " +
           sqlName(described.name) + " (" + joined(keys, ", ", sqlName) + ')';
}

/** Indexes for the columns that joins and checks of references search, unless the key begins with them. */
void addFurtherIndexes(std::vector<std::string>& schema)
{
    std::set<std::pair<std::string_view, std::string_view>> columns;
    for (const Class& described : allClasses()) {
        for (const Relation& relation : described.relations) {
            columns.emplace(relation.target, relation.link.to);
        }
        for (const Reference& reference : described.references) {
            columns.emplace(described.name, reference.links.front().from);
        }
    }
    for (const auto& [name, path] : columns) {
        if (classNamed(name).keys.front() != path) {
            schema.push_back("CREATE INDEX " + sqlName(std::string(name) + ' ' + std::string(path)) + " ON " +
                             sqlName(name) + " (" + sqlName(path) + ')');
        }
    }
}

/** The statements that make the tables and indexes. */
std::vector<std::string> schemaOfStores()
{
    std::vector<std::string> schema(commonTables.begin(), commonTables.end());
    for (const Class& described : allClasses()) {
        schema.push_back(tableOf(described));
        schema.push_back(keyIndexOf(described));
    }
    addFurtherIndexes(schema);
    return schema;
}

/** Fails when a table, index, trigger or view is there that this program did not make, or is missing. */
void checkTables(const SqliteDatabase& database, const std::string& path)
{
    std::vector<std::string> expected = schemaOfStores();
    std::sort(expected.begin(), expected.end());
    std::vector<std::string> found;
    SqliteStatement statements(database.handle(), "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL AND "
                                                  "name NOT LIKE 'sqlite!_%' ESCAPE '!' ORDER BY sql");
    while (statements.step()) {
        found.emplace_back(statements.text(0));
    }
    std::vector<std::string> different;
    std::set_symmetric_difference(found.begin(), found.end(), expected.begin(), expected.end(),
                                  std::back_inserter(different));
    if (!different.empty()) {
        fail(Failure::StoreUnusable, "the tables of the store ", path,
             " were changed: ", inQuotes(different.front()), " was added or is missing; restore a backup");
    }
}

} // namespace

void createSchema(SqliteDatabase& database)
{
    const std::string sql =
        joined(schemaOfStores(), ";") +
        ";INSERT INTO sequence VALUES (0);PRAGMA application_id = " + std::to_string(applicationId) +
        ";PRAGMA user_version = " + std::to_string(schemaVersion);
    database.run(sql.c_str());
}

std::int64_t versionOfSchema(const SqliteDatabase& database)
{
    return database.numberOf("user_version");
}

void checkSchema(const SqliteDatabase& database, const std::string& path)
{
    if (database.numberOf("application_id") != applicationId) {
        fail(Failure::StoreUnusable, path,
             " is a database, but not a store of this server; set QV_STORE to the right "
             "file, or remove this one and run: velrzm init");
    }
    const auto version = versionOfSchema(database);
    if (version > schemaVersion) {
        fail(Failure::StoreVersion, "the store ", path, " has version ", version,
             ", this program knows version ", schemaVersion,
             "; use the newer program that made it, or update this one");
    }
    if (version < schemaVersion) {
        fail(Failure::StoreVersion, "the store ", path, " has version ", version,
             ", this program needs version ", schemaVersion,
             "; it was not created completely; remove it and run: velrzm init");
    }
    checkTables(database, path);
}

} // namespace qvserver
