// SPDX-License-Identifier: Apache-2.0
//
// A connection to an SQLite database: its settings, the functions that our SQL calls, the statements kept
// prepared.
#ifndef VELRZM_SERVER_SQLITE_DATABASE_H
#define VELRZM_SERVER_SQLITE_DATABASE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <sqlite3.h>

#include "server/sqlite/statement.h"

namespace qvserver {

class SqliteDatabase {
public:
    /** Opens the database at `path`, ":memory:" included; the file must exist. */
    explicit SqliteDatabase(const std::string& path);

    /** A statement in use: reset and ready for others at the end. */
    class Use {
    public:
        Use(SqliteDatabase& database, SqliteStatement& statement) noexcept
            : database_(database), statement_(statement)
        {
            ++database_.inUse_;
        }
        ~Use()
        {
            statement_.reset();
            --database_.inUse_;
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        SqliteStatement* operator->() noexcept { return &statement_; }
        SqliteStatement& operator*() noexcept { return statement_; }

    private:
        SqliteDatabase& database_;
        SqliteStatement& statement_;
    };

    /** The statement of that text, prepared at its first use, with `parameters` bound; they must outlive the
     * use. */
    template <typename... Parameters>
    Use use(std::string_view text, const Parameters&... parameters)
    {
        SqliteStatement& statement = prepared(text);
        int index = 0;
        (statement.bind(++index, parameters), ...);
        static_cast<void>(index);
        return Use(*this, statement);
    }
    Use use(const Sql& sql);

    /** Runs statements that take and give no values. */
    void run(const char* text);
    /** As `run`, without a word when it fails. */
    void tryRun(const char* text) noexcept { sqlite3_exec(handle(), text, nullptr, nullptr, nullptr); }
    std::int64_t numberOf(std::string_view pragma) const;

    /** Whether a transaction is open; SQLite ends one by itself after some failures. */
    bool inTransaction() const noexcept { return sqlite3_get_autocommit(handle()) == 0; }
    bool isReadOnly() const noexcept { return sqlite3_db_readonly(handle(), nullptr) == 1; }

    /** For the calls of SQLite that take a connection. */
    sqlite3* handle() const noexcept { return handle_.get(); }

private:
    SqliteStatement& prepared(std::string_view text);
    void addFunctions();

    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
    std::unordered_map<std::string, SqliteStatement> statements_; // by text; closed before the connection
    std::size_t inUse_ = 0;
};

} // namespace qvserver

#endif
