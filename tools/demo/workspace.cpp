// SPDX-License-Identifier: Apache-2.0
#include "tools/demo/workspace.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "tools/process/environment.h"
#include "tools/process/failures.h"

namespace tools::demo {

namespace {

namespace fs = std::filesystem;

fs::path newDirectory()
{
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "velrzm-demo-XXXXXX").string();
    if (error || mkdtemp(name.data()) == nullptr) {
        throw Refused("no temporary directory can be made (" +
                      (error ? error.message() : name + ": " + std::strerror(errno)) +
                      "); set TMPDIR to a directory that can be written");
    }
    return name;
}

/** The environment of the demonstration; null: not set. */
void setEnvironment()
{
    struct Variable {
        const char* name;
        const char* value;
    };
    const std::string store = std::string("sqlite:") + storeFile;
    const Variable variables[] = {
        {"QV_STORE", store.c_str()},       {"QVL_LOG_FILE", accessLogFile}, {"QVL_LOG_ERROR", errorLogFile},
        {"QVL_LAST_ERROR", lastErrorFile}, {"RZM_DEFAULT_DIRECTORY", "."},  {"QV_MULTI_SAVE", nullptr},
        {"QVL_BOM_HEADER_CREATE", "YES"},
    };
    for (const Variable& variable : variables) {
        if (variable.value == nullptr) {
            unsetEnvironmentVariable(variable.name);
        } else {
            setEnvironmentVariable(variable.name, variable.value);
        }
    }
}

} // namespace

Workspace::Workspace(bool keep) : previous_(fs::current_path()), path_(newDirectory()), keep_(keep)
{
    fs::current_path(path_);
    setEnvironment();
}

Workspace::~Workspace()
{
    std::error_code ignored;
    fs::current_path(previous_, ignored);
    if (!keep_) {
        fs::remove_all(path_, ignored);
    }
}

} // namespace tools::demo
