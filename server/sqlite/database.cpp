// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/database.h"

#include <filesystem>
#include <variant>

#include "server/store/like.h"
#include "server/store/store.h"

namespace qvserver {

namespace {

constexpr std::size_t maxStatements = 500;

std::string_view textOf(sqlite3_value* value)
{
    const void* const bytes = sqlite3_value_text(value);
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return bytes == nullptr ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

void likeOfSqlite(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    sqlite3_result_int(context, isLike(textOf(arguments[0]), textOf(arguments[1])) ? 1 : 0);
}

void numberOfSqlite(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    struct Result {
        sqlite3_context* context;
        void operator()(std::int64_t value) const { sqlite3_result_int64(context, value); }
        void operator()(double value) const { sqlite3_result_double(context, value); }
    };
    if (const auto number = parseNumber(textOf(arguments[0]))) {
        std::visit(Result{context}, *number);
    }
}

/** A path as it stands in a URI, where some signs have a meaning. */
std::string inUri(const std::string& path)
{
    std::string text;
    for (const char sign : path) {
        switch (sign) {
        case '%':
            text += "%25";
            break;
        case '?':
            text += "%3f";
            break;
        case '#':
            text += "%23";
            break;
        default:
            text += sign;
        }
    }
    return text;
}

} // namespace

SqliteDatabase::SqliteDatabase(const std::string& path)
{
    open(path, SQLITE_OPEN_READWRITE);
    if (!canBeRead() && !std::filesystem::exists(path + "-wal")) {
        // Nobody uses the store, and in its folder the files that go with its use cannot be made.
        open("file:" + inUri(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    }
    sqlite3_busy_timeout(handle(), busyTimeoutSeconds * 1000);
    run("PRAGMA synchronous = FULL; PRAGMA foreign_keys = OFF; PRAGMA trusted_schema = OFF");
    addFunctions();
}

void SqliteDatabase::open(const std::string& name, int mode)
{
    constexpr int flags = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_FULLMUTEX;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &opened, mode | flags, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) {
        failWithCode(code, name, sqlite3_errmsg(opened));
    }
}

bool SqliteDatabase::canBeRead() const noexcept
{
    const int code = sqlite3_exec(handle(), "SELECT 1 FROM sqlite_schema", nullptr, nullptr, nullptr) & 0xFF;
    return code != SQLITE_CANTOPEN && code != SQLITE_READONLY;
}

void SqliteDatabase::addFunctions()
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    const auto add = [this](const char* name, int arguments,
                            void (*function)(sqlite3_context*, int, sqlite3_value**)) {
        const int code = sqlite3_create_function_v2(handle(), name, arguments, flags, nullptr, function,
                                                    nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) {
            failWithCode(code, handle());
        }
    };
    add(likeFunction, 2, likeOfSqlite);
    add(numberFunction, 1, numberOfSqlite);
}

SqliteDatabase::StatementInUse SqliteDatabase::use(const Sql& sql)
{
    SqliteStatement& statement = prepared(sql.text);
    int index = 0;
    for (const SqlValue& parameter : sql.parameters) {
        ++index;
        std::visit([&](const auto& value) { statement.bind(index, value); }, parameter);
    }
    return StatementInUse(*this, statement);
}

SqliteStatement& SqliteDatabase::prepared(std::string_view text)
{
    std::string key(text);
    if (const auto known = statements_.find(key); known != statements_.end()) {
        known->second.reset();
        return known->second;
    }
    if (statements_.size() >= maxStatements && inUse_ == 0) {
        statements_.clear(); // most have changing texts; those in steady use are soon prepared again
    }
    SqliteStatement statement(handle(), key);
    return statements_.emplace(std::move(key), std::move(statement)).first->second;
}

void SqliteDatabase::run(const char* text)
{
    const int code = sqlite3_exec(handle(), text, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        failWithCode(code, handle());
    }
}

bool SqliteDatabase::isReplaced() const noexcept
{
    int moved = 0;
    sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

void SqliteDatabase::checkIntegrity() const
{
    SqliteStatement check(handle(), "PRAGMA integrity_check(1)");
    if (!check.step() || check.text(0) != "ok") {
        failDamaged(check.text(0));
    }
}

std::int64_t SqliteDatabase::numberOf(std::string_view pragma) const
{
    SqliteStatement statement(handle(), "PRAGMA " + std::string(pragma));
    return statement.step() ? statement.integer(0) : 0;
}

} // namespace qvserver
