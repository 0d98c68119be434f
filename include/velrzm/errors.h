// SPDX-License-Identifier: Apache-2.0
//
// The check after each call of the server, and the error reports.
#ifndef VELRZM_ERRORS_H
#define VELRZM_ERRORS_H

#include <velrzm/export.h>

/**
 * Checks the code in `QV_RC` of the server call just made: writes it to the trace (level 5) and to the access log, and
 * reports a failure with the server's messages on standard output (trace level 0), in the access log and, while the
 * error log is open, there and in the last-error file. Of messages in a row with the same code only the first is
 * reported. Call it before any other function of the server: the messages are those of the last call that failed. The
 * line in the access log is cut to 511 characters.
 *
 * @param prefix the operation's name, which begins its trace and log lines.
 * @param functionName the server function, for example "QV_Save_Object".
 * @param detail1 what the call concerned, as a rule the class or the attribute; may be "".
 * @param detail2 the value; may be "", and is left out of the access log when `detail1` is empty.
 * @param stopFlag what to return after a failure, as a rule 1 to stop the operation or 0 to go on.
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
/** The same; `hint`, advice for the user, is accepted but written nowhere. */
VELRZM_API void DisplayError(const char* function, const char* text, const char* hint);

#endif
