// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_PROCESS_FILES_H
#define VELRZM_TOOLS_PROCESS_FILES_H

#include <fstream>
#include <string>

namespace tools {

/** A file opened for reading. Throws Refused, with the reason, when that is not possible. */
std::ifstream openForReading(const std::string& path);

} // namespace tools

#endif
