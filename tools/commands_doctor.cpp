// SPDX-License-Identifier: Apache-2.0
//
// `velrzm doctor`: whether everything is in its place.
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

#include <velrzm/qvlocal.h>

#include "tools/command_line.h"
#include "tools/defaults_files.h"
#include "tools/failures.h"
#include "tools/local_server.h"
#include "tools/log_places.h"
#include "tools/standard_streams.h"

namespace tools {

namespace {

namespace fs = std::filesystem;

/** What was looked at, and what it is like. */
class Findings {
public:
    void good(const std::string& subject, const std::string& place, const std::string& state)
    {
        records_.rows.push_back({subject, place, state});
    }
    void bad(const std::string& subject, const std::string& place, const std::string& state)
    {
        ++problems_;
        good(subject, place, "PROBLEM: " + state);
    }

    const Records& records() const { return records_; }
    int problems() const { return problems_; }

private:
    Records records_{{"subject", "place", "state"}, {}};
    int problems_ = 0;
};

void lookAtStore(Findings& findings)
{
    if (!localServerServes()) {
        findings.good("server", "the server's own client library", "serves the calls; it has no store here");
        return;
    }
    findings.good("server", "libqvlocal, the local server", "serves the calls");
    std::string location;
    try {
        location = qvlocal::currentStore();
        const std::size_t users = qvlocal::listUsers(location).size();
        findings.good("store", location, "can be opened, users: " + std::to_string(users));
    } catch (const qvlocal::StoreError& error) {
        findings.bad("store", location, error.what());
    }
}

void lookAtLog(Findings& findings, const char* subject, const char* variable)
{
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): one thread
    if (value == nullptr || *value == '\0') {
        findings.good(subject, "", std::string("not written; ") + variable + " names a file for it");
        return;
    }
    std::error_code error;
    const fs::path path = value;
    const bool exists = fs::exists(path, error);
    const fs::path toWrite = exists ? path : path.has_parent_path() ? path.parent_path() : fs::path(".");
    if (fs::is_directory(path, error)) {
        findings.bad(subject, path.string(),
                     std::string("it is a directory; set ") + variable + " to a file");
    } else if (access(toWrite.c_str(), W_OK) != 0) {
        findings.bad(subject, path.string(),
                     "cannot be written, and the library says nothing about it; make " + toWrite.string() +
                         " writable or set " + variable);
    } else {
        findings.good(subject, path.string(), "can be written");
    }
}

void lookAtDefaults(Findings& findings, const char* subject, const std::string& path)
{
    if (access(path.c_str(), F_OK) != 0) {
        findings.good(subject, path, "is not there");
    } else if (access(path.c_str(), R_OK) != 0) {
        findings.bad(subject, path, "cannot be read, and the library skips it; make it readable");
    } else {
        findings.good(subject, path, "is read; \"velrzm defaults check\" looks at its lines");
    }
}

void examine(const Settings& settings)
{
    keepLogsOutOfTheWay();
    Findings findings;
    lookAtStore(findings);
    lookAtLog(findings, "access log", "QVL_LOG_FILE");
    lookAtLog(findings, "error log", "QVL_LOG_ERROR");
    lookAtLog(findings, "last-error file", "QVL_LAST_ERROR");
    lookAtDefaults(findings, "shared defaults", sharedDefaultsFile());
    lookAtDefaults(findings, "local defaults", localDefaultsFile());
    writeRecords(findings.records(), Shape::List, settings.format);
    if (findings.problems() > 0) {
        throw Refused("problems found: " + std::to_string(findings.problems()));
    }
}

} // namespace

void addDoctor(CommandLine& line)
{
    line.addCommand(line.app(), "doctor", "Look at the store, the logs and the defaults files",
                    "velrzm doctor", [&line] { examine(line.settings()); });
}

} // namespace tools
