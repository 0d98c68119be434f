// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <sstream>
#include <utility>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>

#include <velrzm/connection.h>

#include "tools/failures.h"
#include "tools/standard_streams.h"

namespace tools {

namespace {

constexpr const char* description =
    "Works with a Quorvanemaster PDM database: runs the operations of libvelrzm and looks after the stores "
    "of\n"
    "the local server. \"velrzm demo\" shows what there is; \"velrzm COMMAND --help\" explains a command.";

const std::map<std::string, Format> formats = {
    {"table", Format::Table}, {"json", Format::Json}, {"csv", Format::Csv}, {"printlist", Format::PrintList}};

std::string versionText()
{
    return std::string("velrzm ") + VELRZM_VERSION + " (library " + RZMCodeLevel() + ")";
}

/** Settings that the libraries read from the environment are handed over in it. */
void applyToEnvironment(const Settings& settings)
{
    if (!settings.store.empty()) {
        const bool isLocation = settings.store.find(':') != std::string::npos;
        const std::string location = (isLocation ? "" : "sqlite:") + settings.store;
        setenv("QV_STORE", location.c_str(), 1); // NOLINT(concurrency-mt-unsafe): one thread
    }
    if (settings.traceLevel.has_value()) {
        const std::string level = std::to_string(*settings.traceLevel);
        setenv("QVL_TRACE_LEVEL", level.c_str(), 1); // NOLINT(concurrency-mt-unsafe): one thread
    }
}

} // namespace

CommandLine::CommandLine(Settings settings) : app_(description, "velrzm"), settings_(std::move(settings))
{
    if (const char* const name = std::getenv("USER"); // NOLINT(concurrency-mt-unsafe): one thread
        settings_.user.empty() && name != nullptr) {
        settings_.user = name;
    }
    app_.set_version_flag("--version", versionText(), "Print the versions of the tool and of the library");
    app_.set_help_all_flag("--help-all", "Print the help of all commands");
    app_.require_subcommand(1);
    app_.add_option(
        "--store", settings_.store,
        "Store of the local server: a path, or sqlite:PATH; otherwise the environment variable QV_STORE, "
        "or the user's own store");
    app_.add_option("--user", settings_.user, "User who logs on; otherwise the environment variable USER");
    app_.add_option(
        "--password-file", settings_.passwordFile,
        "File whose first line is the password; otherwise the environment variable VELRZM_PASSWORD, "
        "or a prompt");
    app_.add_option(
        "--trace", settings_.traceLevel,
        "Trace level of the library: -1 nothing, 0 errors, 2 operations, 5 calls, 9 values; the trace "
        "goes to standard error");
    app_.add_option("--format", settings_.format, "Form of the results: table, json, csv or printlist")
        ->type_name("FORMAT")
        ->transform(CLI::CheckedTransformer(formats));
    addDemo(*this);
    addStoreCommands(*this);
    addOperationCommands(*this);
    addPartsListCommands(*this);
    addBatch(*this);
    addDefaultsCommands(*this);
    addLogCommands(*this);
    addDoctor(*this);
}

CLI::App& CommandLine::addGroup(const std::string& name, const std::string& groupDescription)
{
    CLI::App& group = *app_.add_subcommand(name, groupDescription);
    group.require_subcommand(1);
    group.fallthrough(); // shared options may also stand behind the command
    return group;
}

CLI::App& CommandLine::addCommand(CLI::App& parent, const std::string& name,
                                  const std::string& commandDescription, const std::string& example,
                                  std::function<void()> action)
{
    CLI::App& command = *parent.add_subcommand(name, commandDescription);
    command.fallthrough();
    command.footer("Example: " + example);
    command.final_callback([this, action = std::move(action)] { action_ = action; });
    return command;
}

void CommandLine::addFormats(CLI::App& command, const std::map<std::string, Format>& further)
{
    std::map<std::string, Format> offered = formats;
    std::string names;
    for (const auto& [name, format] : further) {
        offered.emplace(name, format);
        names += ", " + name;
    }
    command.add_option("--format", settings_.format, "Form of the results, here also" + names.substr(1))
        ->type_name("FORMAT")
        ->transform(CLI::CheckedTransformer(offered));
}

void CommandLine::parse(std::vector<std::string> arguments)
{
    std::reverse(arguments.begin(), arguments.end()); // that is how the parser takes them
    try {
        app_.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        std::ostringstream result;
        std::ostringstream complaint;
        if (app_.exit(error, result, complaint) != 0) {
            throw WrongUsage(complaint.str());
        }
        action_ = [help = result.str()] { writeResult(help); };
    }
}

void CommandLine::act() const
{
    applyToEnvironment(settings_);
    action_();
}

} // namespace tools
