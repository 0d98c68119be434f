// SPDX-License-Identifier: Apache-2.0
//
// A question to the store: which objects, which of their values, in which order.
#ifndef VELRZM_SERVER_STORE_QUERY_H
#define VELRZM_SERVER_STORE_QUERY_H

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "server/base/class_table.h"
#include "server/store/clause.h"

namespace qvserver {

struct Query {
    const Class* objectClass = nullptr;
    std::vector<std::string> select = {};
    std::vector<Condition> where = {};
    std::vector<std::string> orderBy = {};
    /** Sorts, behind `orderBy`, the newest object first instead of the oldest. */
    bool newestFirst = false;
    /** Keeps an object that has no related one; its values behind the relation are then "". */
    bool relatedMayMiss = false;
    /** The largest number of rows; 0 means all. */
    int limit = 0;
    /** Whether the rows come in an order; one that nobody needs costs time. */
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
