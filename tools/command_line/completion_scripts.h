// SPDX-License-Identifier: Apache-2.0
//
// The scripts of command_line/shells/, which the build puts into the program.
#ifndef VELRZM_TOOLS_COMMAND_LINE_COMPLETION_SCRIPTS_H
#define VELRZM_TOOLS_COMMAND_LINE_COMPLETION_SCRIPTS_H

#include <string_view>

namespace tools {

extern const std::string_view bashCompletion;
extern const std::string_view zshCompletion;

} // namespace tools

#endif
