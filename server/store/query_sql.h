// SPDX-License-Identifier: Apache-2.0
//
// Queries as SQL. Names in the SQL come from the class table alone; every value and every other path is a parameter.
#ifndef VELRZM_SERVER_STORE_QUERY_SQL_H
#define VELRZM_SERVER_STORE_QUERY_SQL_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "server/store/query.h"

namespace qvserver {

/** The functions that the SQL needs beside the standard ones. */
constexpr const char* likeFunction = "qv_like";     // (value, pattern): isLike
constexpr const char* numberFunction = "qv_number"; // (value): the number in its text, else NULL

using SqlValue = std::variant<std::int64_t, double, std::string>;

/** A statement and the values of its parameters ?1, ?2 ... */
struct Sql {
    std::string text;
    std::vector<SqlValue> parameters;
};

/** `name` as an identifier of SQL. */
std::string sqlName(std::string_view name);

/** The SELECT statement of a query. */
Sql sqlOf(const Query& query);

} // namespace qvserver

#endif
