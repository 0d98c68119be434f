// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/help.h"

#include <algorithm>
#include <utility>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/command_line/command_tree.h"
#include "tools/command_line/topics.h"
#include "tools/output/terminal.h"
#include "tools/output/text.h"

namespace tools {

namespace {

/** What is explained, and how. */
using Entry = std::pair<std::string, std::string>;

constexpr std::size_t widest = 100; // longer lines are hard to read
constexpr std::size_t indentation = 2;
constexpr std::size_t widestSign = 24; // an explanation begins in the next line rather than further right

std::size_t width()
{
    return terminal().interactive ? std::min<std::size_t>(terminal().width, widest) : Terminal().width;
}

std::string table(const std::string& title, const std::vector<Entry>& entries)
{
    if (entries.empty()) {
        return "";
    }
    std::size_t sign = 0;
    for (const Entry& entry : entries) {
        sign = entry.first.size() > widestSign ? sign : std::max(sign, entry.first.size());
    }
    const std::size_t column = indentation + sign + indentation;
    std::string text = "\n" + title + ":" + "\n";
    for (const auto& [name, explanation] : entries) {
        text.append(indentation, ' ').append(name);
        const std::size_t end = indentation + name.size();
        if (explanation.empty()) {
            text += '\n';
            continue;
        }
        text.append(end + indentation > column ? "\n" + std::string(column, ' ')
                                               : std::string(column - end, ' '));
        text.append(wrapped(explanation, width(), column)).append("\n");
    }
    return text;
}

std::vector<Entry> entriesOf(const std::vector<const CLI::Option*>& options)
{
    std::vector<Entry> entries;
    for (const CLI::Option* const option : options) {
        const bool mustBeSaid = option->get_required() && option->nonpositional();
        entries.emplace_back(syntaxOf(*option),
                             option->get_description() + (mustBeSaid ? " (required)" : ""));
    }
    return entries;
}

/** The commands below, in the groups in which they were added. */
std::string commandTables(const CLI::App& command)
{
    std::vector<std::pair<std::string, std::vector<Entry>>> groups;
    for (const CLI::App* const below : commandsOf(command)) {
        if (groups.empty() || groups.back().first != below->get_group()) {
            groups.emplace_back(below->get_group(), std::vector<Entry>());
        }
        groups.back().second.emplace_back(below->get_name(), summaryOf(*below));
    }
    std::string text;
    for (const auto& [title, entries] : groups) {
        text += table(title, entries);
    }
    return text;
}

/** What a reader may want to know next. */
std::string hints(const CLI::App& command)
{
    std::string text;
    const CLI::App* program = &command;
    while (program->get_parent() != nullptr) {
        program = program->get_parent();
    }
    if (program != &command) {
        std::vector<std::string> shared;
        for (const CLI::Option* const option : allOptionsOf(command)) {
            const bool isAnsweredAtOnce =
                option == program->get_help_ptr() || option == program->get_version_ptr();
            if (command.get_option_no_throw(option->get_name()) != option && !isAnsweredAtOnce) {
                shared.push_back(option->get_name());
            }
        }
        text = "Shared options, which " + quoted(program->get_name() + " --help") +
               " explains: " + joined(shared, ", ") + ".";
    }
    if (!commandsOf(command).empty()) {
        text.append(text.empty() ? "" : "\n");
        text.append(quoted(fullNameOf(command) + " COMMAND --help") + " explains a command.");
    }
    return "\n" + wrapped(text, width()) + "\n";
}

void appendCommands(const CLI::App& command, std::vector<Entry>& entries)
{
    const auto below = commandsOf(command);
    if (below.empty()) {
        entries.emplace_back(pathOf(command), summaryOf(command));
    }
    for (const CLI::App* const each : below) {
        appendCommands(*each, entries);
    }
}

} // namespace

std::string helpText(const CLI::App& command)
{
    std::string text = wrapped(summaryOf(command), width()) + "\n\n" + "Usage: " + usageOf(command) + "\n";
    if (const std::string details = detailsOf(command); !details.empty()) {
        text += "\n" + wrapped(details, width()) + "\n";
    }
    text += table("Arguments", entriesOf(argumentsOf(command)));
    text += commandTables(command);
    text += table("Options", entriesOf(optionsOf(command)));
    if (command.get_parent() == nullptr) {
        std::vector<Entry> entries;
        for (const Topic& status : exitStatuses()) {
            entries.emplace_back(status.name, status.text);
        }
        text += table("Exit status", entries);
    }
    text += hints(command);
    const std::string example = command.get_footer();
    return text + (example.empty() ? "" : "\nExample: " + example + "\n");
}

std::string allCommands(const CLI::App& program)
{
    std::vector<Entry> entries;
    appendCommands(program, entries);
    return table("All commands", entries).substr(1);
}

} // namespace tools
