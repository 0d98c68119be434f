// SPDX-License-Identifier: Apache-2.0
#include "tools/commands/operation_command.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <CLI/App.hpp>

#include <velrzm/result.h>

#include "tools/command_line/command_tree.h"
#include "tools/commands/attribute_check.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/library_output.h"
#include "tools/process/session.h"

namespace tools {

namespace {

constexpr const char* selectOption = "--select";
constexpr const char* setOption = "--set";

std::vector<std::string> values(const CLI::App& command, const std::string& parameter)
{
    const CLI::Option* const option = command.get_option_no_throw(parameter);
    return option == nullptr ? std::vector<std::string>() : option->results();
}

std::vector<std::string> selection(const CLI::App& command, std::vector<std::string> shownByDefault)
{
    std::vector<std::string> given = values(command, selectOption);
    return given.empty() ? std::move(shownByDefault) : given;
}

[[noreturn]] void throwFailure(const CLI::App& command)
{
    if (QV_RC < 0) {
        throwServerFailure(pathOf(command));
    }
    throw NothingFound(pathOf(command) + ": nothing was found");
}

void addParameter(CLI::App& command, const Parameter& parameter)
{
    if (parameter.takes == Parameter::Takes::Nothing) {
        command.add_flag(parameter.name, parameter.description);
        return;
    }
    const std::string signature = parameter.name;
    const std::size_t nameEnd = std::min(signature.find(' '), signature.size());
    const std::string value = nameEnd == signature.size() ? "TEXT" : signature.substr(nameEnd + 1);
    CLI::Option& option =
        *command.add_option(signature.substr(0, nameEnd), parameter.description)->type_name(value);
    option.required(parameter.need == Parameter::Need::Required);
    if (!choicesOf(option).empty()) {
        insistOnChoices(option);
    }
    switch (parameter.takes) {
    case Parameter::Takes::SearchText:
        return insistOnNoApostrophe(option);
    case Parameter::Takes::ObjectNumber:
        return takeObjectNumber(option);
    case Parameter::Takes::WholeNumber:
        return insistOnWholeNumber(option, 0);
    case Parameter::Takes::Pairs:
        option.expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        return;
    case Parameter::Takes::Text:
    case Parameter::Takes::Nothing:
        return;
    }
}

void addSelection(CLI::App& command, const std::vector<std::string>& shown)
{
    const std::string description = "Attributes to show; by default " + joined(shown, ", ");
    takeList(*command.add_option(selectOption, description)->type_name("NAME,..."));
}

void runCommand(const OperationCommand& operation, const CLI::App& command, const Settings& settings)
{
    Call call(command, operation.shown.names);
    connect(settings.user, settings.passwordFile);
    const Outcome outcome = operation.run(call);
    if (outcome.records.columns.empty()) {
        return;
    }
    writeOutcome(outcome, settings.format);
    warnOfUnknownAttributes(operation.shown.className, values(command, selectOption), outcome.records);
    if (outcome.records.rows.empty() && outcome.noRecords.empty()) {
        throwFailure(command);
    }
}

void addOperation(CommandLine& line, CLI::App& group, const OperationCommand& operation)
{
    const auto command = std::make_shared<CLI::App*>(nullptr);
    *command =
        &line.addCommand(group, operation.name, operation.description, operation.example,
                         [&line, operation, command] { runCommand(operation, **command, line.settings()); });
    for (const Parameter& parameter : operation.parameters) {
        addParameter(**command, parameter);
    }
    if (!operation.shown.names.empty()) {
        addSelection(**command, operation.shown.names);
    }
    if (!operation.furtherFormats.empty()) {
        line.addFormats(**command, operation.furtherFormats);
    }
}

} // namespace

Call::Call(const CLI::App& command, std::vector<std::string> shownByDefault)
    : command_(command), selected_(selection(command, std::move(shownByDefault))), selectedArray_(selected_),
      selectedList_(textList(selected_))
{
    for (const std::string& pair : values(command, setOption)) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos || equals == 0) {
            throw WrongUsage("--set " + pair + ": this is not NAME=VALUE");
        }
        inputNames_.Append(pair.substr(0, equals).c_str());
        inputValues_.Append(pair.substr(equals + 1).c_str());
    }
}

bool Call::has(const std::string& parameter) const
{
    return !values(command_, parameter).empty();
}

char* Call::text(const std::string& parameter)
{
    const std::vector<std::string> given = values(command_, parameter);
    return (texts_[parameter] = given.empty() ? "" : given.front()).data();
}

Outcome Call::object(int result) const
{
    if (result != 1) {
        throwFailure(command_);
    }
    return {currentRecords(selected_), Shape::Object};
}

void Call::found(int result) const
{
    if (result <= 0 && QV_RC < 0) {
        throwFailure(command_);
    }
}

Outcome Call::list(int result) const
{
    found(result);
    return {currentRecords(selected_), Shape::List};
}

Outcome Call::nothing(int result) const
{
    if (result != 1) {
        throwFailure(command_);
    }
    return {};
}

void addOperations(CommandLine& line, const CommandGroup& group)
{
    CLI::App& groupCommand = line.addGroup(group.name, group.description);
    for (const OperationCommand& operation : group.commands) {
        addOperation(line, groupCommand, operation);
    }
}

void addOperationCommands(CommandLine& line)
{
    for (const auto& group :
         {changeCommands(), affectedItemCommands(), itemCommands(), structureCommands(), componentCommands(),
          componentReferenceCommands(), itemReferenceCommands(), documentCommands(), optionCommands(),
          packageCommands(), translationCommands()}) {
        addOperations(line, group);
    }
}

} // namespace tools
