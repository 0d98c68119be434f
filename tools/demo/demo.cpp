// SPDX-License-Identifier: Apache-2.0
//
// `velrzm demo`: a session with the local server, told step by step.
#include <CLI/App.hpp>

#include <velrzm/connection.h>

#include "tools/command_line/command_line.h"
#include "tools/command_line/command_tree.h"
#include "tools/demo/story.h"
#include "tools/demo/workspace.h"
#include "tools/output/pager.h"
#include "tools/process/failures.h"
#include "tools/process/library_output.h"
#include "tools/process/local_server.h"

namespace tools::demo {

void require(bool succeeded, const char* what)
{
    if (!succeeded) {
        throwServerFailure(what);
    }
}

std::string returned(const char* function, int result)
{
    return std::string(function) + " returned " + std::to_string(result);
}

namespace {

/** Logs off whatever way the demonstration ends, before its directory is removed. */
class LogOffAtTheEnd {
public:
    LogOffAtTheEnd() = default;
    ~LogOffAtTheEnd() { QvExit(); } // does nothing when the demonstration has logged off itself
    LogOffAtTheEnd(const LogOffAtTheEnd&) = delete;
    LogOffAtTheEnd& operator=(const LogOffAtTheEnd&) = delete;
};

void tellHowToGoOn(const Narrator& tell, const Workspace& workspace)
{
    tell.line("");
    tell.good("Kept: store, defaults and logs are in " + workspace.path().string());
    tell.line("Go on with: velrzm --store " + (workspace.path() / storeFile).string() + " --user " + user +
              " ec open " + changeNumber);
    tell.line(std::string("The password is \"") + rightPassword + "\".");
}

void play(bool keep)
{
    if (!localServerServes()) {
        throw Refused(
            "the demonstration needs the local server, and this program was built for another one; build "
            "it without VELRZM_QV_SDK");
    }
    switchOffPager(); // which would stop in the middle of the story
    const Workspace workspace(keep);
    const LogOffAtTheEnd logOffAtTheEnd;
    Narrator tell;
    tell.title(std::string("VELRZM ") + RZMCodeLevel() + ": a session with the local server",
               "It takes place in " + workspace.path().string() +
                   (keep ? "." : ", which is removed at the end; --keep keeps it.") +
                   "\nLines behind a bar are the library's own output, or a file.");
    makeStore(tell);
    logOn(tell);
    writeDefaults(tell);
    createChange(tell);
    readChange(tell);
    createItems(tell);
    linkItems(tell);
    queryItems(tell);
    keepDocument(tell);
    storeBicycle(tell);
    explodeBicycle(tell);
    openMissingChange(tell);
    logOff(tell);
    showLogs(tell);
    if (keep) {
        tellHowToGoOn(tell, workspace);
    }
}

} // namespace

} // namespace tools::demo

namespace tools {

void addDemo(CommandLine& line)
{
    CLI::App& command =
        line.addCommand(line.app(), "demo", "Show a session with the local server, step by step",
                        "velrzm demo --keep", [&line] {
                            const CLI::App& parsed = *line.app().get_subcommand("demo");
                            demo::play(parsed.count("--keep") > 0);
                        });
    haveOneForm(command);
    command.add_flag("--keep", "Keep the store, the defaults file and the logs, and say where they are");
}

} // namespace tools
