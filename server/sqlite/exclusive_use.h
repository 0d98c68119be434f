// SPDX-License-Identifier: Apache-2.0
//
// Files that are to be replaced, and must not be in use as databases then.
#ifndef VELRZM_SERVER_SQLITE_EXCLUSIVE_USE_H
#define VELRZM_SERVER_SQLITE_EXCLUSIVE_USE_H

#include <memory>
#include <string>

#include <sqlite3.h>

namespace qvserver {

/** Keeps every connection, of this process too, from using a file as a database. What the file holds is not looked at. */
class ExclusiveUse {
public:
    /** Fails when a connection uses the file. */
    explicit ExclusiveUse(const std::string& path);
    ~ExclusiveUse();
    ExclusiveUse(const ExclusiveUse&) = delete;
    ExclusiveUse& operator=(const ExclusiveUse&) = delete;

private:
    void check(int code, const std::string& path) const;

    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> connection_; // for its file only
    sqlite3_file* file_ = nullptr;
};

} // namespace qvserver

#endif
