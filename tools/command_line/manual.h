// SPDX-License-Identifier: Apache-2.0
//
// The manual pages, section 1: one of the program and one of each command right below it.
#ifndef VELRZM_TOOLS_COMMAND_LINE_MANUAL_H
#define VELRZM_TOOLS_COMMAND_LINE_MANUAL_H

#include <string>

namespace CLI {
class App;
}

namespace tools {

/** Writes all pages into a directory. Throws Refused when that fails. */
void writeManual(const CLI::App& program, const std::string& directory);

} // namespace tools

#endif
