// SPDX-License-Identifier: Apache-2.0
//
// The trace: lines on standard output, filtered by the trace level.
#ifndef VELRZM_DIAGNOSTICS_TRACE_H
#define VELRZM_DIAGNOSTICS_TRACE_H

#include <initializer_list>

#include <velrzm/logging.h>

#include "diagnostics/text.h"

namespace velrzm {

/** The lowest trace level at which a line is written. */
enum TraceLevel : int {
    ConnectionLevel = 0, // errors, warnings and connection messages
    LogonLevel = 1,      // the result of the logon
    OperationLevel = 2,  // the steps of operations
    DefaultsLevel = 3,   // the access-log lines of the defaults reader
    CallLevel = 5,       // each call of the server, each default
    ValueLevel = 9       // each value read
};

inline bool traced(int level) noexcept
{
    return QVL_Traces_Level >= level;
}

/** Writes the pieces as one line to standard output, whatever the level. */
void writeToConsole(std::initializer_list<Piece> pieces);

/** Writes the pieces and a closing "." as one trace line; nothing is composed below `level`. */
template <class... Pieces>
void trace(int level, const Pieces&... pieces)
{
    if (traced(level)) {
        writeToConsole({Piece(pieces)..., Piece(".")});
    }
}

} // namespace velrzm

#endif
