// SPDX-License-Identifier: Apache-2.0
//
// Connections to SQLite databases.
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

/** A connection with its settings, the functions that our SQL calls, and the statements that are kept prepared. */
class SqliteDatabase {
public:
    /** Opens the database in the existing file at `path`, or a new one in memory for ":memory:". */
    explicit SqliteDatabase(const std::string& path);

    /** A statement while it is used; it is reset at the end. */
    class StatementInUse {
    public:
        StatementInUse(SqliteDatabase& database, SqliteStatement& statement) noexcept
            : database_(database), statement_(statement)
        {
            ++database_.inUse_;
        }
        ~StatementInUse()
        {
            statement_.reset();
            --database_.inUse_;
        }
        StatementInUse(const StatementInUse&) = delete;
        StatementInUse& operator=(const StatementInUse&) = delete;
        SqliteStatement* operator->() noexcept { return &statement_; }
        SqliteStatement& operator*() noexcept { return statement_; }

    private:
        SqliteDatabase& database_;
        SqliteStatement& statement_;
    };

    /** The statement with that text, prepared when it is first used, with `parameters` bound; they must outlive the
     * use. */
    template <typename... Parameters>
    StatementInUse use(std::string_view text, const Parameters&... parameters)
    {
        SqliteStatement& statement = prepared(text);
        int index = 0;
        (statement.bind(++index, parameters), ...);
        static_cast<void>(index);
        return StatementInUse(*this, statement);
    }
    StatementInUse use(const Sql& sql);

    /** Runs statements without parameters and results. */
    void run(const char* text);
    /** Like `run`, but ignores a failure. */
    void tryRun(const char* text) noexcept { sqlite3_exec(handle(), text, nullptr, nullptr, nullptr); }
    /** The value of a pragma that is a number. */
    std::int64_t numberOf(std::string_view pragma) const;

    /** Whether a transaction is open; SQLite itself rolls back after some failures. */
    bool inTransaction() const noexcept { return sqlite3_get_autocommit(handle()) == 0; }
    bool isReadOnly() const noexcept { return sqlite3_db_readonly(handle(), nullptr) == 1; }
    /** Whether another file is in the place of the one that was opened. */
    bool isReplaced() const noexcept;
    /** Fails when something in the database is damaged; reads all of it. */
    void checkIntegrity() const;

    /** The connection for SQLite's own functions. */
    sqlite3* handle() const noexcept { return handle_.get(); }

private:
    void open(const std::string& name, int mode);
    /** Whether the files beside it that a reader needs are there, or can be made. */
    bool canBeRead() const noexcept;
    SqliteStatement& prepared(std::string_view text);
    void addFunctions();

    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
    std::unordered_map<std::string, SqliteStatement>
        statements_; // by their texts; finalized before the connection is closed
    std::size_t inUse_ = 0;
};

} // namespace qvserver

#endif
