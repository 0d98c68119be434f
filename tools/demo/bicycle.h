// SPDX-License-Identifier: Apache-2.0
//
// The machine of the demonstration: a city bicycle.
#ifndef VELRZM_TOOLS_DEMO_BICYCLE_H
#define VELRZM_TOOLS_DEMO_BICYCLE_H

#include <vector>

namespace tools::demo {

/** A line of the parts list: an item and how often it occurs in the last item of the level above. */
struct PartsListLine {
    int level;
    const char* number;
    const char* name;
    int quantity;
};

/** The parts list, indented. The parts of an item are listed where it comes first. */
const std::vector<PartsListLine>& bicycle();

} // namespace tools::demo

#endif
