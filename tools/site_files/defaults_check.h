// SPDX-License-Identifier: Apache-2.0
//
// What is wrong with defaults files.
#ifndef VELRZM_TOOLS_SITE_FILES_DEFAULTS_CHECK_H
#define VELRZM_TOOLS_SITE_FILES_DEFAULTS_CHECK_H

#include <string>
#include <vector>

#include "config/defaults_file.h"

namespace tools {

/** A problem, with its place and what to do about it. */
struct DefaultsProblem {
    std::string file;
    int line;
    std::string text;
};

/** The problems of the entries of the shared file and the local one, line by line. */
std::vector<DefaultsProblem> checkDefaults(const std::vector<velrzm::DefaultsEntry>& shared,
                                           const std::vector<velrzm::DefaultsEntry>& local);

} // namespace tools

#endif
