// SPDX-License-Identifier: Apache-2.0
#include "tools/process/log_places.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "tools/process/environment.h"

namespace tools {

namespace {

/** Empty when there is no place for one. */
std::filesystem::path stateDirectory()
{
    const std::string given = environmentText("XDG_STATE_HOME");
    const std::string home = environmentText("HOME");
    if (!given.empty() && given.front() == '/') {
        return std::filesystem::path(given) / "velrzm";
    }
    return home.empty() ? std::filesystem::path() : std::filesystem::path(home) / ".local/state/velrzm";
}

/** `path` and the directories above it that are not there, the topmost first. */
std::vector<std::filesystem::path> missingDirectories(std::filesystem::path path)
{
    std::error_code ignored;
    std::vector<std::filesystem::path> missing;
    for (; path.has_relative_path() && !std::filesystem::exists(path, ignored); path = path.parent_path()) {
        missing.insert(missing.begin(), path);
    }
    return missing;
}

} // namespace

std::vector<std::filesystem::path> putLogsIntoStateDirectory()
{
    const std::filesystem::path directory = stateDirectory();
    std::vector<std::filesystem::path> made = missingDirectories(directory);
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (!directory.empty() && !error) {
        for (const char* const name : {"QVL_LOG_ERROR", "QVL_LAST_ERROR"}) {
            if (!environmentVariable(name).has_value()) {
                setEnvironmentVariable(name, directory / name);
            }
        }
    }
    return made;
}

} // namespace tools
