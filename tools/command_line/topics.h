// SPDX-License-Identifier: Apache-2.0
//
// What help and manual explain beside the commands.
#ifndef VELRZM_TOOLS_COMMAND_LINE_TOPICS_H
#define VELRZM_TOOLS_COMMAND_LINE_TOPICS_H

#include <vector>

namespace tools {

/** Something with a name, and what it means. */
struct Topic {
    const char* name;
    const char* text;
};

const std::vector<Topic>& exitStatuses();
const std::vector<Topic>& environmentVariables();
const std::vector<Topic>& files();

} // namespace tools

#endif
