// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/parts_list.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>

#include "tools/process/failures.h"

namespace tools {

namespace {

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char unit) { return static_cast<char>(std::toupper(unit)); });
    return text;
}

std::optional<int> wholeNumber(const std::string& text)
{
    constexpr std::size_t maxDigits = 6;
    const bool isNumber = !text.empty() && text.size() <= maxDigits &&
                          text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? std::optional<int>(std::stoi(text)) : std::nullopt;
}

/** The depth that a level says: of "3" it is 3, of "1.2.1" as well. */
std::optional<int> depthOf(const std::string& level)
{
    if (level.find('.') == std::string::npos) {
        return wholeNumber(level);
    }
    const bool isDotted = level.find_first_not_of("0123456789.") == std::string::npos;
    return isDotted ? std::optional<int>(static_cast<int>(std::count(level.begin(), level.end(), '.')) + 1)
                    : std::nullopt;
}

/** Turns the rows of a file into rows of a parts list, one after another. */
class PartsListReader {
public:
    PartsListReader(csv::Record header, const PartsListRules& rules)
        : header_(std::move(header)), rules_(rules)
    {
        for (std::string& name : header_.fields) {
            name = trimmed(name);
        }
        for (const auto& [ours, theirs] : rules_.columns) {
            places_[ours] = place(theirs);
        }
        for (const std::string& ours : partsListColumns()) {
            const auto found = std::find(header_.fields.begin(), header_.fields.end(), ours);
            if (found != header_.fields.end()) {
                places_.emplace(ours, static_cast<std::size_t>(found - header_.fields.begin()));
            }
        }
        if (places_.count("item_number") == 0) {
            throw WrongUsage(
                "no column is the item number; say which one is with --map item_number=COLUMN; " +
                columnNames());
        }
        if (places_.count("level") == 0 && places_.count("parent") == 0 && rules_.top.empty()) {
            throw WrongUsage(
                "nothing says what stands below what; name the column with --map level=COLUMN or --map "
                "parent=COLUMN, or the item above all with --top ITEM");
        }
    }

    void read(const csv::Record& row)
    {
        try {
            PartsListRow line = understood(row);
            list_.rows.push_back(std::move(line));
        } catch (const Refused& error) {
            list_.complaints.push_back({row.line, error.what()});
        }
    }

    PartsList finished()
    {
        checkRepetitions();
        return std::move(list_);
    }

private:
    /** An item where it stands in the list; its row counts all occurrences of its parent apart. */
    struct Occurrence {
        int depth;
        std::string item;
        std::size_t number; // 0 for what stands above all
    };

    std::size_t place(const std::string& column) const
    {
        const auto found = std::find(header_.fields.begin(), header_.fields.end(), column);
        if (found == header_.fields.end()) {
            throw WrongUsage("the file has no column \"" + column + "\"; " + columnNames());
        }
        return static_cast<std::size_t>(found - header_.fields.begin());
    }

    std::string columnNames() const
    {
        std::string names = "its columns are:";
        for (const std::string& name : header_.fields) {
            names += " \"" + name + "\"";
        }
        return names;
    }

    std::string field(const csv::Record& row, const std::string& ours) const
    {
        const auto found = places_.find(ours);
        return found == places_.end() ? "" : trimmed(row.fields[found->second]);
    }

    PartsListRow understood(const csv::Record& row)
    {
        if (row.fields.size() != header_.fields.size()) {
            throw Refused("it has " + std::to_string(row.fields.size()) + " fields, and there are " +
                          std::to_string(header_.fields.size()) + " columns");
        }
        PartsListRow line{row.line, itemOf(row), "", quantityOf(row), false};
        const Occurrence parent = parentOf(row, line.item.number);
        line.parent = parent.item;
        noteLine(parent, line);
        checkItem(line);
        return line;
    }

    NewItem itemOf(const csv::Record& row) const
    {
        NewItem item{upperCase(field(row, "item_number")),
                     upperCase(field(row, "name")),
                     field(row, "item_type"),
                     {},
                     {}};
        if (item.number.empty()) {
            throw Refused("it has no item number");
        }
        for (std::size_t column = 0; rules_.keepOtherColumns && column < row.fields.size(); ++column) {
            const bool isOurs = std::any_of(places_.begin(), places_.end(),
                                            [column](const auto& known) { return known.second == column; });
            if (!isOurs && !row.fields[column].empty()) {
                item.attributeNames.push_back(attributeOfColumn(header_.fields[column]));
                item.attributeValues.push_back(row.fields[column]);
            }
        }
        return item;
    }

    int quantityOf(const csv::Record& row) const
    {
        const std::string text = field(row, "quantity");
        const std::optional<int> quantity = text.empty() ? 1 : wholeNumber(text);
        if (!quantity.has_value() || *quantity == 0) {
            throw Refused("the quantity " + text + " is no whole number of occurrences above 0");
        }
        return *quantity;
    }

    Occurrence parentOf(const csv::Record& row, const std::string& item)
    {
        const std::string top = upperCase(rules_.top);
        if (places_.count("level") > 0) {
            return parentByLevel(field(row, "level"), item);
        }
        const std::string parent = upperCase(field(row, "parent"));
        return {0, parent.empty() && item != top ? top : parent, 0};
    }

    Occurrence parentByLevel(const std::string& level, const std::string& item)
    {
        const std::optional<int> depth = depthOf(level);
        if (!depth.has_value()) {
            throw Refused("the level \"" + level + "\" is neither a number nor of the form 1.2.3");
        }
        if (branch_.empty()) {
            firstDepth_ = *depth;
        }
        if (*depth < firstDepth_ || (!branch_.empty() && *depth > branch_.back().depth + 1)) {
            throw Refused("the level " + level + " does not follow from the row before");
        }
        while (!branch_.empty() && branch_.back().depth >= *depth) {
            branch_.pop_back();
        }
        Occurrence parent = branch_.empty() ? Occurrence{0, upperCase(rules_.top), 0} : branch_.back();
        branch_.push_back({*depth, item, ++occurrences_});
        return parent;
    }

    /** The lines of an assembly are those of its first occurrence that has any. */
    void noteLine(const Occurrence& parent, PartsListRow& line)
    {
        const std::size_t first = structures_.emplace(parent.item, parent.number).first->second;
        line.isRepeated = first != parent.number;
        Occurrences& told = lines_[parent.item];
        told[parent.number].first = told[parent.number].first == 0 ? line.line : told[parent.number].first;
        told[parent.number].second[line.item.number] += line.quantity;
    }

    void checkItem(const PartsListRow& line)
    {
        const auto [first, isNew] = items_.emplace(line.item.number, std::pair(line.line, line.item.name));
        if (!isNew && first->second.second != line.item.name && !line.item.name.empty()) {
            throw Refused("item " + line.item.number + " has the name \"" + line.item.name +
                          "\", and in line " + std::to_string(first->second.first) + " \"" +
                          first->second.second + "\"");
        }
    }

    void checkRepetitions()
    {
        for (const auto& [parent, told] : lines_) {
            for (const auto& [number, lines] : told) {
                if (!parent.empty() && lines.second != told.begin()->second.second) {
                    list_.complaints.push_back(
                        {lines.first, "what stands below " + parent +
                                          " here is not what stands below it in line " +
                                          std::to_string(told.begin()->second.first)});
                }
            }
        }
    }

    /** By occurrence: the first line below it, and how often each item stands below it. */
    using Occurrences = std::map<std::size_t, std::pair<std::size_t, std::map<std::string, int>>>;

    csv::Record header_;
    const PartsListRules& rules_;
    std::map<std::string, std::size_t> places_;
    std::vector<Occurrence> branch_;
    int firstDepth_ = 0;
    std::size_t occurrences_ = 0;
    std::map<std::string, std::size_t> structures_; // the occurrence that tells what stands below an item
    std::map<std::string, Occurrences> lines_;
    std::map<std::string, std::pair<std::size_t, std::string>>
        items_; // the line and the name that it came with first
    PartsList list_;
};

} // namespace

const std::vector<std::string>& partsListColumns()
{
    static const std::vector<std::string> columns = {"level", "parent",    "item_number",
                                                     "name",  "item_type", "quantity"};
    return columns;
}

std::string attributeOfColumn(std::string column)
{
    std::transform(column.begin(), column.end(), column.begin(), [](unsigned char unit) {
        const bool isKept = std::isalnum(unit) != 0 || unit == '@'; // as in "master_item@control"
        return isKept ? static_cast<char>(std::tolower(unit)) : '_';
    });
    return column;
}

PartsList readPartsList(const std::vector<csv::Record>& file, const PartsListRules& rules)
{
    if (file.empty()) {
        throw Refused("the file is empty; its first row must name the columns");
    }
    PartsListReader reader(file.front(), rules);
    std::for_each(file.begin() + 1, file.end(), [&reader](const csv::Record& row) { reader.read(row); });
    return reader.finished();
}

} // namespace tools
