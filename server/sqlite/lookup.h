// SPDX-License-Identifier: Apache-2.0
//
// A query for many values of an attribute.
#ifndef VELRZM_SERVER_SQLITE_LOOKUP_H
#define VELRZM_SERVER_SQLITE_LOOKUP_H

#include <string_view>
#include <vector>

#include "server/sqlite/database.h"
#include "server/store/query.h"
#include "server/store/store.h"

namespace qvserver {

/** Store::selectForEach for an SQLite database. */
std::vector<Match> lookUp(SqliteDatabase& database, Query query, std::string_view path,
                          const std::vector<std::string_view>& values, Rows& rows);

} // namespace qvserver

#endif
