// SPDX-License-Identifier: Apache-2.0
//
// A search for component lines. No operation of the library does it, so it asks the server itself.
#ifndef VELRZM_TOOLS_STRUCTURE_COMPONENT_QUERY_H
#define VELRZM_TOOLS_STRUCTURE_COMPONENT_QUERY_H

#include <string>
#include <vector>

namespace tools {

struct ComponentLine {
    std::string parent;
    std::string sequence;
};

/** The lines on which `component` stands, under a change or, when it is empty, under any, sorted by parent
 * and sequence number. Throws Refused when the server says no. */
std::vector<ComponentLine> linesThatUse(const std::string& component, const std::string& change);

} // namespace tools

#endif
