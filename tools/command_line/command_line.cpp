// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/command_line.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>

#include <velrzm/connection.h>

#include "tools/command_line/command_tree.h"
#include "tools/command_line/help.h"
#include "tools/command_line/wrong_usage.h"
#include "tools/output/pager.h"
#include "tools/output/results.h"
#include "tools/output/text.h"
#include "tools/process/environment.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

constexpr const char* description =
    "Work with a Quorvanemaster PDM database\n\n"
    "velrzm runs the operations of libvelrzm and looks after the stores of the local server. \"velrzm "
    "demo\" shows what there is; \"velrzm init\" makes a store to begin with. Numbers of items, changes and "
    "documents are taken in upper case, as they are stored, however they are typed.";

constexpr const char* ungrouped = "Commands";

const NamedFormats formats = {
    {"table", Format::Table}, {"json", Format::Json}, {"csv", Format::Csv}, {"printlist", Format::PrintList}};

/** The commands by subject, in the order in which the help lists them. */
struct Subject {
    const char* name;
    std::vector<void (*)(CommandLine&)> addCommands;
};

const std::vector<Subject>& subjects()
{
    static const std::vector<Subject> all = {
        {"First steps", {addDemo, addHelpCommands}},
        {"Stores of the local server", {addStoreCommands}},
        {"Operations on the database", {addOperationCommands}},
        {"Files of parts and of commands", {addImport, addExport, addBatch}},
        {"Finding faults", {addDoctor, addDefaultsCommands, addLogCommands}},
    };
    return all;
}

/** The parser takes the word behind "--name=" for the value. */
void keepEmptyValues(std::vector<std::string>& arguments)
{
    for (auto word = arguments.begin(); word != arguments.end() && *word != "--"; ++word) {
        if (word->size() > 3 && word->compare(0, 2, "--") == 0 && word->find('=') == word->size() - 1) {
            word->pop_back();
            word = arguments.insert(word + 1, "");
        }
    }
}

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
        setEnvironmentVariable("QV_STORE", location);
    }
    if (settings.traceLevel.has_value()) {
        setEnvironmentVariable("QVL_TRACE_LEVEL", std::to_string(*settings.traceLevel));
    }
}

} // namespace

CommandLine::CommandLine(Settings settings)
    : app_(std::make_unique<CLI::App>(description, "velrzm")), settings_(std::move(settings))
{
    if (settings_.user.empty()) {
        settings_.user = environmentText("USER");
    }
    app_->set_help_flag("-h,--help", "Explain the command");
    app_->set_version_flag("--version", versionText(), "Print the versions of the tool and of the library");
    app_->require_subcommand(1);
    addSharedOptions();
    for (const Subject& subject : subjects()) {
        for (const auto& addCommands : subject.addCommands) {
            addCommands(*this);
        }
        for (CLI::App* const command : app_->get_subcommands({})) {
            if (command->get_group() == ungrouped) {
                command->group(subject.name);
            }
        }
    }
}

CommandLine::~CommandLine() = default;

void CommandLine::addSharedOptions()
{
    app_->add_option("--store", settings_.store,
                     "Store of the local server, or sqlite:FILE; otherwise the environment variable "
                     "QV_STORE, or the user's own store")
        ->type_name("FILE");
    app_->add_option("--user", settings_.user, "User who logs on; otherwise the environment variable USER")
        ->type_name("NAME");
    app_->add_option("--password-file", settings_.passwordFile,
                     "File whose first line is the password; otherwise the environment variable "
                     "VELRZM_PASSWORD, or a prompt")
        ->type_name("FILE");
    insistOnWholeNumber(
        *app_->add_option("--trace", settings_.traceLevel,
                          "Trace of the library to standard error: 0 connection and errors, 2 operations, 5 "
                          "calls, 9 values; otherwise the environment variable QVL_TRACE_LEVEL, or none")
             ->type_name("LEVEL"),
        std::numeric_limits<int>::min());
    addFormat(*app_, formats);
    app_->add_flag("--no-pager", settings_.isPagerOff,
                   "Do not show results that are longer than the terminal through a pager; otherwise the "
                   "environment variable PAGER names it, or it is less");
}

CLI::App& CommandLine::addGroup(const std::string& name, const std::string& groupDescription)
{
    CLI::App& group = *app_->add_subcommand(name, groupDescription);
    group.group(ungrouped);
    group.require_subcommand(1);
    group.fallthrough(); // shared options may also stand behind the command
    return group;
}

CLI::App& CommandLine::addCommand(CLI::App& parent, const std::string& name,
                                  const std::string& commandDescription, const std::string& example,
                                  std::function<void()> action)
{
    CLI::App& command = *parent.add_subcommand(name, commandDescription);
    command.group(ungrouped);
    command.fallthrough();
    command.footer(example);
    command.final_callback([this, action = std::move(action)] { action_ = action; });
    return command;
}

void CommandLine::addFormat(CLI::App& command, const NamedFormats& offered)
{
    std::vector<std::string> names(offered.size());
    std::transform(offered.begin(), offered.end(), names.begin(),
                   [](const auto& format) { return format.first; });
    const auto choose = [this, offered](const std::string& wanted) {
        settings_.format = std::find_if(offered.begin(), offered.end(), [&wanted](const auto& format) {
                               return format.first == wanted;
                           })->second;
    };
    insistOnChoices(*command
                         .add_option_function<std::string>(
                             "--format", choose, "Form of the results; a table unless another one is given")
                         ->type_name(joined(names, "|")));
}

void CommandLine::addFormats(CLI::App& command, const NamedFormats& further)
{
    NamedFormats offered = formats;
    offered.insert(offered.end(), further.begin(), further.end());
    addFormat(command, offered);
}

void CommandLine::parse(std::vector<std::string> arguments)
{
    keepEmptyValues(arguments);
    const std::string last = arguments.empty() ? "" : arguments.back();
    std::reverse(arguments.begin(), arguments.end()); // that is how the parser takes them
    try {
        app_->parse(std::move(arguments));
    } catch (const CLI::CallForVersion&) {
        action_ = [] { writeResult(versionText() + "\n"); };
    } catch (const CLI::CallForHelp&) {
        const CLI::App& command = parsedCommand(*app_);
        const std::optional<WrongUsage> unknown = unknownWord(*app_);
        if (unknown.has_value() && !commandsOf(command).empty()) {
            throw WrongUsage(*unknown); // of the command that was meant
        }
        action_ = [&command] { writeResult(helpText(command)); };
    } catch (const CLI::ParseError& error) {
        throw wrongUsage(*app_, error, last);
    }
    if (const CLI::App& command = parsedCommand(*app_); wantsAnotherForm(command)) {
        throw complaint(command, "--format does not apply: the results have one form");
    }
}

void CommandLine::act() const
{
    applyToEnvironment(settings_);
    if (settings_.isPagerOff) {
        switchOffPager();
    }
    action_();
}

} // namespace tools
