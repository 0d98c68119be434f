// SPDX-License-Identifier: Apache-2.0
//
// The tables of an SQLite store: one for each class, one for attributes that sites add, users, the number
// sequence.
#ifndef VELRZM_SERVER_SQLITE_SCHEMA_H
#define VELRZM_SERVER_SQLITE_SCHEMA_H

#include "server/sqlite/database.h"

namespace qvserver {

/** Makes the tables in an empty database. */
void createSchema(SqliteDatabase& database);

std::int64_t versionOfSchema(const SqliteDatabase& database);

/** Fails unless the database is a store of this server in the version that it knows. */
void checkSchema(const SqliteDatabase& database, const std::string& path);

} // namespace qvserver

#endif
