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

/** A row of values for each object, in the order of `select`. Throws Failure when the server refuses. */
std::vector<std::vector<std::string>> rowsOf(const ServerList& list);

/** The clause for objects whose attribute `path` has one of the values; there must be one. Where a value has an
 * apostrophe, it holds for a few more. */
std::string isOneOf(const std::string& path, const std::vector<std::string>& values);

/** The rows of the objects of a list whose attribute `path` has one of the values, however many those are. */
std::vector<std::vector<std::string>> rowsOfAny(ServerList list, const std::string& path,
                                                const std::vector<std::string>& values);

} // namespace tools

#endif
