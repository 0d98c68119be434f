// SPDX-License-Identifier: Apache-2.0
//
// The check after each call of the server, and the error reports.
#ifndef VELRZM_ERRORS_H
#define VELRZM_ERRORS_H

#include <velrzm/export.h>

/**
 * Checks the code in `QV_RC` of the server call just made, writes it to the trace (level 5) and to the access
 * log, and reports a failure with the server's messages on standard output, in the access log, in the error
 * log and in the last-error file.
 *
 * @param prefix the operation's name, the head of its trace and log lines.
 * @param functionName the server function, for example "QV_Save_Object".
 * @param detail1 what the call concerned, as a rule the class or the attribute; may be "".
 * @param detail2 the value; may be "", and is left out of the access log when `detail1` is empty.
 * @param stopFlag what to answer on failure: 1 stop the operation, 0 go on.
 * @return 0 when `QV_RC` is zero or positive, else `stopFlag`. `QV_RC` is not changed.
 */
VELRZM_API int Process_QV_RC(char* prefix, char* functionName, char* detail1, char* detail2, int stopFlag);

/**
 * Writes an error block to the error log and `text` to the last-error file; does nothing while the error log
 * is closed.
 *
 * @param function the name in the head of the block, "Function ... generated the following error:"; cut to 86 characters.
 * @param text what went wrong.
 */
VELRZM_API void DisplayError(const char* function, const char* text);
/** The same; `hint`, an advice for the user, is taken for the sake of callers and written nowhere. */
VELRZM_API void DisplayError(const char* function, const char* text, const char* hint);

#endif
