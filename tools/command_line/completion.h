// SPDX-License-Identifier: Apache-2.0
//
// What may stand next on a command line; the shells ask for it.
#ifndef VELRZM_TOOLS_COMMAND_LINE_COMPLETION_H
#define VELRZM_TOOLS_COMMAND_LINE_COMPLETION_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tools {

/** A line for each way to complete the last word, which may be empty: the whole word, a tab, and what it means.
 * The line ":file" stands for the names of files. */
std::string completions(const CLI::App& program, const std::vector<std::string>& words);

} // namespace tools

#endif
