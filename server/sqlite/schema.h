// SPDX-License-Identifier: Apache-2.0
//
// The tables of an SQLite store: one for each class, one for the attributes that sites add, users, and the sequence of
// numbers.
#ifndef VELRZM_SERVER_SQLITE_SCHEMA_H
#define VELRZM_SERVER_SQLITE_SCHEMA_H

#include "server/sqlite/database.h"

namespace qvserver {

/** Creates the tables in an empty database. */
void createSchema(SqliteDatabase& database);

/** The version of the tables. */
std::int64_t versionOfSchema(const SqliteDatabase& database);

/** Fails unless the database is a store of this server in the version that this program knows. */
void checkSchema(const SqliteDatabase& database, const std::string& path);

} // namespace qvserver

#endif
