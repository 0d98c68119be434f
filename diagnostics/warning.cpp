// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/warning.h"

#include "diagnostics/access_log.h"
#include "diagnostics/trace.h"

namespace velrzm {

void warn(const char* prefix, const std::string& text)
{
    trace(ConnectionLevel, prefix, "- ****** WARNING ****** ", text);
    accessLog(prefix, "****** WARNING ******", text);
}

} // namespace velrzm
