// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/lookup.h"

#include <string>

#include "server/base/text.h"
#include "server/store/query_sql.h"

namespace qvserver {

namespace {

/** With fewer values the pass through the index is not worth its statement. */
constexpr std::size_t manyValues = 1000;
/** So many steps of the pass take about as long as the query for one value. */
constexpr std::size_t stepsForAQuery = 2;

/**
 * The places of the values for which the query is to be made. Most items of a large structure have no lines; so a pass
 * through the index, beside the values, finds out which values are stored at all, as long as that takes less time than the
 * queries that it saves: an explosion of 100,000 rows of different items takes 37 % less time, one of scattered numbers 22 %.
 */
std::vector<std::size_t> placesToQuery(SqliteDatabase& database, const Class& objectClass,
                                       std::string_view path, const std::vector<std::string_view>& values)
{
    std::vector<std::size_t> places;
    std::size_t next = 0;
    if (values.size() >= manyValues) {
        const std::string column = sqlName(path);
        auto stored = database.use("SELECT DISTINCT " + column + " FROM " + sqlName(objectClass.name) +
                                       " WHERE " + column + " BETWEEN ?1 AND ?2 ORDER BY " + column,
                                   values.front(), values.back());
        for (std::size_t steps = manyValues; steps > 0; --steps) {
            if (!stored->step()) {
                return places;
            }
            const std::string_view value = withoutTrailingBlanks(stored->text(0));
            for (; values[next] < value; ++next) {
                steps += stepsForAQuery;
            }
            if (values[next] == value) {
                places.push_back(next++);
            }
        }
    }
    for (; next < values.size(); ++next) {
        places.push_back(next);
    }
    return places;
}

} // namespace

std::vector<Match> lookUp(SqliteDatabase& database, Query query, std::string_view path,
                          const std::vector<std::string_view>& values, Rows& rows)
{
    const int idColumn = static_cast<int>(query.select.size());
    query.ordered = false;
    query.select.emplace_back(objectIdPath);
    query.where.push_back(equals(path, "")); // the last parameter
    const Sql sql = sqlOf(query);
    const int valueParameter = static_cast<int>(sql.parameters.size());
    auto statement = database.use(sql);
    std::vector<Match> matches;
    for (const std::size_t place : placesToQuery(database, *query.objectClass, path, values)) {
        statement->rewind();
        statement->bind(valueParameter, values[place]);
        while (statement->step()) {
            statement->appendTo(rows);
            matches.push_back({place, statement->integer(idColumn)});
        }
    }
    return matches;
}

} // namespace qvserver
