// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_COMMANDS_ENVIRONMENT_CHECK_H
#define VELRZM_TOOLS_COMMANDS_ENVIRONMENT_CHECK_H

#include <string>
#include <vector>

namespace tools {

/** What an environment variable does to the programs that use the library. */
struct VariableFinding {
    std::string name;
    std::string state;
    bool isProblem; // its value does not do what it seems to
};

/** A finding for each variable that the library, the local server or the command reads. */
std::vector<VariableFinding> checkEnvironment();

} // namespace tools

#endif
