// SPDX-License-Identifier: Apache-2.0
#include "tools/log_places.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace tools {

namespace {

std::string environment(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): one thread
    return value == nullptr ? "" : value;
}

/** Empty when there is no place for one. */
std::filesystem::path stateDirectory()
{
    const std::string given = environment("XDG_STATE_HOME");
    const std::string home = environment("HOME");
    if (!given.empty() && given.front() == '/') {
        return std::filesystem::path(given) / "velrzm";
    }
    return home.empty() ? std::filesystem::path() : std::filesystem::path(home) / ".local/state/velrzm";
}

} // namespace

void keepLogsOutOfTheWay()
{
    const std::filesystem::path directory = stateDirectory();
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (directory.empty() || error) {
        return;
    }
    for (const char* const name : {"QVL_LOG_ERROR", "QVL_LAST_ERROR"}) {
        setenv(name, (directory / name).c_str(), 0); // NOLINT(concurrency-mt-unsafe): one thread
    }
}

} // namespace tools
