// SPDX-License-Identifier: Apache-2.0
//
// A query for many values of an attribute, by one statement that stays prepared. What many look-ups cost is where
// they meet the index: so they go through it in its order, and when they are for a good part of what is stored, a
// reading of the attribute shows which values need not be looked for at all.
#ifndef VELRZM_PLATFORM_SERVER_SQLITE_LOOKUP_H
#define VELRZM_PLATFORM_SERVER_SQLITE_LOOKUP_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/server/query.h"
#include "platform/server/query_sql.h"
#include "platform/server/sqlite_database.h"
#include "platform/server/store.h"

namespace qvserver {

class SqliteLookup : public Lookup {
public:
    /** The first 16 characters of a text, as numbers. */
    using Head = std::array<std::uint64_t, 2>;

    /** Looks for values of the attribute `path`. */
    SqliteLookup(SqliteDatabase& database, Query query, std::string_view path);

    void find(const std::vector<std::string_view>& values, Rows& rows, const Answer& answer) override;

private:
    /** A value to look for. Its head alone puts it in order, so that sorting reads no texts. */
    struct Question {
        Head head;
        std::size_t place;
    };

    void prepareFor(std::size_t questions);
    void readStored(std::size_t mostObjects);
    void findOne(std::string_view value, Rows& rows);
    bool mayBeStored(std::string_view value) const noexcept
    {
        return stored_.empty() || stored_[bitOf(value)];
    }
    std::size_t bitOf(std::string_view value) const noexcept;

    SqliteDatabase& database_;
    std::string path_;
    std::string table_;
    Sql sql_;
    SqliteDatabase::Use statement_;
    std::vector<bool> stored_;        // set for the values that are stored; empty when they were not read
    std::vector<Question> questions_; // of a call, in the order in which they are asked
    std::vector<std::int64_t> ids_;   // of the value that was looked for last
};

} // namespace qvserver

#endif
