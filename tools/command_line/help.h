// SPDX-License-Identifier: Apache-2.0
//
// The help of commands.
#ifndef VELRZM_TOOLS_COMMAND_LINE_HELP_H
#define VELRZM_TOOLS_COMMAND_LINE_HELP_H

#include <string>

namespace CLI {
class App;
}

namespace tools {

/** What --help prints for a command, or for the program itself. */
std::string helpText(const CLI::App& command);

/** A line for each command of the program, with its summary. */
std::string allCommands(const CLI::App& program);

} // namespace tools

#endif
