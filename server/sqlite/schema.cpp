// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/schema.h"

#include <set>
#include <string>

#include "server/base/class_table.h"
#include "server/base/errors.h"

namespace qvserver {

namespace {

constexpr std::int64_t applicationId = 0x51564C53; // "QVLS", in the header of the file
constexpr std::int64_t schemaVersion = 1;

const char* const commonTables =
    "CREATE TABLE sequence (last INTEGER NOT NULL);"
    "INSERT INTO sequence VALUES (0);"
    "CREATE TABLE user (name TEXT PRIMARY KEY, password TEXT NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE attribute (object INTEGER NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL,"
    " PRIMARY KEY (object, name)) WITHOUT ROWID;";

std::string tableOf(const Class& described)
{
    const std::string table = sqlName(described.name);
    std::string sql = "CREATE TABLE " + table +
                      " (db_object_id INTEGER PRIMARY KEY, update_count INTEGER NOT NULL DEFAULT 1";
    for (const Attribute& attribute : described.attributes) {
        sql += ", " + sqlName(attribute.path) + " TEXT NOT NULL DEFAULT '' COLLATE RTRIM";
    }
    auto keys = described.keys;
    if (described.vault) {
        keys.push_back(described.vault->version);
    }
    const std::string index = sqlName(std::string(described.name) + " key");
    return sql + ");CREATE UNIQUE INDEX " + index + " ON " + table + " (" + joined(keys, ", ", sqlName) +
           ");";
}

/** Indexes for the columns that joins and checks of references search, unless the key begins with them. */
std::string furtherIndexes()
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
    std::string sql;
    for (const auto& [name, path] : columns) {
        if (classNamed(name).keys.front() != path) {
            sql += "CREATE INDEX " + sqlName(std::string(name) + ' ' + std::string(path)) + " ON " +
                   sqlName(name) + " (" + sqlName(path) + ");";
        }
    }
    return sql;
}

} // namespace

void createSchema(SqliteDatabase& database)
{
    std::string sql = commonTables;
    for (const Class& described : allClasses()) {
        sql += tableOf(described);
    }
    sql += furtherIndexes();
    sql += "PRAGMA application_id = " + std::to_string(applicationId) +
           "; PRAGMA user_version = " + std::to_string(schemaVersion);
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
}

} // namespace qvserver
