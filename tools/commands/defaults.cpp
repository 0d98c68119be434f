// SPDX-License-Identifier: Apache-2.0
//
// Defaults files: what an operation gets from them, and what is wrong with them.
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include <unistd.h>

#include "tools/command_line/command_line.h"
#include "tools/process/failures.h"
#include "tools/process/standard_streams.h"
#include "tools/site_files/defaults_files.h"
#include "tools/site_files/defaults_uses.h"

namespace tools {

namespace {

/** What entries may name, each once. */
std::set<std::string> entryNames()
{
    std::set<std::string> names;
    for (const DefaultsUse& use : defaultsUses()) {
        names.insert(use.entries);
    }
    return names;
}

std::string joined(const std::set<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : ", ") + text;
    }
    return all;
}

void show(const std::string& operation, const Settings& settings)
{
    if (usesOfEntries(operation).empty()) {
        throw Refused("no defaults are read for " + operation + ", only for " + joined(entryNames()));
    }
    Records records{{"attribute", "value", "file", "line"}, {}};
    for (const DefaultsEntry& pair :
         pairsFor(operation, readDefaultsFile(sharedDefaultsFile()), readDefaultsFile(localDefaultsFile()))) {
        records.rows.push_back({pair.attribute, pair.value, pair.file, std::to_string(pair.line)});
    }
    writeRecords(records, Shape::List, settings.format);
}

/** The place of an entry. */
using Place = std::pair<std::string, int>;

Place placeOf(const DefaultsEntry& entry)
{
    return {entry.file, entry.line};
}

/** The entries that are one too many for their operation. */
std::set<Place> entriesBeyondLimit(const std::vector<DefaultsEntry>& shared,
                                   const std::vector<DefaultsEntry>& local)
{
    std::set<Place> beyond;
    for (const DefaultsUse& use : defaultsUses()) {
        const std::vector<DefaultsEntry> pairs = pairsFor(use.entries, shared, local);
        for (std::size_t place = defaultsLimit;
             use.limit == DefaultsUse::Limit::First19 && place < pairs.size(); ++place) {
            beyond.insert(placeOf(pairs[place]));
        }
    }
    return beyond;
}

/** Looks at the entries of files, one after another. */
class Checker {
public:
    explicit Checker(std::set<Place> beyondLimit) : beyondLimit_(std::move(beyondLimit)) {}

    void check(const DefaultsEntry& entry)
    {
        const std::vector<DefaultsUse> uses = usesOfEntries(entry.operation);
        if (entry.isLineTooLong) {
            complain(entry, "the line has more than 62 characters and is read in pieces; make it shorter");
        } else if (uses.empty()) {
            complain(entry,
                     "no defaults are read for " + entry.operation + ", only for " + joined(entryNames()));
        } else if (entry.value.empty()) {
            complain(entry, "the line has fewer than three words; write OPERATION ATTRIBUTE VALUE");
        } else {
            checkRepetition(entry);
            checkEffect(entry, uses);
        }
    }

    const Records& complaints() const { return complaints_; }

private:
    void checkRepetition(const DefaultsEntry& entry)
    {
        const auto [first, isNew] =
            lines_.emplace(std::tuple(entry.file, entry.operation, entry.attribute), entry.line);
        if (!isNew) {
            complain(entry, entry.attribute + " stands in line " + std::to_string(first->second) +
                                " as well; remove one of the two");
        }
    }

    /** Whether anything comes of the entry. */
    void checkEffect(const DefaultsEntry& entry, const std::vector<DefaultsUse>& uses)
    {
        std::set<std::string> setting;
        for (const DefaultsUse& use : uses) {
            if (std::count(use.setAfterwards.begin(), use.setAfterwards.end(), entry.attribute) > 0) {
                setting.insert(use.operation);
            }
            if (use.effect == DefaultsUse::Effect::OnlyLogged) {
                complain(entry, std::string(use.operation) + " sets none of its defaults; remove the line");
            }
        }
        if (!setting.empty()) {
            complain(entry, entry.attribute + " is set afterwards, whatever stands here, by " +
                                joined(setting) + "; remove the line");
        }
        if (beyondLimit_.count(placeOf(entry)) > 0) {
            complain(entry, entry.operation + " takes " + std::to_string(defaultsLimit) +
                                " pairs from all files and this is one more; remove a line");
        }
    }

    void complain(const DefaultsEntry& entry, const std::string& problem)
    {
        complaints_.rows.push_back({entry.file, std::to_string(entry.line), problem});
    }

    std::set<Place> beyondLimit_;
    std::map<std::tuple<std::string, std::string, std::string>, int> lines_;
    Records complaints_{{"file", "line", "problem"}, {}};
};

void check(const std::string& named, const Settings& settings)
{
    const std::string shared = named.empty() ? sharedDefaultsFile() : named;
    const std::string local = named.empty() ? localDefaultsFile() : "";
    const auto isReadable = [](const std::string& path) { return access(path.c_str(), R_OK) == 0; };
    if (!isReadable(shared) && !isReadable(local)) {
        throw Refused(named.empty() ? "there is neither " + shared + " nor " + local
                                    : named + " cannot be read");
    }
    const std::vector<DefaultsEntry> sharedEntries = readDefaultsFile(shared);
    const std::vector<DefaultsEntry> localEntries = readDefaultsFile(local);
    Checker checker(entriesBeyondLimit(sharedEntries, localEntries));
    for (const auto* const entries : {&sharedEntries, &localEntries}) {
        std::for_each(entries->begin(), entries->end(),
                      [&checker](const DefaultsEntry& entry) { checker.check(entry); });
    }
    const Records& complaints = checker.complaints();
    writeRecords(complaints, Shape::List, settings.format);
    if (!complaints.rows.empty()) {
        throw Refused(std::to_string(complaints.rows.size()) + " problems in the defaults files");
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
