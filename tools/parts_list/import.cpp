// SPDX-License-Identifier: Apache-2.0
#include "tools/parts_list/import.h"

#include <algorithm>
#include <set>
#include <utility>

#include "tools/output/progress.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/server_list.h"

namespace tools {

namespace {

constexpr const char* itemNumber = "logical_key@item_number";

int numberOf(const std::string& sequence)
{
    return std::max(wholeNumber(sequence).value_or(0), 0);
}

} // namespace

Import::Import(PartsList& list, ImportRequest request)
    : list_(list), request_(std::move(request)), builder_(request_.change), plans_(list.items.size())
{
    std::set<std::string> names;
    for (std::size_t place = 0; place < list_.items.size(); ++place) {
        places_.emplace(list_.items[place].number, place);
        for (const auto& [name, value] : list_.items[place].attributes) {
            names.insert(name);
        }
    }
    attributeNames_.assign(names.begin(), names.end());
}

void Import::plan()
{
    checkChange();
    readItems();
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        planItem(place);
    }
    readStructure();
    if (request_.recordAffectedItems) {
        readAffectedItems();
    }
}

void Import::checkChange() const
{
    if (rowsOf({"EngineeringChange", {"id"}, {isOneOf("id", {request_.change})}, {}}).empty()) {
        throw Refused("there is no engineering change " + request_.change + "; make it with " +
                      quoted("velrzm ec create " + request_.change));
    }
}

std::vector<std::string> Import::numbers() const
{
    std::vector<std::string> all(list_.items.size());
    std::transform(list_.items.begin(), list_.items.end(), all.begin(),
                   [](const PartsListItem& item) { return item.number; });
    return all;
}

void Import::readItems()
{
    ServerList stored{
        "ItemEngineeringData", {itemNumber, "il_ec_number", "name", "item_type"}, {}, {"db_object_id"}};
    stored.select.insert(stored.select.end(), attributeNames_.begin(), attributeNames_.end());
    constexpr std::ptrdiff_t keys = 4;
    for (std::vector<std::string>& row : rowsOfAny(stored, itemNumber, numbers())) {
        Plan& plan = plans_[places_.at(row[0])]; // the newest record comes last and stays
        plan.isStored = true;
        plan.stored = {row[1], row[2], row[3], {row.begin() + keys, row.end()}};
    }
}

void Import::planItem(std::size_t place)
{
    const PartsListItem& item = list_.items[place];
    Plan& plan = plans_[place];
    if (!plan.isStored) {
        return;
    }
    ++counts_.itemsBefore;
    std::vector<std::string> differences;
    const auto compare = [&differences](const std::string& what, const std::string& stored,
                                        const std::string& told) {
        if (!told.empty() && told != stored) {
            differences.push_back(what + " " + quoted(stored) + ", here " + quoted(told));
        }
    };
    compare("the name", plan.stored.name, item.name);
    compare("the item_type", plan.stored.type, item.type);
    for (const auto& [name, value] : item.attributes) {
        const auto column = std::lower_bound(attributeNames_.begin(), attributeNames_.end(), name);
        compare(name, plan.stored.attributes[static_cast<std::size_t>(column - attributeNames_.begin())],
                value);
    }
    if (differences.empty()) {
        return;
    }
    plan.isChanged = request_.existing == Existing::Update;
    list_.notes.push_back("line " + std::to_string(item.line) + ": item " + item.number + " is stored with " +
                          joined(differences, "; ") +
                          (plan.isChanged ? "" : "; it stays as it is stored unless --update is given"));
}

void Import::readStructure()
{
    std::vector<std::string> parents;
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        if (plans_[place].isStored && !list_.lines[place].empty()) {
            parents.push_back(list_.items[place].number);
        }
    }
    for (const std::vector<std::string>& row :
         rowsOfAny({"BomHeader", {itemNumber}, {}, {}}, itemNumber, parents)) {
        plans_[places_.at(row[0])].hasHeader = true;
    }
    std::map<std::size_t, std::vector<StoredLine>> stored;
    const ServerList lines{"Component",
                           {itemNumber, "logical_key@comp_item_number", "logical_key@comp_seq_nm",
                            "il_ec_number", "db_object_id"},
                           {},
                           {}};
    for (const std::vector<std::string>& row : rowsOfAny(lines, itemNumber, parents)) {
        stored[places_.at(row[0])].push_back({row[1], row[2], row[3], row[4]});
    }
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        planLines(place, stored[place]);
    }
}

void Import::planLines(std::size_t place, const std::vector<StoredLine>& stored)
{
    const std::vector<PartsListLine>& told = list_.lines[place];
    if (told.empty()) {
        return;
    }
    const PartsListItem& item = list_.items[place];
    Plan& plan = plans_[place];
    for (const StoredLine& line : stored) {
        plan.lastSequence = std::max(plan.lastSequence, numberOf(line.sequence));
    }
    if (stored.empty() || request_.existing == Existing::Add) {
        plan.added = told;
    } else if (request_.existing == Existing::Update) {
        update(place, stored);
    } else {
        list_.complaints.push_back(
            {told.front().line,
             item.number + " has " + counted(stored.size(), "component line") +
                 " in the store already; --update makes them equal to the list, --add adds the "
                 "list's lines to them"});
    }
    if (!plan.isStored && item.line == 0 && !request_.createParents && !item.isTop) {
        complainOfUnknownParent(place);
    }
}

void Import::complainOfUnknownParent(std::size_t place)
{
    constexpr std::size_t withSuggestion = 20; // each costs a look at all numbers
    const std::string& number = list_.items[place].number;
    std::vector<std::string> near;
    if (++unknownParents_ <= withSuggestion) {
        std::vector<std::string> others = numbers();
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(place));
        near = nearest(number, others);
    }
    list_.complaints.push_back({lineOf(place), "there is no parent " + number +
                                                   ", neither in the list nor in the store" +
                                                   didYouMean(near) + " (--create-parents makes it)"});
}

std::size_t Import::lineOf(std::size_t place) const
{
    const std::size_t line = list_.items[place].line;
    return line == 0 && !list_.lines[place].empty() ? list_.lines[place].front().line : line;
}

/** Keeps as many stored lines of each component as the list has, removes those beyond, and adds what is missing. */
void Import::update(std::size_t place, std::vector<StoredLine> stored)
{
    Plan& plan = plans_[place];
    std::sort(stored.begin(), stored.end(), [](const StoredLine& left, const StoredLine& right) {
        return numberOf(left.sequence) < numberOf(right.sequence);
    });
    std::map<std::string, int> missing; // of each component, as the list goes on
    for (const PartsListLine& line : list_.lines[place]) {
        missing[list_.items[line.item].number] += line.quantity;
    }
    std::map<std::string, int> kept;
    for (StoredLine& line : stored) {
        const auto wanted = missing.find(line.component);
        if (wanted != missing.end() && kept[line.component] < wanted->second) {
            ++kept[line.component];
            ++counts_.keptLines;
        } else {
            plan.removed.push_back(std::move(line));
        }
    }
    for (PartsListLine line : list_.lines[place]) {
        int& there = kept[list_.items[line.item].number];
        const int covered = std::min(there, line.quantity);
        there -= covered;
        line.quantity -= covered;
        if (line.quantity > 0) {
            plan.added.push_back(line);
        }
    }
}

void Import::readAffectedItems()
{
    const ServerList affected{"AffectedItem", {"item_number"}, {isOneOf("ec@id", {request_.change})}, {}};
    for (const std::vector<std::string>& row : rowsOf(affected)) {
        if (const auto found = places_.find(row[0]); found != places_.end()) {
            plans_[found->second].isAffected = true;
        }
    }
}

template <typename Step>
void Import::attempt(std::size_t line, Step step)
{
    try {
        step();
    } catch (const Failure& failure) {
        list_.complaints.push_back({line, failure.what()});
    }
}

void Import::carryOut()
{
    Progress progress("items");
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        storeItem(place);
        progress.show(place + 1, 2 * plans_.size());
    }
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        storeLines(place);
        progress.show(plans_.size() + place + 1, 2 * plans_.size());
    }
}

void Import::storeItem(std::size_t place)
{
    const PartsListItem& item = list_.items[place];
    const Plan& plan = plans_[place];
    if (plan.isStored && !plan.isChanged) {
        return;
    }
    NewItem stored{item.number, item.name, item.type, {}, {}};
    for (const auto& [name, value] : item.attributes) {
        stored.attributeNames.push_back(name);
        stored.attributeValues.push_back(value);
    }
    attempt(lineOf(place), [&] {
        if (plan.isStored) {
            stored.name = stored.name.empty() ? plan.stored.name : stored.name;
            builder_.changeItem(stored, plan.stored.change);
            ++counts_.changedItems;
            return;
        }
        stored.name = stored.name.empty() ? item.number : stored.name;
        builder_.createItem(stored, !list_.lines[place].empty());
        ++counts_.items;
    });
    if (request_.recordAffectedItems && !plan.isAffected) {
        attempt(lineOf(place),
                [&] { builder_.recordAffectedItem(item.number, plan.isStored ? "CHG" : "REL"); });
    }
}

void Import::storeLines(std::size_t place)
{
    const std::string& parent = list_.items[place].number;
    const Plan& plan = plans_[place];
    if (plan.added.empty() && plan.removed.empty()) {
        return;
    }
    const std::size_t first = list_.lines[place].front().line;
    if (plan.isStored && !plan.hasHeader) {
        attempt(first, [&] { builder_.createHeader(parent); });
    }
    for (const StoredLine& line : plan.removed) {
        attempt(first, [&] {
            builder_.removeComponent({parent, line.component, line.sequence, line.change, line.identifier});
            ++counts_.removedLines;
        });
    }
    builder_.continueAfter(parent, plan.lastSequence);
    for (const PartsListLine& line : plan.added) {
        attempt(line.line, [&] {
            builder_.addComponent(parent, list_.items[line.item].number, line.quantity);
            counts_.lines += static_cast<std::size_t>(line.quantity);
        });
    }
    if (request_.recordAffectedItems && plan.isStored && !plan.isChanged && !plan.isAffected) {
        attempt(first, [&] { builder_.recordAffectedItem(parent, "CHG"); });
    }
}

Records Import::differences() const
{
    Records records{{"difference", "parent", "component", "quantity"}, {}};
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        std::map<std::pair<std::string, std::string>, int> changes; // what happens to which component
        for (const StoredLine& line : plans_[place].removed) {
            ++changes[{"removed", line.component}];
        }
        for (const PartsListLine& line : plans_[place].added) {
            changes[{"added", list_.items[line.item].number}] += line.quantity;
        }
        for (const auto& [change, quantity] : changes) {
            records.rows.push_back(
                {change.first, list_.items[place].number, change.second, std::to_string(quantity)});
        }
    }
    return records;
}

} // namespace tools
