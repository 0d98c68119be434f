// SPDX-License-Identifier: Apache-2.0
//
// Prepared SQLite statements.
#ifndef VELRZM_SERVER_SQLITE_STATEMENT_H
#define VELRZM_SERVER_SQLITE_STATEMENT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include <sqlite3.h>

#include "server/sqlite/failures.h"
#include "server/store/query_sql.h"
#include "server/store/rows.h"

namespace qvserver {

/** A prepared statement, finalized at its end. */
class SqliteStatement {
public:
    SqliteStatement(sqlite3* database, const std::string& text)
    {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v3(database, text.c_str(), static_cast<int>(text.size()) + 1,
                                            SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        statement_.reset(statement);
        check(code == SQLITE_OK, database, code);
    }

    /** Binds parameter `index`, counted from 1. A text must stay valid until the statement is reset. */
    void bind(int index, std::int64_t value)
    {
        checkBind(sqlite3_bind_int64(statement_.get(), index, value));
    }
    void bind(int index, double value) { checkBind(sqlite3_bind_double(statement_.get(), index, value)); }
    void bind(int index, std::string_view value)
    {
        const char* const text = value.data() == nullptr ? "" : value.data();
        checkBind(
            sqlite3_bind_text64(statement_.get(), index, text, value.size(), SQLITE_STATIC, SQLITE_UTF8));
    }

    /** Steps to the next row; false when there is none. */
    bool step()
    {
        const int code = sqlite3_step(statement_.get());
        check(code == SQLITE_ROW || code == SQLITE_DONE, sqlite3_db_handle(statement_.get()), code);
        return code == SQLITE_ROW;
    }
    /** Runs a statement without rows; false when a unique index refuses it. */
    bool stepUnique()
    {
        const int code = sqlite3_step(statement_.get());
        const bool refused = code == SQLITE_CONSTRAINT_UNIQUE;
        check(code == SQLITE_DONE || refused, sqlite3_db_handle(statement_.get()), code);
        return !refused;
    }

    /** Runs a statement without parameters and rows. */
    void run()
    {
        const int code = tryRun();
        check(code == SQLITE_DONE, sqlite3_db_handle(statement_.get()), code);
    }
    /** Like `run`; the result code. */
    int tryRun() noexcept
    {
        const int code = sqlite3_step(statement_.get());
        sqlite3_reset(statement_.get());
        return code;
    }

    std::int64_t integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    /** The text of a column of the current row, "" for NULL; valid until the next step. */
    std::string_view text(int column) const
    {
        const void* const bytes = sqlite3_column_text(statement_.get(), column);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
        return bytes == nullptr ? std::string_view()
                                : std::string_view(static_cast<const char*>(bytes), size);
    }

    /** Appends the texts of the first columns of the current row, as many as `rows` has. */
    void appendTo(Rows& rows) const
    {
        rows.beginRow();
        for (std::size_t column = 0; column < rows.width(); ++column) {
            rows.append(text(static_cast<int>(column)));
        }
    }

    /** Makes the statement ready to run again with the same values. */
    void rewind() noexcept { sqlite3_reset(statement_.get()); }
    void reset() noexcept
    {
        sqlite3_reset(statement_.get());
        sqlite3_clear_bindings(statement_.get());
    }

private:
    void checkBind(int code) { check(code == SQLITE_OK, sqlite3_db_handle(statement_.get()), code); }
    static void check(bool fine, sqlite3* database, int code)
    {
        if (!fine) {
            failWithCode(code, database);
        }
    }

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

} // namespace qvserver

#endif
