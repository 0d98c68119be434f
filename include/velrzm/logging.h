// SPDX-License-Identifier: Apache-2.0
//
// Trace and logs. The trace goes to standard output as far as the trace level allows; the access log receives
// a line for each call of the server and the inputs and outcomes of operations; the error log a block for
// each failed call.
//
// The first QvConnect of the process reads these environment variables:
//     QVL_TRACE_LEVEL   trace level, a number; 0 when unset
//     QVL_LOG_FILE      path of the access log; no access log when unset
//     QVL_LOG_ERROR     path of the error log; "./QVL_LOG_ERROR" when unset
//     QVL_LAST_ERROR    path of the last-error file; "./QVL_LAST_ERROR" when unset (read at each use)
#ifndef VELRZM_LOGGING_H
#define VELRZM_LOGGING_H

#include <cstdio>

#include <velrzm/export.h>

/**
 * The trace level: below 0 nothing, 0 errors and connection messages, 1 the logon result, 2 the steps of
 * operations, 5 each call of the server, 9 each value read.
 */
VELRZM_API extern int QVL_Traces_Level;
/** 1 until the trace level has been read from the environment. */
VELRZM_API extern int QVL_Traces_FirstTime;
/** The access log; null when it is not open. */
VELRZM_API extern std::FILE* QVL_Log_File;
/** 1 until the access log has been opened, or found to be unwanted. */
VELRZM_API extern int QVL_Log_FirstTime;
/** The error log; null when it is not open. */
VELRZM_API extern std::FILE* QVL_ErrLog_File;
/** 1 until the error log has been opened. */
VELRZM_API extern int QVL_ErrLog_FirstTime;

/**
 * Writes one line to the access log: the texts, joined by single blanks. The line is written at once,
 * whatever the trace level; without an open access log the call does nothing.
 *
 *     QVL_Log(program, "exported", fileName);   // "MyProgram exported parts.csv"
 */
VELRZM_API void QVL_Log(char* s1);
VELRZM_API void QVL_Log(char* s1, char* s2);
VELRZM_API void QVL_Log(char* s1, char* s2, char* s3);
VELRZM_API void QVL_Log(char* s1, char* s2, char* s3, char* s4);
VELRZM_API void QVL_Log(char* s1, char* s2, char* s3, char* s4, char* s5);
VELRZM_API void QVL_Log(char* s1, char* s2, char* s3, char* s4, char* s5, char* s6);

#endif
