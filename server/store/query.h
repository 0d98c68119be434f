// SPDX-License-Identifier: Apache-2.0
//
// Queries to a store.
#ifndef VELRZM_SERVER_STORE_QUERY_H
#define VELRZM_SERVER_STORE_QUERY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "server/base/class_table.h"
#include "server/store/clause.h"

namespace qvserver {

/** What a query can have at most, so that the engine can run it. */
constexpr std::size_t maxColumns = 2000; // attributes that are read, the server's own included
constexpr std::size_t maxClauses = 900;  // conditions, and attributes to sort by
constexpr std::size_t maxValues = 30000; // that attributes are compared with

/** Which objects of a class, which of their values, in which order. */
struct Query {
    const Class* objectClass = nullptr;
    std::vector<std::string> select = {};
    std::vector<Condition> where = {};
    std::vector<std::string> orderBy = {};
    /** Sorts objects that are equal by `orderBy` from the newest to the oldest, not the other way round. */
    bool newestFirst = false;
    /** Keeps objects that have no related one; the values of that are "". */
    bool relatedMayMiss = false;
    /** The largest number of rows; 0 for all. */
    int limit = 0;
    /** Whether the order of the rows matters; sorting costs time. */
    bool ordered = true;
};

inline Condition equals(std::string_view path, std::string_view value)
{
    return Comparison{Operator::Equal, {std::string(path)}, std::string(value)};
}

inline Condition isObject(std::int64_t id)
{
    return Comparison{Operator::Equal, {std::string(objectIdPath)}, ParsedNumber(id)};
}

} // namespace qvserver

#endif
