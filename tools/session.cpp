// SPDX-License-Identifier: Apache-2.0
#include "tools/session.h"

#include <cstdlib>
#include <filesystem>

#include <velrzm/connection.h>
#include <velrzm/logging.h>

#include "tools/failures.h"
#include "tools/log_places.h"
#include "tools/output_capture.h"
#include "tools/password.h"
#include "tools/standard_streams.h"

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

void connect(const Settings& settings)
{
    if (UserLoggedOn != 0) {
        return;
    }
    if (settings.user.empty()) {
        throw WrongUsage("no user to log on; name one with --user");
    }
    const std::string secret = needsPassword() ? password(settings.user, settings.passwordFile) : "";
    keepLogsOutOfTheWay();
    OutputCapture capture;
    const bool connected = QvConnect(settings.user.c_str(), secret.c_str()) == 1;
    const std::string messages = capture.take();
    if (!connected || wantsTrace()) {
        writeNote(messages);
    }
    if (!connected) {
        throw Refused(
            "no connection as user " + settings.user +
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
