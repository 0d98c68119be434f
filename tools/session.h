// SPDX-License-Identifier: Apache-2.0
//
// The connection of the program to the server. There is one for the whole process, as the library has it.
#ifndef VELRZM_TOOLS_SESSION_H
#define VELRZM_TOOLS_SESSION_H

#include "tools/command_line.h"

namespace tools {

/** Connects, unless the program is connected already. Throws Refused when the server says no. */
void connect(const Settings& settings);

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
