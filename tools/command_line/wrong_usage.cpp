// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/wrong_usage.h"

#include <algorithm>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/command_line/command_tree.h"
#include "tools/command_line/help.h"
#include "tools/output/terminal.h"
#include "tools/output/text.h"

namespace tools {

namespace {

/** A text about a command, which it begins with. */
std::string about(const CLI::App& command, const std::string& text)
{
    const std::string path = pathOf(command);
    return path + (path.empty() ? "" : ": ") + text;
}

WrongUsage misused(const CLI::App& command, const std::string& text)
{
    return complaint(command, text + "\nUsage: " + usageOf(command));
}

std::vector<std::string> namesBelow(const CLI::App& command)
{
    std::vector<std::string> names;
    for (const CLI::App* const below : commandsOf(command)) {
        names.push_back(below->get_name());
    }
    return names;
}

/** The commands further down that have such a name: the word before it may have been left out. */
std::vector<std::string> nearestFurtherDown(const CLI::App& command, const std::string& name)
{
    std::vector<std::string> found;
    for (const CLI::App* const below : commandsOf(command)) {
        for (const std::string& near : nearest(name, namesBelow(*below))) {
            found.push_back(below->get_name() + " " + near);
        }
    }
    return found;
}

WrongUsage unknownOption(const CLI::App& command, const std::string& word)
{
    const std::string name = word.substr(0, word.find('='));
    std::vector<std::string> names;
    for (const CLI::Option* const option : allOptionsOf(command)) {
        names.push_back("--" + option->get_lnames().front());
    }
    const std::string stem = name.substr(std::min(name.find_first_not_of('-'), name.size()));
    return complaint(command, "there is no option " + quoted(name) + didYouMean(nearest("--" + stem, names)));
}

const CLI::Option* missingIn(const CLI::App& command)
{
    for (const auto& options : {argumentsOf(command), optionsOf(command)}) {
        const auto missing = std::find_if(options.begin(), options.end(), [](const CLI::Option* option) {
            return option->get_required() && option->count() == 0;
        });
        if (missing != options.end()) {
            return *missing;
        }
    }
    return nullptr;
}

} // namespace

WrongUsage complaint(const CLI::App& command, const std::string& text)
{
    constexpr std::size_t begin = sizeof "velrzm: " - 1; // stands before every complaint
    return WrongUsage(wrapped(about(command, text), Terminal().width - begin) + "\nSee " +
                      quoted(fullNameOf(command) + " --help") + ".");
}

WrongUsage unknownCommand(const CLI::App& command, const std::string& name)
{
    std::vector<std::string> meant = nearest(name, namesBelow(command));
    if (meant.empty()) {
        meant = nearestFurtherDown(command, name);
    }
    const std::vector<std::string> below = namesBelow(command);
    if (below.empty()) {
        return complaint(command,
                         "it has no commands below it, so " + quoted(name) + " is one word too many");
    }
    const std::string text = "there is no command " + quoted(name);
    return complaint(command, meant.empty() ? text + "; the commands are " + joined(below, ", ")
                                            : text + didYouMean(meant));
}

std::optional<WrongUsage> unknownWord(const CLI::App& program)
{
    const CLI::App& command = parsedCommand(program);
    const std::vector<std::string> unknown = program.remaining(true);
    const auto word =
        std::find_if(unknown.begin(), unknown.end(), [](const std::string& each) { return each != "--"; });
    if (word == unknown.end()) {
        return std::nullopt;
    }
    if (word->size() > 1 && word->front() == '-') {
        return unknownOption(command, *word);
    }
    if (!commandsOf(command).empty()) {
        return unknownCommand(command, *word);
    }
    return misused(command, "the argument " + quoted(*word) + " is one too many");
}

WrongUsage wrongUsage(const CLI::App& program, const CLI::ParseError& error, const std::string& last)
{
    if (const std::optional<WrongUsage> unknown = unknownWord(program); unknown.has_value()) {
        return *unknown;
    }
    const CLI::App& command = parsedCommand(program);
    for (const CLI::Option* const option : allOptionsOf(command)) {
        if (last == "--" + option->get_lnames().front() && takesValue(*option)) {
            return complaint(command, last + " needs a value: " + syntaxOf(*option));
        }
        if (option->count() > 1 && !mayBeRepeated(*option)) {
            return complaint(command, option->get_name() + " is given more than once");
        }
    }
    const bool isIncomplete = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
    if (isIncomplete && !commandsOf(command).empty()) {
        return WrongUsage(about(command, "a command is missing\n\n" + helpText(command)));
    }
    if (const CLI::Option* const missing = missingIn(command); isIncomplete && missing != nullptr) {
        return misused(command, syntaxOf(*missing) + " is missing");
    }
    return complaint(command, error.what());
}

} // namespace tools
