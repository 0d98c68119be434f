// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/command_tree.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <CLI/Validators.hpp>

#include "tools/output/text.h"

namespace tools {

namespace {

constexpr const char* paragraphEnd = "\n\n";
constexpr const char* formatOption = "--format";

} // namespace

std::string pathOf(const CLI::App& command)
{
    const CLI::App* const parent = command.get_parent();
    if (parent == nullptr) {
        return "";
    }
    const std::string above = pathOf(*parent);
    return above + (above.empty() ? "" : " ") + command.get_name();
}

std::string fullNameOf(const CLI::App& command)
{
    const CLI::App* const parent = command.get_parent();
    return parent == nullptr ? command.get_name() : fullNameOf(*parent) + " " + command.get_name();
}

std::string usageOf(const CLI::App& command)
{
    std::string usage = fullNameOf(command);
    if (!optionsOf(command).empty()) {
        usage += " [OPTIONS]";
    }
    for (const CLI::Option* const option : optionsOf(command)) {
        usage += option->get_required() ? " " + syntaxOf(*option) : "";
    }
    for (const CLI::Option* const argument : argumentsOf(command)) {
        const std::string sign = syntaxOf(*argument) + (mayBeRepeated(*argument) ? "..." : "");
        usage += argument->get_required() ? " " + sign : " [" + sign + "]";
    }
    return usage + (commandsOf(command).empty() ? "" : " COMMAND");
}

std::string summaryOf(const CLI::App& command)
{
    const std::string description = command.get_description();
    return description.substr(0, description.find(paragraphEnd));
}

std::string detailsOf(const CLI::App& command)
{
    const std::string description = command.get_description();
    const std::size_t end = description.find(paragraphEnd);
    return end == std::string::npos ? "" : description.substr(end + std::string(paragraphEnd).size());
}

std::vector<const CLI::App*> commandsOf(const CLI::App& command)
{
    return command.get_subcommands([](const CLI::App* below) { return !below->get_group().empty(); });
}

const CLI::App* commandNamed(const CLI::App& command, const std::string& name)
{
    const auto commands = commandsOf(command);
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&name](const CLI::App* below) { return below->get_name() == name; });
    return found == commands.end() ? nullptr : *found;
}

const CLI::App& parsedCommand(const CLI::App& program)
{
    const auto below = program.get_subcommands(); // those that were parsed
    return below.empty() ? program : parsedCommand(*below.front());
}

std::vector<const CLI::Option*> argumentsOf(const CLI::App& command)
{
    return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<const CLI::Option*> optionsOf(const CLI::App& command)
{
    return command.get_options([&command](const CLI::Option* option) {
        const bool isInherited = option == command.get_help_ptr() && command.get_parent() != nullptr;
        return option->nonpositional() && !option->get_group().empty() && !isInherited;
    });
}

std::vector<const CLI::Option*> allOptionsOf(const CLI::App& command)
{
    std::vector<const CLI::Option*> options = optionsOf(command);
    if (const CLI::App* const parent = command.get_parent(); parent != nullptr) {
        const std::vector<const CLI::Option*> above = allOptionsOf(*parent);
        std::copy_if(above.begin(), above.end(), std::back_inserter(options), [&](const CLI::Option* option) {
            const CLI::Option* const own = command.get_option_no_throw("--" + option->get_lnames().front());
            return own == nullptr || own == command.get_help_ptr();
        });
    }
    return options;
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

bool mayBeRepeated(const CLI::Option& option)
{
    return option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll ||
           option.get_items_expected_max() > 1;
}

std::string valueOf(const CLI::Option& option)
{
    if (option.get_positional()) {
        return choicesOf(option).empty() ? inUpperCase(option.get_name(true, false)) : option.get_type_name();
    }
    return takesValue(option) ? option.get_type_name() : "";
}

std::string syntaxOf(const CLI::Option& option)
{
    std::string value = valueOf(option);
    if (option.get_positional()) {
        return value;
    }
    std::string names;
    for (const std::string& name : option.get_snames()) {
        names.append("-").append(name).append(", ");
    }
    names.append("--").append(option.get_lnames().front());
    return names + (value.empty() ? "" : " ") + value;
}

std::vector<std::string> choicesOf(const CLI::Option& option)
{
    const std::string words = option.get_type_name();
    std::vector<std::string> choices;
    std::istringstream stream(words);
    for (std::string word; words.find('|') != std::string::npos && std::getline(stream, word, '|');) {
        choices.push_back(word);
    }
    return choices;
}

void haveOneForm(CLI::App& command, const std::string& form)
{
    // It hides the option of the program, and the empty group hides it from the help.
    command.add_option(formatOption, form)->group("");
}

bool wantsAnotherForm(const CLI::App& command)
{
    const CLI::Option* const own = command.get_option_no_throw(formatOption);
    if (own == nullptr || !own->get_group().empty()) {
        return false;
    }
    const auto differs = [own](const std::string& form) { return form != own->get_description(); };
    const std::vector<std::string> before = command.get_parent()->get_option(formatOption)->results();
    const std::vector<std::string>& behind = own->results();
    return std::any_of(before.begin(), before.end(), differs) ||
           std::any_of(behind.begin(), behind.end(), differs);
}

void insistOnChoices(CLI::Option& option)
{
    const auto check = [choices = choicesOf(option)](const std::string& word) {
        const bool isChoice = std::find(choices.begin(), choices.end(), word) != choices.end();
        return isChoice ? "" : quoted(word) + " is none of " + joined(choices, ", ");
    };
    option.check(CLI::Validator(check, ""));
}

void insistOnWholeNumber(CLI::Option& option, int least)
{
    const auto check = [least](const std::string& word) {
        const std::optional<int> number = wholeNumber(word);
        if (number.has_value() && *number >= least) {
            return std::string();
        }
        const bool isBounded = least > std::numeric_limits<int>::min();
        return quoted(word) + " is not a whole number" +
               (isBounded ? " of at least " + std::to_string(least) : "");
    };
    option.check(CLI::Validator(check, ""));
}

void insistOnNoApostrophe(CLI::Option& option)
{
    option.check(CLI::Validator(searchFault, ""));
}

void takeObjectNumber(CLI::Option& option)
{
    insistOnNoApostrophe(option);
    option.transform(CLI::Validator(
        [](std::string& word) {
            word = inUpperCase(word);
            return std::string();
        },
        ""));
}

void takeList(CLI::Option& option)
{
    option.delimiter(',')->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

} // namespace tools
