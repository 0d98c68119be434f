// SPDX-License-Identifier: Apache-2.0
//
// The connection of the program to the server. There is one for the whole process, as the library has it.
#ifndef VELRZM_TOOLS_PROCESS_SESSION_H
#define VELRZM_TOOLS_PROCESS_SESSION_H

#include <string>

namespace tools {

/** Connects as `user`, with the password in `passwordFile` or, when that is empty, the one that `password` finds;
 * does nothing when the program is connected already. Throws Refused when the server refuses. */
void connect(const std::string& user, const std::string& passwordFile);

/** Ends the connection, if there is one, when this object goes. */
class SessionEnd {
public:
    SessionEnd() = default;
    ~SessionEnd();
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
};

} // namespace tools

#endif
