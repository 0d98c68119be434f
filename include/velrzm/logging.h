// SPDX-License-Identifier: Apache-2.0
//
// Trace and logs. The trace goes to standard output as far as the trace level allows. The access log receives a line
// for each checked call of the server, and the inputs and outcomes of operations; the error log receives a block for
// each failed call; the last-error file holds the messages of the last failure alone.
//
// The first QvConnect of the process reads these environment variables; a log that cannot be opened stays closed
// without a message:
//     QVL_TRACE_LEVEL   trace level, a number; 0 when it is unset or not a number
//     QVL_LOG_FILE      path of the access log; no access log when unset
//     QVL_LOG_ERROR     path of the error log; "./QVL_LOG_ERROR" when unset
//     QVL_LAST_ERROR    path of the last-error file; "./QVL_LAST_ERROR" when unset (read at each use)
#ifndef VELRZM_LOGGING_H
#define VELRZM_LOGGING_H

#include <cstdio>

#include <velrzm/export.h>

/**
 * The trace level: 0 errors, warnings and connection messages, 1 the logon result, 2 the steps of operations, 3 the
 * access log's lines about defaults, 5 each call of the server and each default, 9 each value read; each level includes
 * those below. Below 0 nothing is written but the lines of the first QvConnect about the logs.
 */
VELRZM_API extern int QVL_Traces_Level;
/** 1 until the trace level has been read from the environment. */
VELRZM_API extern int QVL_Traces_FirstTime;
/** The access log; null when it is not open. */
VELRZM_API extern std::FILE* QVL_Log_File;
/** 1 until the first QvConnect has opened the access log, or found that there is none or that it cannot be opened. */
VELRZM_API extern int QVL_Log_FirstTime;
/** The error log; null when it is not open. */
VELRZM_API extern std::FILE* QVL_ErrLog_File;
/** 1 until the first QvConnect has opened the error log, or found that it cannot be opened. */
VELRZM_API extern int QVL_ErrLog_FirstTime;

/**
 * Writes one line to the access log: the texts, joined by single blanks. The line is written at once,
 * whatever the trace level. While the access log is not open, the call does nothing.
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
