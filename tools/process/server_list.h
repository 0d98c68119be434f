// SPDX-License-Identifier: Apache-2.0
//
// Lists of stored objects. Where no operation of the library finds what a command needs, it asks the server itself.
#ifndef VELRZM_TOOLS_PROCESS_SERVER_LIST_H
#define VELRZM_TOOLS_PROCESS_SERVER_LIST_H

#include <string>
#include <vector>

namespace tools {

/** Which objects, and which of their attributes. */
struct ServerList {
    const char* className;
    std::vector<std::string> select;
    std::vector<std::string> where;   // clauses, all of which must hold
    std::vector<std::string> orderBy; // attributes
};

/** A row of values for each object, in the order of `select`. Throws Refused when the server says no. */
std::vector<std::vector<std::string>> rowsOf(const ServerList& list);

/** The clause that holds for objects whose attribute `path` has one of the values; there must be one. Many values at once cost
 * less than a list for each: `listsOf` cuts them into portions. */
std::string isOneOf(const std::string& path, const std::vector<std::string>& values);

/** Runs `list` with one more clause for each portion of `values` of the attribute `path`, and puts the rows together. */
std::vector<std::vector<std::string>> rowsOfAny(ServerList list, const std::string& path,
                                                const std::vector<std::string>& values);

} // namespace tools

#endif
