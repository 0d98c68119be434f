// SPDX-License-Identifier: Apache-2.0
#include "tools/parts_list/columns.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "tools/output/text.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

/** What a column can mean, and the names that spreadsheets give it, the surest first. */
struct Meaning {
    std::string name;
    std::vector<std::string> usual; // as `matched` writes them
};

const std::vector<Meaning>& meanings()
{
    static const std::vector<Meaning> all = {
        {"level", {"level", "bomlevel", "lvl"}},
        {"parent", {"parent", "parentnumber", "parentitem", "parentpart", "parentpartnumber"}},
        {"item_number", {"itemnumber", "partnumber", "itemno", "partno", "item#", "part#", "part", "item"}},
        {"name", {"name", "itemname", "partname"}},
        {"item_type", {"itemtype"}},
        {"description", {"description", "desc"}},
        {"quantity", {"quantity", "qty", "count"}},
    };
    return all;
}

/** A name as it is compared. */
std::string matched(const std::string& name)
{
    std::string letters;
    for (const char c : name) {
        if (c != ' ' && c != '_' && c != '.' && c != '-') {
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return letters;
}

std::string namesOf(const std::vector<std::string>& header)
{
    std::vector<std::string> names(header.size());
    std::transform(header.begin(), header.end(), names.begin(), quoted);
    return "its columns are " + joined(names, ", ");
}

} // namespace

const std::vector<std::string>& partsListColumns()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Meaning& meaning : meanings()) {
            all.push_back(meaning.name);
        }
        return all;
    }();
    return names;
}

std::string attributeOfColumn(std::string column)
{
    std::transform(column.begin(), column.end(), column.begin(), [](unsigned char unit) {
        const bool isKept = std::isalnum(unit) != 0 || unit == '@'; // as in "master_item@control"
        return isKept ? static_cast<char>(std::tolower(unit)) : '_';
    });
    return column;
}

bool Columns::isKnown(const std::vector<std::string>& header,
                      const std::map<std::string, std::string>& mapped)
{
    return std::any_of(header.begin(), header.end(), [&mapped](const std::string& column) {
        const std::string name = matched(trimmed(column));
        return std::any_of(mapped.begin(), mapped.end(),
                           [&name](const auto& pair) { return matched(pair.second) == name; }) ||
               std::any_of(meanings().begin(), meanings().end(), [&name](const Meaning& meaning) {
                   return std::find(meaning.usual.begin(), meaning.usual.end(), name) != meaning.usual.end();
               });
    });
}

Columns::Columns(std::vector<std::string> header, const std::map<std::string, std::string>& mapped)
    : header_(std::move(header))
{
    std::map<std::string, std::size_t> byName;
    for (std::size_t place = 0; place < header_.size(); ++place) {
        header_[place] = trimmed(header_[place]);
        const auto [first, isNew] = byName.emplace(matched(header_[place]), place);
        if (!isNew && !header_[place].empty()) {
            throw WrongUsage("the columns " + std::to_string(first->second + 1) + " and " +
                             std::to_string(place + 1) + " have one name, " + quoted(header_[place]) +
                             "; rename or remove one");
        }
    }
    std::map<std::size_t, std::string> used;
    for (const auto& [meaning, column] : mapped) {
        const auto found = byName.find(matched(column));
        if (found == byName.end()) {
            throw WrongUsage("the file has no column " + quoted(column) + "; " + namesOf(header_));
        }
        places_[meaning] = found->second;
        used.emplace(found->second, meaning);
    }
    for (const Meaning& meaning : meanings()) {
        for (const std::string& usual : meaning.usual) {
            const auto found = byName.find(usual);
            if (found != byName.end() && places_.count(meaning.name) == 0 &&
                used.emplace(found->second, meaning.name).second) {
                places_[meaning.name] = found->second;
            }
        }
    }
    for (std::size_t place = 0; place < header_.size(); ++place) {
        if (used.count(place) == 0 && !header_[place].empty()) {
            others_.push_back(place);
        }
    }
    if (!has("item_number")) {
        throw WrongUsage("no column is the item number; say which one is with --map item_number=COLUMN; " +
                         namesOf(header_) +
                         (header_.size() == 1 ? " (is the delimiter right? see --delimiter)" : ""));
    }
}

std::string Columns::field(const std::vector<std::string>& row, const std::string& meaning) const
{
    const auto found = places_.find(meaning);
    return found == places_.end() ? "" : trimmed(row[found->second]);
}

std::string Columns::description(bool othersAreKept) const
{
    std::vector<std::string> uses;
    for (const auto& [meaning, place] : places_) {
        uses.push_back(quoted(header_[place]) + " is " + meaning);
    }
    std::vector<std::string> left;
    for (const std::size_t place : others_) {
        if (othersAreKept) {
            uses.push_back(quoted(header_[place]) + " is the attribute " + attributeOfColumn(header_[place]));
        } else {
            left.push_back(quoted(header_[place]));
        }
    }
    return "column " + joined(uses, ", ") + (left.empty() ? "" : "; not used: " + joined(left, ", "));
}

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

} // namespace tools
