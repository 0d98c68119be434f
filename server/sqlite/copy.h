// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_SERVER_SQLITE_COPY_H
#define VELRZM_SERVER_SQLITE_COPY_H

#include <string>

#include "server/sqlite/database.h"
#include "server/store/store.h"

namespace qvserver {

/** Checks what is committed at this moment and copies it to the empty file at `path`; others may go on reading and
 * writing. */
void copyDatabase(SqliteDatabase& database, const std::string& path, const CopyProgress& progress);

} // namespace qvserver

#endif
