// SPDX-License-Identifier: Apache-2.0
//
// The environment of the process. The program has one thread, so that nothing else changes it meanwhile.
#ifndef VELRZM_TOOLS_PROCESS_ENVIRONMENT_H
#define VELRZM_TOOLS_PROCESS_ENVIRONMENT_H

#include <optional>
#include <string>
#include <vector>

namespace tools {

/** The variable that holds the password of the user who logs on. */
constexpr const char* passwordVariable = "VELRZM_PASSWORD";

/** The value of a variable; nothing when it is not set. */
std::optional<std::string> environmentVariable(const char* name);
/** The value of a variable; "" when it is not set. */
std::string environmentText(const char* name);

void setEnvironmentVariable(const char* name, const std::string& value);
void unsetEnvironmentVariable(const char* name);

/** What child processes get: the environment without the password, and with `further`, "NAME=VALUE" each. */
std::vector<std::string> childEnvironment(const std::vector<std::string>& further = {});

} // namespace tools

#endif
