// SPDX-License-Identifier: Apache-2.0
//
// Connecting to the server and disconnecting from it.
#ifndef VELRZM_CONNECTION_H
#define VELRZM_CONNECTION_H

#include <velrzm/export.h>

/** 1 while the client environment of the server is open, else 0. */
VELRZM_API extern int EnvOpened;
/** 1 while a user is logged on, else 0. */
VELRZM_API extern int UserLoggedOn;

/**
 * Connects to the server, doing only what is still missing: opens the client environment and logs `user` on. A user
 * who is logged on already stays, whoever `user` is. The first call of the process also reads the trace level and
 * opens the logs (logging.h); every call replaces the content of the last-error file by the version of the library.
 *
 * @param user the user's name; null counts as "".
 * @param password passed to the server as it is and kept nowhere; null counts as "".
 * @return `UserLoggedOn`: 1 when a user is logged on at the end, else 0. A failure is reported, and the next call
 * tries again.
 *
 *     if (QvConnect("jdoe", password) == 0) return report("no connection, see ./QVL_LAST_ERROR");
 */
VELRZM_API int QvConnect(const char* user, const char* password);

/**
 * Disconnects: when a user is logged on, destroys the current list and report and logs off; closes the client
 * environment; closes both logs for the rest of the process. When the logoff fails, the environment stays open; the
 * logs are closed all the same. The current object is not destroyed, and an open multi-save is neither committed nor
 * discarded.
 *
 * @return always 1.
 */
VELRZM_API int QvExit();

/**
 * The version of the library, "RZM 424.1 / QV 340". The text is the library's own: neither change nor
 * release it.
 */
VELRZM_API char* RZMCodeLevel();

#endif
