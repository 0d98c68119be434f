// SPDX-License-Identifier: Apache-2.0
//
// Where the library's logs go.
#ifndef VELRZM_TOOLS_PROCESS_LOG_PLACES_H
#define VELRZM_TOOLS_PROCESS_LOG_PLACES_H

#include <filesystem>
#include <vector>

namespace tools {

/** Makes the user's state directory the place of the error log and the last-error file, unless the environment
 * names others: in the working directory, the library's own default, they would replace those of the program
 * that is being looked into. Returns the directories that were made for them, each before those in it. */
std::vector<std::filesystem::path> putLogsIntoStateDirectory();

} // namespace tools

#endif
