// SPDX-License-Identifier: Apache-2.0
//
// Defaults files: what an operation gets from them, and what is wrong with them.
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <CLI/App.hpp>

#include "config/defaults_file.h"
#include "tools/command_line/command_line.h"
#include "tools/commands/attribute_check.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/site_files/defaults_check.h"
#include "tools/site_files/defaults_uses.h"

namespace tools {

namespace {

using velrzm::DefaultsEntry;
using velrzm::readDefaultsFile;

std::string sharedFile()
{
    const auto path = velrzm::sharedDefaultsPath();
    if (!path) {
        throw Refused("the path of the shared defaults file has more than " +
                      std::to_string(velrzm::longestDefaultsPath) +
                      " characters, and operations skip the file; shorten RZM_DEFAULT_DIRECTORY");
    }
    return *path;
}

void show(const std::string& operation, const Settings& settings)
{
    if (usesOfEntries(operation).empty()) {
        throw Refused("no defaults are read for " + operation + ", only for " + operationsWithDefaults());
    }
    const auto entriesIn = [&operation](const std::string& path) {
        return readDefaultsFile(path, operation.c_str()).value_or(std::vector<DefaultsEntry>());
    };
    std::vector<DefaultsEntry> entries = entriesIn(sharedFile());
    velrzm::overrideDefaults(entries, entriesIn(velrzm::localDefaultsPath));
    Records records{{"attribute", "value", "file", "line"}, {}};
    for (const DefaultsEntry& entry : entries) {
        records.rows.push_back({entry.name, entry.value, entry.file, std::to_string(entry.line)});
    }
    writeRecords(records, Shape::List, settings.format);
    if (records.rows.empty()) {
        throw NothingFound("no defaults are set for " + operation);
    }
}

/** Warns of attributes that may be misspelt; a site may have new ones, so they count as no problem. */
void warnOfMisspeltEntries(std::vector<DefaultsEntry> entries, const std::vector<DefaultsEntry>& more)
{
    entries.insert(entries.end(), more.begin(), more.end());
    std::map<std::string, std::set<std::string>> names; // of the attributes, by class
    for (const DefaultsEntry& entry : entries) {
        for (const DefaultsUse& use : usesOfEntries(entry.operation)) {
            if (use.effect == DefaultsUse::Effect::SetOnObject && !entry.value.empty()) {
                names[use.className].insert(entry.name);
            }
        }
    }
    for (const auto& [className, attributes] : names) {
        warnOfMisspeltAttributes(className, {attributes.begin(), attributes.end()});
    }
}

void check(const std::string& named, const Settings& settings)
{
    const std::string first = named.empty() ? sharedFile() : named;
    const auto shared = readDefaultsFile(first);
    const auto local = named.empty() ? readDefaultsFile(velrzm::localDefaultsPath) : std::nullopt;
    if (!shared && !local) {
        throw Refused(named.empty() ? "there is neither " + first + " nor " + velrzm::localDefaultsPath
                                    : named + " cannot be read");
    }
    const std::vector<DefaultsEntry> none;
    Records records{{"file", "line", "problem"}, {}};
    for (const DefaultsProblem& problem : checkDefaults(shared.value_or(none), local.value_or(none))) {
        records.rows.push_back({problem.file, std::to_string(problem.line), problem.text});
    }
    writeRecords(records, Shape::List, settings.format);
    warnOfMisspeltEntries(shared.value_or(none), local.value_or(none));
    if (!records.rows.empty()) {
        throw Refused(counted(records.rows.size(), "problem") + " in the defaults files");
    }
}

} // namespace

void addDefaultsCommands(CommandLine& line)
{
    CLI::App& group = line.addGroup(
        "defaults",
        "Show and check the defaults files\n\n"
        "Defaults files give attributes to the objects that operations create or change. Two are read: "
        "QVL_RZM_DEFAULT in the directory that RZM_DEFAULT_DIRECTORY names, or in the working directory, "
        "and My_QVL_RZM_DEFAULT in the working directory, which wins.");
    const auto operation = std::make_shared<std::string>();
    line.addCommand(group, "show", "Show the defaults that an operation gets, and where they come from",
                    "velrzm defaults show ItemCreate",
                    [&line, operation] { show(*operation, line.settings()); })
        .add_option("operation", *operation, "Name of the operation, such as ItemCreate")
        ->required();
    const auto file = std::make_shared<std::string>();
    line.addCommand(group, "check", "Check the defaults files that operations read, or the one named",
                    "velrzm defaults check", [&line, file] { check(*file, line.settings()); })
        .add_option("file", *file, "Defaults file to check alone");
}

} // namespace tools
