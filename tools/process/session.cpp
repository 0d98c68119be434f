// SPDX-License-Identifier: Apache-2.0
#include "tools/process/session.h"

#include <velrzm/connection.h>

#include "tools/process/failures.h"
#include "tools/process/library_output.h"
#include "tools/process/local_server.h"
#include "tools/process/log_places.h"
#include "tools/process/password.h"

namespace tools {

void connect(const std::string& user, const std::string& passwordFile)
{
    if (UserLoggedOn != 0) {
        return;
    }
    if (user.empty()) {
        throw WrongUsage("no user to log on; name one with --user");
    }
    const std::string secret = storeIsInMemory() ? "" : password(user, passwordFile);
    putLogsIntoStateDirectory();
    if (QvConnect(user.c_str(), secret.c_str()) != 1) {
        throwServerFailure("no connection as user " + user);
    }
}

SessionEnd::~SessionEnd()
{
    if (UserLoggedOn != 0 || EnvOpened != 0) {
        QvExit();
    }
}

} // namespace tools
