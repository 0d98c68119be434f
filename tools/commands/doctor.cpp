// SPDX-License-Identifier: Apache-2.0
//
// `velrzm doctor`: whether everything is in its place.
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <velrzm/connection.h>
#include <velrzm/qvlocal.h>

#include "config/defaults_file.h"
#include "tools/command_line/command_line.h"
#include "tools/commands/environment_check.h"
#include "tools/output/text.h"
#include "tools/process/environment.h"
#include "tools/process/failures.h"
#include "tools/process/local_server.h"
#include "tools/process/log_places.h"

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
    std::size_t problems() const { return problems_; }

private:
    Records records_{{"subject", "place", "state"}, {}};
    std::size_t problems_ = 0;
};

void lookAtVersions(Findings& findings)
{
    findings.good("command", "velrzm", "version " VELRZM_VERSION);
    findings.good("library", "libvelrzm", std::string("level ") + RZMCodeLevel());
}

void lookAtEnvironment(Findings& findings)
{
    for (const VariableFinding& variable : checkEnvironment()) {
        if (variable.isProblem) {
            findings.bad("environment", variable.name, variable.state);
        } else {
            findings.good("environment", variable.name, variable.state);
        }
    }
}

void lookAtStore(Findings& findings)
{
    if (!localServerServes()) {
        findings.good("server", "the server's own client library",
                      "serves the calls; there is no store here");
        return;
    }
    findings.good("server", "libqvlocal, the local server", "version " + qvlocal::version());
    std::string location;
    try {
        location = qvlocal::currentStore();
        const qvlocal::StoreSummary store = qvlocal::summarizeStore(location);
        constexpr std::uintmax_t kilobyte = 1024;
        findings.good("store", location,
                      std::string(store.isReadOnly ? "can only be read" : "can be used") + "; " +
                          store.engine + ", format " + std::to_string(store.formatVersion) + ", " +
                          std::to_string(store.bytes / kilobyte) + " KB, " + counted(store.users, "user"));
        for (const auto& [className, count] : store.objects) {
            findings.good("objects", className, std::to_string(count));
        }
    } catch (const qvlocal::StoreError& error) {
        findings.bad("store", location, error.what());
    }
}

/** Opens a file as the library will, but without emptying it; 0, or the reason why it cannot be opened. A file
 * that was not there is not there afterwards. */
int tryToWrite(const std::string& path)
{
    constexpr int access = O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK;
    constexpr mode_t permissions = 0666;
    int file = open(path.c_str(), access);
    const bool isNew = file == -1 && errno == ENOENT;
    if (isNew) {
        file = open(path.c_str(), access | O_CREAT | O_EXCL, permissions);
    }
    if (file == -1) {
        return errno;
    }
    if (isNew) {
        unlink(path.c_str());
    }
    close(file);
    return 0;
}

/** A log of the library. */
struct Log {
    const char* subject;
    const char* variable;
    const char* usualPlace; // "": it is not written
};

void lookAtLog(Findings& findings, const Log& log)
{
    const std::string path = environmentVariable(log.variable).value_or(log.usualPlace);
    if (path.empty()) {
        findings.good(log.subject, "", std::string("not written; ") + log.variable + " names a file for it");
        return;
    }
    const int reason = tryToWrite(path);
    if (reason == 0) {
        findings.good(log.subject, path, "can be written");
    } else {
        findings.bad(log.subject, path,
                     std::string("cannot be written, and the library says nothing about it: ") +
                         std::strerror(reason) + "; set " + log.variable + " to a file that you may write");
    }
}

/** Reads the beginning of a file; 0, or the reason why it cannot be read. */
int tryToRead(const std::string& path)
{
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> file(std::fopen(path.c_str(), "re"),
                                                                  &std::fclose);
    return file != nullptr && (std::fgetc(file.get()) != EOF || std::ferror(file.get()) == 0) ? 0 : errno;
}

void lookAtDefaults(Findings& findings, const char* subject, const std::string& path)
{
    const int reason = tryToRead(path);
    if (reason == 0) {
        findings.good(subject, path, "is read; \"velrzm defaults check\" looks at its lines");
    } else if (reason == ENOENT) {
        findings.good(subject, path, "is not there");
    } else {
        findings.bad(subject, path,
                     std::string("cannot be read, and the library skips it: ") + std::strerror(reason) +
                         "; make it a file that you may read");
    }
}

void lookAtSharedDefaults(Findings& findings)
{
    if (const auto path = velrzm::sharedDefaultsPath()) {
        lookAtDefaults(findings, "shared defaults", *path);
    } else {
        findings.bad("shared defaults", environmentText("RZM_DEFAULT_DIRECTORY"),
                     "makes the path of the file longer than " + std::to_string(velrzm::longestDefaultsPath) +
                         " characters, and the library skips it; set RZM_DEFAULT_DIRECTORY to a shorter one");
    }
}

/** The places of the library's logs, as the commands set them. Directories made on the way go again. */
class LogDirectories {
public:
    LogDirectories() : made_(putLogsIntoStateDirectory()) {}
    ~LogDirectories()
    {
        std::error_code ignored;
        for (auto directory = made_.rbegin(); directory != made_.rend(); ++directory) {
            fs::remove(*directory, ignored);
        }
    }
    LogDirectories(const LogDirectories&) = delete;
    LogDirectories& operator=(const LogDirectories&) = delete;

private:
    std::vector<fs::path> made_;
};

void examine(const Settings& settings)
{
    Findings findings;
    lookAtVersions(findings);
    lookAtStore(findings);
    lookAtEnvironment(findings);
    const LogDirectories directories;
    lookAtLog(findings, {"access log", "QVL_LOG_FILE", ""});
    lookAtLog(findings, {"error log", "QVL_LOG_ERROR", "./QVL_LOG_ERROR"});
    lookAtLog(findings, {"last-error file", "QVL_LAST_ERROR", "./QVL_LAST_ERROR"});
    lookAtSharedDefaults(findings);
    lookAtDefaults(findings, "local defaults", velrzm::localDefaultsPath);
    writeRecords(findings.records(), Shape::List, settings.format);
    if (findings.problems() > 0) {
        throw Refused(counted(findings.problems(), "problem") + " found");
    }
}

} // namespace

void addDoctor(CommandLine& line)
{
    line.addCommand(line.app(), "doctor", "Look at versions, store, environment, logs and defaults files",
                    "velrzm doctor", [&line] { examine(line.settings()); });
}

} // namespace tools
