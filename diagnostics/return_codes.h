// SPDX-License-Identifier: Apache-2.0
//
// The check after each call of the server, and the report of a failure.
#ifndef VELRZM_DIAGNOSTICS_RETURN_CODES_H
#define VELRZM_DIAGNOSTICS_RETURN_CODES_H

#include <string>

#include <velrzm/logging.h>
#include <velrzm/result.h>

#include "diagnostics/trace.h"

namespace velrzm {

/** A server call as reports show it: the function and up to two details, usually an attribute and its value. */
struct ServerCall {
    const char* function;
    const char* detail1 = "";
    const char* detail2 = "";
};

/** What an operation does after a failed call. */
enum class OnFailure : int { GoOn = 0, Stop = 1 };

/** Writes `QV_RC` to the trace and the access log, and reports a failure with the messages of the server. */
void reportReturnCode(const char* prefix, const ServerCall& call);

/** Checks `QV_RC`. Returns whether the operation must stop. */
inline bool mustStop(const char* prefix, const ServerCall& call, OnFailure onFailure)
{
    if (QV_RC < 0 || QVL_Log_File != nullptr || traced(CallLevel)) {
        reportReturnCode(prefix, call);
    }
    return QV_RC < 0 && onFailure == OnFailure::Stop;
}

/** Sets `QV_RC` to -1 and reports `reason` as if the call had failed; the call itself is not made. */
void reportRefusal(const char* prefix, const ServerCall& call, const std::string& reason);

} // namespace velrzm

#endif
