// SPDX-License-Identifier: Apache-2.0
//
// What the result codes of SQLite mean for the server.
#ifndef VELRZM_SERVER_SQLITE_FAILURES_H
#define VELRZM_SERVER_SQLITE_FAILURES_H

#include <string_view>

#include <sqlite3.h>

namespace qvserver {

/** How long a writer waits for another one. */
constexpr int busyTimeoutSeconds = 10;

/** Fails with the kind of failure that `code` stands for. The message shows the `place` that it happened at, if any,
 * and the `reason` that SQLite or the system gives. */
[[noreturn]] void failWithCode(int code, std::string_view place, std::string_view reason);

/** Fails with `code`, the result of a call with that connection. */
[[noreturn]] void failWithCode(int code, sqlite3* database);

} // namespace qvserver

#endif
