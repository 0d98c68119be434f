// SPDX-License-Identifier: Apache-2.0
//
// A connection in WAL mode holds a shared lock on the file as long as it is open, so that an exclusive lock finds every
// user. SQLite's own function takes it: a lock on another descriptor of the file would end those that connections of this
// process hold.
#include "server/sqlite/exclusive_use.h"

#include "server/base/errors.h"
#include "server/sqlite/failures.h"

namespace qvserver {

ExclusiveUse::ExclusiveUse(const std::string& path)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    connection_.reset(opened);
    check(code, path);
    check(sqlite3_file_control(opened, "main", SQLITE_FCNTL_FILE_POINTER, &file_), path);
    check(file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED), path);
    if (const int locked = file_->pMethods->xLock(file_, SQLITE_LOCK_EXCLUSIVE); locked != SQLITE_OK) {
        file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
        check(locked, path);
    }
}

ExclusiveUse::~ExclusiveUse()
{
    file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
}

void ExclusiveUse::check(int code, const std::string& path) const
{
    if ((code & 0xFF) == SQLITE_BUSY) {
        fail(Failure::StoreBusy, path, " is in use; end its use first");
    }
    if (code != SQLITE_OK) {
        failWithCode(code, path, sqlite3_errmsg(connection_.get()));
    }
}

} // namespace qvserver
