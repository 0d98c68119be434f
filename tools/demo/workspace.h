// SPDX-License-Identifier: Apache-2.0
//
// The temporary directory in which the demonstration takes place.
#ifndef VELRZM_TOOLS_DEMO_WORKSPACE_H
#define VELRZM_TOOLS_DEMO_WORKSPACE_H

#include <filesystem>
#include <string>

namespace tools::demo {

/** A new, empty directory that is the working directory while this object lives. Store, logs and defaults of
 * the process are those in it, whatever the environment said before. */
class Workspace {
public:
    explicit Workspace(bool keep);
    ~Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path previous_;
    std::filesystem::path path_;
    bool keep_;
};

constexpr const char* storeFile = "store.db";
constexpr const char* accessLogFile = "access.log";
constexpr const char* errorLogFile = "error.log";
constexpr const char* lastErrorFile = "last-error";
constexpr const char* defaultsFile = "QVL_RZM_DEFAULT";

} // namespace tools::demo

#endif
