// SPDX-License-Identifier: Apache-2.0
//
// `velrzm doctor`: whether everything is in its place.
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <velrzm/qvlocal.h>

#include "config/defaults_file.h"
#include "tools/command_line/command_line.h"
#include "tools/process/failures.h"
#include "tools/process/local_server.h"
#include "tools/process/log_places.h"
#include "tools/process/standard_streams.h"

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
        const qvlocal::StoreSummary store = qvlocal::summarizeStore(location);
        constexpr std::uintmax_t kilobyte = 1024;
        findings.good("store", location,
                      "can be opened; format " + std::to_string(store.formatVersion) + ", " +
                          std::to_string(store.bytes / kilobyte) +
                          " KB, users: " + std::to_string(store.users));
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
    const char* usualPlace; // null: it is not written
};

void lookAtLog(Findings& findings, const Log& log)
{
    const char* const value = std::getenv(log.variable); // NOLINT(concurrency-mt-unsafe): one thread
    const char* const path = value == nullptr ? log.usualPlace : value;
    if (path == nullptr || *path == '\0') {
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
    const char* const directory =
        std::getenv("RZM_DEFAULT_DIRECTORY"); // NOLINT(concurrency-mt-unsafe): one thread
    std::error_code ignored;
    if (directory != nullptr && *directory != '\0' && !fs::is_directory(directory, ignored)) {
        findings.bad(
            "shared defaults", directory,
            "is no directory; set RZM_DEFAULT_DIRECTORY to the one with the defaults file, or unset it");
    }
    if (const auto path = velrzm::sharedDefaultsPath()) {
        lookAtDefaults(findings, "shared defaults", *path);
    } else {
        findings.bad("shared defaults", directory == nullptr ? "" : directory,
                     "makes the path of the file longer than " + std::to_string(velrzm::longestDefaultsPath) +
                         " characters, and the library skips it; set RZM_DEFAULT_DIRECTORY to a shorter one");
    }
}

/** The library's logs as this command finds them; whatever was made for the look at them goes again. */
class LogDirectories {
public:
    LogDirectories() : made_(keepLogsOutOfTheWay()) {}
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
    const LogDirectories directories;
    Findings findings;
    lookAtStore(findings);
    lookAtLog(findings, {"access log", "QVL_LOG_FILE", nullptr});
    lookAtLog(findings, {"error log", "QVL_LOG_ERROR", "./QVL_LOG_ERROR"});
    lookAtLog(findings, {"last-error file", "QVL_LAST_ERROR", "./QVL_LAST_ERROR"});
    lookAtSharedDefaults(findings);
    lookAtDefaults(findings, "local defaults", velrzm::localDefaultsPath);
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
