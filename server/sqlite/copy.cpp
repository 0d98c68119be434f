// SPDX-License-Identifier: Apache-2.0
//
// The online backup of SQLite, page by page. VACUUM INTO would write a smaller file, but it says nothing
// until it is done, and a person wants to see how far the copy of a large store has come and to stop it.
#include "server/sqlite/copy.h"

#include <cstring>
#include <memory>

namespace qvserver {

namespace {

constexpr int pagesAtOnce = 256;

/** A read transaction. It keeps the copy to one state: without it, a commit of others starts it over again. */
class Snapshot {
public:
    explicit Snapshot(SqliteDatabase& database) : database_(database)
    {
        database_.run("BEGIN; SELECT last FROM sequence");
    }
    ~Snapshot() { database_.tryRun("ROLLBACK"); }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

private:
    SqliteDatabase& database_;
};

struct FinishBackup {
    void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
};
using Backup = std::unique_ptr<sqlite3_backup, FinishBackup>;

[[noreturn]] void failOfCopy(sqlite3* copy, int code, int systemError)
{
    switch (code & 0xFF) {
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    case SQLITE_FULL:
        fail(Failure::StoreFailure, "no room is left on its disk");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        fail(Failure::StoreUnusable, "the store is damaged (", sqlite3_errmsg(copy), ")");
    default:
        fail(Failure::StoreFailure, systemError != 0 ? std::strerror(systemError) : sqlite3_errmsg(copy));
    }
}

} // namespace

void copyDatabase(SqliteDatabase& database, const std::string& path, const CopyProgress& progress)
{
    const auto pageSize = static_cast<std::uintmax_t>(database.numberOf("page_size"));
    const Snapshot snapshot(database);
    SqliteDatabase copy(path);
    copy.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF"); // a copy that fails is thrown away
    Backup backup(sqlite3_backup_init(copy.handle(), "main", database.handle(), "main"));
    if (backup == nullptr) {
        failOfCopy(copy.handle(), sqlite3_errcode(copy.handle()), 0);
    }
    int code = SQLITE_OK;
    while ((code = sqlite3_backup_step(backup.get(), pagesAtOnce)) == SQLITE_OK || code == SQLITE_DONE) {
        const auto pages = static_cast<std::uintmax_t>(sqlite3_backup_pagecount(backup.get()));
        const auto remaining = static_cast<std::uintmax_t>(sqlite3_backup_remaining(backup.get()));
        progress((pages - remaining) * pageSize, pages * pageSize);
        if (code == SQLITE_DONE) {
            return;
        }
    }
    backup.reset(); // only now does the copy know what failed
    failOfCopy(copy.handle(), code, sqlite3_system_errno(copy.handle()));
}

} // namespace qvserver
