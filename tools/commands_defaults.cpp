// SPDX-License-Identifier: Apache-2.0
//
// Defaults files: what an operation gets from them, and what is wrong with them.
#include <algorithm>
#include <map>
#include <memory>

#include <unistd.h>

#include "tools/command_line.h"
#include "tools/defaults_files.h"
#include "tools/failures.h"
#include "tools/standard_streams.h"

namespace tools {

namespace {

/** What an operation does with its defaults. */
struct DefaultsUse {
    const char* operation;
    bool isLimited;                         // to 19 pairs
    std::vector<std::string> setAfterwards; // attributes that get another value after the defaults
};

constexpr int pairLimit = 19;

const std::vector<DefaultsUse>& defaultsUses()
{
    static const std::vector<DefaultsUse> uses = {
        {"EngineeringChangeCreate", false, {"id", "desc", "update_count", "initiator@person_identifier"}},
        {"AffectedItemCreate", true, {}},
        {"ItemCreate",
         false,
         {"logical_key@item_number", "logical_key@loc_id", "il_ec_number", "name", "design_loc_id",
          "update_count"}},
        {"ItemHeaderCreate",
         false,
         {"il_ec_number", "logical_key@item_number", "name", "description", "item_type", "x_sec_level_code",
          "x_sec_cat_code", "update_count"}},
        {"ItemPUEffectivityCreate",
         false,
         {"update_count", "loc_id", "item_number", "ecid", "prod_id", "cut_in_unit"}},
        {"DocumentCreateCheckIn", true, {}},
        {"DocumentCheckOut", true, {}},
        {"DocumentCheckIn", true, {}},
        {"DocumentCancelCheckOut", true, {}},
        {"DocumentMakeNewRevision", true, {}},
        {"DocumentMakeECControlled", true, {}},
        {"BomHeaderCreate", true, {}},
        {"ItemReferenceCreate", true, {}},
        {"XlatRead", false, {}},
    };
    return uses;
}

const DefaultsUse* useOf(const std::string& operation)
{
    const auto& uses = defaultsUses();
    const auto found = std::find_if(uses.begin(), uses.end(), [&operation](const DefaultsUse& use) {
        return use.operation == operation;
    });
    return found == uses.end() ? nullptr : &*found;
}

std::string operationNames()
{
    std::string names;
    for (const DefaultsUse& use : defaultsUses()) {
        names += std::string(names.empty() ? "" : ", ") + use.operation;
    }
    return names;
}

/** The pairs that an operation gets: a local entry takes the place of the first shared one of its attribute.
 */
std::vector<DefaultsEntry> pairsFor(const std::string& operation)
{
    std::vector<DefaultsEntry> pairs;
    const auto isOthers = [&operation](const DefaultsEntry& entry) { return entry.operation != operation; };
    for (const DefaultsEntry& entry : readDefaultsFile(sharedDefaultsFile())) {
        if (!isOthers(entry)) {
            pairs.push_back(entry);
        }
    }
    for (const DefaultsEntry& entry : readDefaultsFile(localDefaultsFile())) {
        const auto same = std::find_if(pairs.begin(), pairs.end(), [&entry](const DefaultsEntry& pair) {
            return pair.attribute == entry.attribute;
        });
        if (isOthers(entry)) {
            continue;
        }
        if (same == pairs.end()) {
            pairs.push_back(entry);
        } else {
            *same = entry;
        }
    }
    return pairs;
}

void show(const std::string& operation, const Settings& settings)
{
    if (useOf(operation) == nullptr) {
        throw Refused(operation + " is no operation that takes defaults; there are " + operationNames());
    }
    Records records{{"attribute", "value", "file", "line"}, {}};
    for (const DefaultsEntry& pair : pairsFor(operation)) {
        records.rows.push_back({pair.attribute, pair.value, pair.file, std::to_string(pair.line)});
    }
    writeRecords(records, Shape::List, settings.format);
}

/** Looks at the entries of one file, one after another. */
class Checker {
public:
    void check(const DefaultsEntry& entry)
    {
        if (entry.isLineTooLong) {
            complain(entry, "the line has more than 62 characters and is read in pieces; make it shorter");
            return;
        }
        const DefaultsUse* const use = useOf(entry.operation);
        if (use == nullptr) {
            complain(entry,
                     "no operation " + entry.operation + " takes defaults; there are " + operationNames());
        } else if (entry.value.empty()) {
            complain(entry, "the line has fewer than three words; write OPERATION ATTRIBUTE VALUE");
        } else {
            checkPair(entry, *use);
        }
    }

    const Records& complaints() const { return complaints_; }

private:
    void checkPair(const DefaultsEntry& entry, const DefaultsUse& use)
    {
        const auto [first, isNew] = lines_.emplace(std::pair(entry.operation, entry.attribute), entry.line);
        if (!isNew) {
            complain(entry, entry.attribute + " stands in line " + std::to_string(first->second) +
                                " as well; remove one of the two");
        }
        if (std::find(use.setAfterwards.begin(), use.setAfterwards.end(), entry.attribute) !=
            use.setAfterwards.end()) {
            complain(entry,
                     entry.operation + " sets " + entry.attribute + " itself afterwards; remove the line");
        }
        if (++pairs_[entry.operation] > pairLimit && use.isLimited) {
            complain(entry, entry.operation + " takes " + std::to_string(pairLimit) +
                                " pairs and this is one more; remove a line");
        }
    }

    void complain(const DefaultsEntry& entry, const std::string& problem)
    {
        complaints_.rows.push_back({entry.file, std::to_string(entry.line), problem});
    }

    std::map<std::pair<std::string, std::string>, int> lines_;
    std::map<std::string, int> pairs_;
    Records complaints_{{"file", "line", "problem"}, {}};
};

/** The file that was named, or those that are there of the two that are read. */
std::vector<std::string> filesToCheck(const std::string& named)
{
    const std::vector<std::string> candidates =
        named.empty() ? std::vector<std::string>{sharedDefaultsFile(), localDefaultsFile()}
                      : std::vector{named};
    std::vector<std::string> files;
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(files),
                 [](const std::string& path) { return access(path.c_str(), R_OK) == 0; });
    if (files.empty()) {
        throw Refused(named.empty() ? "there is neither " + candidates[0] + " nor " + candidates[1]
                                    : named + " cannot be read");
    }
    return files;
}

void check(const std::string& named, const Settings& settings)
{
    Records complaints{{"file", "line", "problem"}, {}};
    for (const std::string& path : filesToCheck(named)) {
        Checker checker;
        for (const DefaultsEntry& entry : readDefaultsFile(path)) {
            checker.check(entry);
        }
        const auto& found = checker.complaints().rows;
        complaints.rows.insert(complaints.rows.end(), found.begin(), found.end());
    }
    writeRecords(complaints, Shape::List, settings.format);
    if (!complaints.rows.empty()) {
        throw Refused(std::to_string(complaints.rows.size()) + " problems in the defaults files");
    }
}

} // namespace

void addDefaultsCommands(CommandLine& line)
{
    CLI::App& group = line.addGroup("defaults", "Defaults files");
    const auto operation = std::make_shared<std::string>();
    line.addCommand(group, "show", "Show the defaults that an operation gets, and where they come from",
                    "velrzm defaults show ItemCreate",
                    [&line, operation] { show(*operation, line.settings()); })
        .add_option("operation", *operation, "Name of the operation")
        ->required();
    const auto file = std::make_shared<std::string>();
    line.addCommand(group, "check", "Check the defaults files that operations read, or the one named",
                    "velrzm defaults check", [&line, file] { check(*file, line.settings()); })
        .add_option("file", *file, "Defaults file");
}

} // namespace tools
