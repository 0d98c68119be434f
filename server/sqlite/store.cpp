// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/store.h"

#include <cerrno>
#include <filesystem>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "server/base/errors.h"
#include "server/sqlite/copy.h"
#include "server/sqlite/lookup.h"
#include "server/sqlite/schema.h"
#include "server/store/query_sql.h"

namespace qvserver {

namespace {

namespace fs = std::filesystem;

/** Fails with the reason why there cannot be a new store at `path`. */
[[noreturn]] void failToMake(const std::string& path, const std::error_code& error)
{
    if (error == std::errc::file_exists) {
        fail(Failure::StoreExists, "nothing was created: there is already something at ", path,
             "; if it is a store, use it as it is; if you do not need it, remove it; or choose another path, "
             "with --store or in QV_STORE");
    }
    fail(Failure::StoreFailure, "cannot create a store at ", path, ": ", error.message(),
         "; choose a path that you may write, with --store or in QV_STORE");
}

/** A new, empty file that no other process has created; removed at the end unless it is kept. */
class NewFile {
public:
    explicit NewFile(const std::string& path) : files_(SqliteStore::filesAt(path))
    {
        constexpr mode_t ownerAndGroup = 0660;
        const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, ownerAndGroup);
        if (file < 0) {
            failToMake(path, {errno, std::generic_category()});
        }
        ::close(file);
    }
    ~NewFile()
    {
        for (const std::string& file : files_) {
            ::unlink(file.c_str());
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    void keep() noexcept { files_.clear(); }

private:
    std::vector<std::string>
        files_; // with those beside it; known ahead, since memory may be short at the end
};

} // namespace

std::unique_ptr<SqliteStore> SqliteStore::make(const std::string& path, bool inMemory)
{
    return std::unique_ptr<SqliteStore>(
        new SqliteStore(path, inMemory)); // NOLINT: the constructor is private
}

std::unique_ptr<Store> SqliteStore::open(const std::string& path)
{
    std::error_code error;
    const auto status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        fail(Failure::StoreMissing, "there is no store at ", path, "; to create one, run: velrzm init");
    }
    if (status.type() != fs::file_type::regular) {
        fail(Failure::StoreUnusable, path,
             fs::is_directory(status) ? " is a folder, not a store" : " is not a file",
             "; set QV_STORE to sqlite: and the path of a store", error ? ": " + error.message() : "");
    }
    auto store = make(path);
    checkSchema(store->database_, path);
    if (store->database_.isReplaced()) {
        fail(Failure::StoreBusy, "the store ", path, " was replaced while it was opened; try again");
    }
    return store;
}

void SqliteStore::requireNothingAt(const std::string& path)
{
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored))) {
        failToMake(path, std::make_error_code(std::errc::file_exists));
    }
}

void SqliteStore::create(const std::string& path, std::string_view user, std::string_view passwordHash)
{
    std::error_code error;
    if (const auto folder = fs::path(path).parent_path();
        !folder.empty() && !fs::create_directories(folder, error) && error) {
        failToMake(path, error);
    }
    NewFile file(path);
    const auto store = make(path);
    store->database_.run("PRAGMA journal_mode = WAL");
    Transaction transaction(*store, Access::Write);
    createSchema(store->database_);
    store->putUser(user, passwordHash);
    transaction.commit();
    file.keep();
}

std::unique_ptr<Store> SqliteStore::inMemory()
{
    auto store = make(":memory:", true);
    createSchema(store->database_);
    return store;
}

std::vector<std::string> SqliteStore::filesAt(const std::string& path)
{
    return {path, path + "-wal", path + "-shm", path + "-journal"};
}

SqliteStore::TransactionStatements::TransactionStatements(sqlite3* database)
    : begin(database, "BEGIN"), beginImmediate(database, "BEGIN IMMEDIATE"), commit(database, "COMMIT"),
      rollback(database, "ROLLBACK"), savepoint(database, "SAVEPOINT part"),
      release(database, "RELEASE part"), rollbackTo(database, "ROLLBACK TO part")
{}

void SqliteStore::begin(Access access)
{
    if (depth_ > 0 && !database_.inTransaction()) {
        fail(Failure::MultiSaveLost,
             "the database rolled back the open multi-save after a failure; discard it and start again");
    }
    if (depth_ > 0) {
        statements_.savepoint.run();
    } else {
        rollBackTransaction(); // one that could not be ended after a failure
        (access == Access::Write ? statements_.beginImmediate : statements_.begin).run();
    }
    ++depth_;
}

void SqliteStore::commit()
{
    --depth_;
    if (!database_.inTransaction()) {
        fail(Failure::MultiSaveLost,
             "the database rolled back the changes after a failure; none of them was stored");
    }
    try {
        (depth_ > 0 ? statements_.release : statements_.commit).run();
    } catch (const std::exception& error) {
        const bool hasDiskFailed = (sqlite3_errcode(database_.handle()) & 0xFF) == SQLITE_IOERR;
        rollBackTransaction();
        if (depth_ == 0 &&
            hasDiskFailed) { // with the changes in the log, perhaps, where others may find them
            fail(Failure::OutcomeUnknown,
                 "the disk failed while the changes were committed, so that they may be stored, or not; see "
                 "which before you repeat them (",
                 error.what(), ')');
        }
        throw;
    }
}

void SqliteStore::rollback() noexcept
{
    --depth_;
    rollBackTransaction();
}

/** Rolls back what was begun at this depth, if the database has not done so. */
void SqliteStore::rollBackTransaction() noexcept
{
    if (!database_.inTransaction()) {
        return;
    }
    if (depth_ > 0) {
        statements_.rollbackTo.tryRun();
        statements_.release.tryRun();
    } else {
        statements_.rollback.tryRun();
    }
}

std::int64_t SqliteStore::nextNumber()
{
    constexpr std::int64_t end = std::numeric_limits<std::int64_t>::max();
    auto next = database_.use("UPDATE sequence SET last = last + 1 WHERE last < ?1 RETURNING last", end);
    if (!next->step()) {
        fail(Failure::RangeEnd, "the store has used up its numbers; the last one was ", lastNumber());
    }
    return next->integer(0);
}

std::int64_t SqliteStore::lastNumber()
{
    auto last = database_.use("SELECT last FROM sequence");
    if (!last->step()) {
        failDamaged("the last number that was used is missing");
    }
    return last->integer(0);
}

bool SqliteStore::insert(const Class& objectClass, std::int64_t id, const Values& values)
{
    Sql sql;
    std::string columns(objectIdPath);
    std::string places = "?1";
    sql.parameters.emplace_back(id);
    for (const Attribute& attribute : objectClass.attributes) {
        sql.parameters.emplace_back(std::string(valueOf(values, attribute.path)));
        columns += ", " + sqlName(attribute.path);
        places += ", ?" + std::to_string(sql.parameters.size());
    }
    sql.text = "INSERT INTO " + sqlName(objectClass.name) + " (" + columns + ") VALUES (" + places + ')';
    if (!database_.use(sql)->stepUnique()) {
        return false;
    }
    for (const auto& [path, value] : values) {
        if (objectClass.attribute(path) == nullptr && !value.empty()) {
            putAdded(id, path, value);
        }
    }
    return true;
}

bool SqliteStore::update(const Class& objectClass, std::int64_t id, const Values& values, Count count)
{
    Sql sql;
    sql.text = count == Count::Save ? "update_count = update_count + 1" : "update_count = update_count";
    sql.parameters.emplace_back(id);
    for (const auto& [path, value] : values) {
        if (objectClass.attribute(path) == nullptr) {
            putAdded(id, path, value);
        } else {
            sql.parameters.emplace_back(value);
            sql.text += ", " + sqlName(path) + " = ?" + std::to_string(sql.parameters.size());
        }
    }
    sql.text = "UPDATE " + sqlName(objectClass.name) + " SET " + sql.text + " WHERE db_object_id = ?1";
    return database_.use(sql)->stepUnique();
}

void SqliteStore::putAdded(std::int64_t id, std::string_view path, std::string_view value)
{
    database_
        .use("INSERT INTO attribute VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET value = excluded.value", id,
             path, value)
        ->step();
}

void SqliteStore::remove(const Class& objectClass, std::int64_t id)
{
    database_.use("DELETE FROM " + sqlName(objectClass.name) + " WHERE db_object_id = ?1", id)->step();
    database_.use("DELETE FROM attribute WHERE object = ?1", id)->step();
}

Values SqliteStore::values(const Class& objectClass, std::int64_t id)
{
    Query query = {&objectClass, {}, {isObject(id)}};
    for (const Attribute& attribute : objectClass.attributes) {
        query.select.emplace_back(attribute.path);
    }
    const auto rows = select(query);
    Values values;
    for (std::size_t column = 0; !rows->empty() && column < query.select.size(); ++column) {
        values.emplace(query.select[column], rows->value(0, column));
    }
    auto added = database_.use("SELECT name, value FROM attribute WHERE object = ?1", id);
    while (added->step()) {
        values.emplace(added->text(0), added->text(1));
    }
    return values;
}

std::shared_ptr<const Rows> SqliteStore::select(const Query& query)
{
    const Sql sql = sqlOf(query);
    auto rows = std::make_shared<Rows>(query.select);
    auto found = database_.use(sql);
    while (found->step()) {
        found->appendTo(*rows);
    }
    return rows;
}

std::vector<Match> SqliteStore::selectForEach(const Query& query, std::string_view path,
                                              const std::vector<std::string_view>& values, Rows& rows)
{
    return lookUp(database_, query, path, values, rows);
}

std::int64_t SqliteStore::count(const Class& objectClass)
{
    auto counted = database_.use("SELECT COUNT(*) FROM " + sqlName(objectClass.name));
    counted->step();
    return counted->integer(0);
}

std::vector<std::string> SqliteStore::addedPaths(const Class& objectClass)
{
    auto found =
        database_.use("SELECT DISTINCT added.name FROM " + sqlName(objectClass.name) +
                      " JOIN attribute AS added ON object = db_object_id WHERE value <> '' ORDER BY 1");
    std::vector<std::string> paths;
    while (found->step()) {
        paths.emplace_back(found->text(0));
    }
    return paths;
}

std::string SqliteStore::engine() const
{
    return std::string("SQLite ") + sqlite3_libversion();
}

std::int64_t SqliteStore::formatVersion() const
{
    return versionOfSchema(database_);
}

std::uintmax_t SqliteStore::size() const
{
    return static_cast<std::uintmax_t>(database_.numberOf("page_count") * database_.numberOf("page_size"));
}

void SqliteStore::copyTo(const std::string& path, const CopyProgress& progress)
{
    copyDatabase(database_, path, progress);
}

std::vector<std::string> SqliteStore::userNames()
{
    std::vector<std::string> names;
    auto found = database_.use("SELECT name FROM user ORDER BY name");
    while (found->step()) {
        names.emplace_back(found->text(0));
    }
    return names;
}

std::optional<std::string> SqliteStore::passwordHash(std::string_view user)
{
    auto found = database_.use("SELECT password FROM user WHERE name = ?1", user);
    return found->step() ? std::optional<std::string>(found->text(0)) : std::nullopt;
}

void SqliteStore::putUser(std::string_view user, std::string_view passwordHash)
{
    database_
        .use("INSERT INTO user VALUES (?1, ?2) ON CONFLICT DO UPDATE SET password = excluded.password", user,
             passwordHash)
        ->step();
}

void SqliteStore::removeUser(std::string_view user)
{
    database_.use("DELETE FROM user WHERE name = ?1", user)->step();
}

} // namespace qvserver
