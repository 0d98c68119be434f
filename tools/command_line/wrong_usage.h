// SPDX-License-Identifier: Apache-2.0
//
// Complaints about a command line: which word is wrong, what was probably meant, and where it is explained.
#ifndef VELRZM_TOOLS_COMMAND_LINE_WRONG_USAGE_H
#define VELRZM_TOOLS_COMMAND_LINE_WRONG_USAGE_H

#include <optional>
#include <string>

#include "tools/process/failures.h"

namespace CLI {
class App;
class ParseError;
} // namespace CLI

namespace tools {

/** A complaint about the way in which `command` was used. */
WrongUsage complaint(const CLI::App& command, const std::string& text);

/** There is no command of this name below `command`. */
WrongUsage unknownCommand(const CLI::App& command, const std::string& name);

/** The complaint about the first word that the parser did not know, if there is one. */
std::optional<WrongUsage> unknownWord(const CLI::App& program);

/** What is wrong with a command line that the parser did not take. `last` is its last word. */
WrongUsage wrongUsage(const CLI::App& program, const CLI::ParseError& error, const std::string& last);

} // namespace tools

#endif
