// SPDX-License-Identifier: Apache-2.0
//
// Queries as SQL. Names in the SQL come from the class table only; every value and every other path is a
// parameter.
#ifndef VELRZM_SERVER_STORE_QUERY_SQL_H
#define VELRZM_SERVER_STORE_QUERY_SQL_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "server/store/query.h"

namespace qvserver {

/** The functions that the SQL uses beside the standard ones, each of two or one arguments. */
constexpr const char* likeFunction = "qv_like";     // (value, pattern): isLike
constexpr const char* numberFunction = "qv_number"; // (value): the number that it writes, else NULL

using SqlValue = std::variant<std::int64_t, double, std::string>;

/** A statement and the values of its parameters ?1, ?2 ... */
struct Sql {
    std::string text;
    std::vector<SqlValue> parameters;
};

/** `name` as an identifier of SQL. */
std::string sqlName(std::string_view name);

Sql sqlOf(const Query& query);

} // namespace qvserver

#endif
