// SPDX-License-Identifier: Apache-2.0
//
// Access logs, read back.
#ifndef VELRZM_TOOLS_SITE_FILES_ACCESS_LOG_READER_H
#define VELRZM_TOOLS_SITE_FILES_ACCESS_LOG_READER_H

#include <string>
#include <vector>

namespace tools {

/** A call of the server, as an access log records it. */
struct LoggedCall {
    int line; // of the log
    std::string operation;
    std::string function;
    std::string detail; // "id=EC-100", "EngineeringChange" or nothing
    int code;
    std::vector<std::string> messages; // of a failed call
};

/** The calls of an access log, in their order. Throws Refused when the file cannot be read or is not an
 * access log. */
std::vector<LoggedCall> readAccessLog(const std::string& path);

} // namespace tools

#endif
