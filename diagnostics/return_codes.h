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

/**
 * A call of the server as reports name it: the function and what it concerned, as a rule an attribute and a
 * value.
 */
struct ServerCall {
    const char* function;
    const char* detail1 = "";
    const char* detail2 = "";
};

/** What a failed call means to the operation that made it. */
enum class OnFailure : int { GoOn = 0, Stop = 1 };

/** Writes `QV_RC` to the trace and the access log and reports a failure with the messages of the server. */
void reportReturnCode(const char* prefix, const ServerCall& call);

/** Checks `QV_RC`; the result tells whether the operation must stop. */
inline bool mustStop(const char* prefix, const ServerCall& call, OnFailure onFailure)
{
    if (QV_RC < 0 || QVL_Log_File != nullptr || traced(CallLevel)) {
        reportReturnCode(prefix, call);
    }
    return QV_RC < 0 && onFailure == OnFailure::Stop;
}

/**
 * Sets `QV_RC` to -1 and reports `reason` as the failure of a call that was not made because it cannot be
 * right.
 */
void reportRefusal(const char* prefix, const ServerCall& call, const std::string& reason);

} // namespace velrzm

#endif
