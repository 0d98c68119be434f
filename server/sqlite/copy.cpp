// SPDX-License-Identifier: Apache-2.0
//
// SQLite's online backup, page by page. VACUUM INTO would write a smaller file, but does not report its progress and
// cannot be stopped, which people want with large stores.
#include "server/sqlite/copy.h"

#include <memory>

#include "server/base/errors.h"

namespace qvserver {

namespace {

constexpr int pagesAtOnce = 256;

/** A read transaction, which holds the copy to one state: without it, every commit of others would restart it. */
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

} // namespace

void copyDatabase(SqliteDatabase& database, const std::string& path, const CopyProgress& progress)
{
    const auto pageSize = static_cast<std::uintmax_t>(database.numberOf("page_size"));
    const Snapshot snapshot(database);
    database.checkIntegrity();
    SqliteDatabase copy(path);
    copy.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF"); // a failed copy is discarded
    Backup backup(sqlite3_backup_init(copy.handle(), "main", database.handle(), "main"));
    if (backup == nullptr) {
        failWithCode(sqlite3_errcode(copy.handle()), "", sqlite3_errmsg(copy.handle()));
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
    backup.reset(); // sets the error of the connection
    const int error = sqlite3_system_errno(copy.handle());
    failWithCode(code, "", error != 0 ? systemReason(error) : sqlite3_errmsg(copy.handle()));
}

} // namespace qvserver
