// SPDX-License-Identifier: Apache-2.0
#include "tools/process/session.h"

#include <cstdlib>
#include <filesystem>

#include <velrzm/connection.h>
#include <velrzm/logging.h>

#include "tools/process/failures.h"
#include "tools/process/log_places.h"
#include "tools/process/output_capture.h"
#include "tools/process/password.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

/** An in-memory store takes any user and any password. */
bool needsPassword()
{
    const char* const store = std::getenv("QV_STORE"); // NOLINT(concurrency-mt-unsafe): one thread
    return store == nullptr || std::string(store) != "sqlite::memory:";
}

/** Whether somebody wants to see the library's messages about a connection that succeeds. */
bool wantsTrace()
{
    return std::getenv("QVL_TRACE_LEVEL") != nullptr; // NOLINT(concurrency-mt-unsafe): one thread
}

} // namespace

void connect(const std::string& user, const std::string& passwordFile)
{
    if (UserLoggedOn != 0) {
        return;
    }
    if (user.empty()) {
        throw WrongUsage("no user to log on; name one with --user");
    }
    const std::string secret = needsPassword() ? password(user, passwordFile) : "";
    keepLogsOutOfTheWay();
    OutputCapture capture;
    const bool connected = QvConnect(user.c_str(), secret.c_str()) == 1;
    const std::string messages = capture.take();
    if (!connected || wantsTrace()) {
        writeNote(messages);
    }
    if (!connected) {
        throw Refused(
            "no connection as user " + user +
            "; the reason stands above (\"velrzm init\" makes a store, --store and --user choose others)");
    }
}

SessionEnd::~SessionEnd()
{
    if (UserLoggedOn != 0 || EnvOpened != 0) {
        QvExit();
    }
}

} // namespace tools
