// SPDX-License-Identifier: Apache-2.0
//
// A query for many values of an attribute, by one statement that stays prepared. What many look-ups cost is where
// they meet the index: so they go through it in its order, and when they are for a good part of what is stored, a
// reading of the attribute shows which values need not be looked for at all.
#ifndef VELRZM_SERVER_SQLITE_LOOKUP_H
#define VELRZM_SERVER_SQLITE_LOOKUP_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/base/arena.h"
#include "server/sqlite/database.h"
#include "server/store/query.h"
#include "server/store/query_sql.h"
#include "server/store/store.h"

namespace qvserver {

class SqliteLookup : public Lookup {
public:
    /** The first 16 characters of a text, as numbers. */
    using Head = std::array<std::uint64_t, 2>;

    /** Looks for values of the attribute `path`. */
    SqliteLookup(SqliteDatabase& database, Query query, std::string_view path);

    void expect(std::size_t values) override;
    bool mayFind(std::uint32_t hash) const noexcept override
    {
        return stored_.empty() || stored_[hash % stored_.size()];
    }
    void ask(std::string_view value, std::uint32_t key) override
    {
        questions_.push_back({headOf(value), value, key});
    }
    void find(Rows& rows, const Answer& answer) override;

private:
    /** A value to look for. Its head alone puts it in order, so that sorting reads no texts. */
    struct Question {
        Head head;
        std::string_view value;
        std::uint32_t key;
    };

    static Head headOf(std::string_view text) noexcept;
    void readStored(std::size_t mostObjects);
    void findOne(std::string_view value, Rows& rows);

    SqliteDatabase& database_;
    std::string path_;
    std::string table_;
    Sql sql_;
    SqliteDatabase::StatementInUse statement_;
    std::optional<std::size_t> mostObjects_; // that can be stored, once it is known
    std::vector<bool> stored_; // set for the values that are stored; empty when they were not read
    std::pmr::vector<Question> questions_{&largePages()};
    std::vector<std::int64_t> ids_; // of the value that was looked for last
};

} // namespace qvserver

#endif
