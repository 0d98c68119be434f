// SPDX-License-Identifier: Apache-2.0
#include "tools/parts_list/parts_list.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>
#include <utility>

#include "csv/csv_file.h"
#include "tools/output/text.h"
#include "tools/parts_list/columns.h"
#include "tools/parts_list/quantity.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"

namespace tools {

namespace {

/** The longest number that a search for its beginning can name. */
constexpr std::size_t maxNumberLength = 44;
constexpr auto nothing = static_cast<std::size_t>(-1);

/** The depth that a level says: of "3" and "..3" it is 3, of "1.2.1" as well. */
std::optional<int> depthOf(std::string level)
{
    constexpr std::size_t maxDigits = 6;
    level.erase(0, level.find_first_not_of('.'));
    if (level.empty() || level.find_first_not_of("0123456789.") != std::string::npos) {
        return std::nullopt;
    }
    const auto dots = std::count(level.begin(), level.end(), '.');
    if (dots == 0 && level.size() > maxDigits) {
        return std::nullopt;
    }
    return dots == 0 ? std::stoi(level) : static_cast<int>(dots) + 1;
}

std::size_t filledCells(const std::vector<std::string>& fields)
{
    return static_cast<std::size_t>(std::count_if(
        fields.begin(), fields.end(), [](const std::string& field) { return !trimmed(field).empty(); }));
}

/** The items of a list and how they were written. */
class ItemTable {
public:
    explicit ItemTable(PartsList& list) : list_(list) {}

    /** The place of the item with this number, which is made when it is new. */
    std::size_t placeOf(const std::string& number)
    {
        const auto [found, isNew] = places_.emplace(number, list_.items.size());
        if (isNew) {
            list_.items.emplace_back().number = number;
            list_.lines.emplace_back();
        }
        return found->second;
    }

    /** Takes what a row says of an item. Throws Refused when an earlier row says something else. */
    std::size_t describe(const std::string& written, PartsListItem row)
    {
        const std::size_t place = placeOf(row.number);
        PartsListItem& item = list_.items[place];
        noteWriting(place, written, row.line);
        agree(item, item.name, row.name, "name");
        agree(item, item.type, row.type, "item_type");
        for (auto& [name, value] : row.attributes) {
            const auto known = std::find_if(item.attributes.begin(), item.attributes.end(),
                                            [&name = name](const auto& pair) { return pair.first == name; });
            if (known == item.attributes.end()) {
                item.attributes.emplace_back(std::move(name), std::move(value));
            } else {
                agree(item, known->second, value, name);
            }
        }
        item.line = item.line == 0 ? row.line : item.line;
        return place;
    }

    std::size_t writtenInLowerCase() const { return writings_.size(); }

private:
    static void agree(const PartsListItem& item, std::string& known, std::string& told,
                      const std::string& what)
    {
        if (known.empty()) {
            known = std::move(told);
        } else if (!told.empty() && told != known) {
            throw Refused("item " + item.number + " has the " + what + " " + quoted(told) + ", and in line " +
                          std::to_string(item.line) + " " + quoted(known));
        }
    }

    /** Numbers that only case or blanks tell apart become one: that is told, once for each item. */
    void noteWriting(std::size_t place, const std::string& written, std::size_t line)
    {
        const PartsListItem& item = list_.items[place];
        const auto before = writings_.find(place);
        const std::string& first = before == writings_.end() ? item.number : before->second;
        if (item.line == 0) {
            if (written != item.number) {
                writings_.emplace(place, written);
            }
        } else if (written != first && merged_.insert(place).second) {
            list_.notes.push_back("the numbers " + quoted(first) + " in line " + std::to_string(item.line) +
                                  " and " + quoted(written) + " in line " + std::to_string(line) +
                                  " are one item, " + item.number);
        }
    }

    PartsList& list_;
    std::unordered_map<std::string, std::size_t> places_;
    std::unordered_map<std::size_t, std::string> writings_; // as first written, where that is not the number
    std::set<std::size_t> merged_;
};

/** Turns the rows of a file into a parts list, one after another. */
class PartsListReader {
public:
    explicit PartsListReader(const PartsListRules& rules) : rules_(rules)
    {
        if (!rules.top.empty()) {
            top_ = items_.placeOf(inUpperCase(trimmed(rules.top)));
            list_.items[top_].isTop = true;
        }
    }

    void take(csv::Record& record)
    {
        checkInterruption();
        if (record.line <= rules_.skippedLines || filledCells(record.fields) == 0) {
            return;
        }
        if (!columns_.has_value()) {
            takeHeader(record);
            return;
        }
        try {
            read(record);
        } catch (const Refused& error) {
            list_.complaints.push_back({record.line, error.what()});
        }
    }

    PartsList finish()
    {
        if (!columns_.has_value()) {
            if (title_.empty()) {
                throw Refused("the file is empty; its first row must name the columns");
            }
            setColumns(title_); // which says what is wrong with it
        }
        closeTo(-1);
        if (top_ != nothing) {
            close({-1, top_, 0, std::move(topLines_)});
        }
        describeNumbers();
        return std::move(list_);
    }

private:
    /** An item where it stands in the list, with what was read below it. */
    struct Occurrence {
        int depth;
        std::size_t item; // nothing for a row that is not stored
        std::size_t line;
        std::vector<PartsListLine> below;
    };

    void takeHeader(const csv::Record& record)
    {
        const bool isTitle =
            filledCells(record.fields) == 1 && !Columns::isKnown(record.fields, rules_.columns);
        if (isTitle) {
            title_ = title_.empty() ? record.fields : title_;
            ++titles_;
            return;
        }
        setColumns(record.fields);
        list_.header = record.text;
        if (titles_ > 0) {
            list_.notes.push_back("the columns are named in line " + std::to_string(record.line) +
                                  "; what stands above is a title");
        }
    }

    void setColumns(const std::vector<std::string>& header)
    {
        columns_.emplace(header, rules_.columns);
        if (!columns_->has("level") && !columns_->has("parent") && rules_.top.empty()) {
            throw WrongUsage(
                "nothing says what stands below what; name the column with --map level=COLUMN or --map "
                "parent=COLUMN, or the item above all with --top ITEM; " +
                columns_->description(rules_.keepOtherColumns));
        }
        list_.notes.push_back(columns_->description(rules_.keepOtherColumns));
    }

    void read(const csv::Record& record)
    {
        const bool hasLevels = columns_->has("level");
        if (record.fields.size() != columns_->size()) {
            refusedAt(record, std::nullopt);
            throw Refused("it has " + std::to_string(record.fields.size()) + " fields, and there are " +
                          std::to_string(columns_->size()) + " columns");
        }
        std::optional<int> depth;
        if (hasLevels) {
            depth = depthIn(record);
        }
        try {
            const std::optional<int> quantity = quantityIn(record);
            if (!quantity.has_value()) {
                ++skipped_;
                refusedAt(record, depth);
                return;
            }
            const std::size_t item = itemIn(record);
            const PartsListLine line{item, *quantity, record.line};
            if (hasLevels) {
                placeAt(*depth, line);
            } else {
                placeBelowParent(record, line);
            }
        } catch (const Refused&) {
            refusedAt(record, depth);
            throw;
        }
    }

    /** What stands below a row that is not stored must not end up below another one. */
    void refusedAt(const csv::Record& record, std::optional<int> depth)
    {
        if (depth.has_value()) {
            closeTo(*depth);
            branch_.push_back({*depth, nothing, record.line, {}});
        }
    }

    [[noreturn]] void refuse(const std::string& meaning, const std::string& reason) const
    {
        throw Refused("column " + quoted(columns_->name(meaning)) + ": " + reason);
    }

    std::string number(const csv::Record& record, const std::string& meaning) const
    {
        std::string text = columns_->field(record.fields, meaning);
        if (text.size() > maxNumberLength) {
            refuse(meaning, "the number has " + std::to_string(text.size()) +
                                " characters; no search could name more than " +
                                std::to_string(maxNumberLength));
        }
        if (const std::string fault = searchFault(text); !fault.empty()) {
            refuse(meaning, "the number " + fault);
        }
        return text;
    }

    std::size_t itemIn(const csv::Record& record)
    {
        const std::string written = number(record, "item_number");
        if (written.empty()) {
            refuse("item_number", "the row has no item number");
        }
        PartsListItem item;
        item.number = inUpperCase(written);
        item.name = inUpperCase(columns_->field(record.fields, "name"));
        item.type = columns_->field(record.fields, "item_type");
        item.line = record.line;
        if (const std::string text = columns_->field(record.fields, "description"); !text.empty()) {
            item.attributes.emplace_back("description", text);
        }
        for (const std::size_t place : columns_->others()) {
            if (rules_.keepOtherColumns && !record.fields[place].empty()) {
                item.attributes.emplace_back(attributeOfColumn(columns_->name(place)), record.fields[place]);
            }
        }
        const std::string& raw = columns_->rawField(record.fields, "item_number");
        return items_.describe(raw, std::move(item));
    }

    /** Nothing when the row is to be left out. */
    std::optional<int> quantityIn(const csv::Record& record)
    {
        const auto read = quantityOf(columns_->field(record.fields, "quantity"));
        if (const int* const quantity = std::get_if<int>(&read)) {
            return *quantity;
        }
        const auto& wrong = std::get<NotAQuantity>(read);
        if (!wrong.isMeasure || rules_.notCountable == NotCountable::Refuse) {
            refuse("quantity",
                   wrong.reason +
                       (wrong.isMeasure ? "; --not-countable once or skip takes or leaves such rows" : ""));
        }
        if (rules_.notCountable == NotCountable::Skip) {
            return std::nullopt;
        }
        ++takenOnce_;
        return 1;
    }

    int depthIn(const csv::Record& record)
    {
        const std::string level = columns_->field(record.fields, "level");
        const std::optional<int> depth = depthOf(level);
        if (!depth.has_value()) {
            refuse("level", "the level " + quoted(level) + " is neither a number nor of the form 1.2.3");
        }
        if (!firstDepth_.has_value()) {
            firstDepth_ = depth;
        }
        if (*depth < *firstDepth_ || (!branch_.empty() && *depth > branch_.back().depth + 1)) {
            refuse("level", "the level " + level + " does not follow from the row before");
        }
        return *depth;
    }

    void placeAt(int depth, const PartsListLine& line)
    {
        closeTo(depth);
        if (!branch_.empty() && branch_.back().item == nothing) {
            throw Refused("the row above it, line " + std::to_string(branch_.back().line) +
                          ", is refused or left out");
        }
        if (!branch_.empty()) {
            branch_.back().below.push_back(line);
        } else if (top_ != nothing && line.item != top_) {
            topLines_.push_back(line);
        }
        branch_.push_back({depth, line.item, line.line, {}});
    }

    /** Ends the occurrences at `depth` and below. */
    void closeTo(int depth)
    {
        while (!branch_.empty() && branch_.back().depth >= depth) {
            close(std::move(branch_.back()));
            branch_.pop_back();
        }
    }

    /** The lines of an assembly are those of its first occurrence that has any; another one that has some repeats them. */
    void close(Occurrence ended)
    {
        if (ended.item == nothing || ended.below.empty()) {
            return;
        }
        std::vector<PartsListLine>& told = list_.lines[ended.item];
        if (told.empty()) {
            told = std::move(ended.below);
        } else if (quantities(told) != quantities(ended.below)) {
            list_.complaints.push_back(
                {ended.below.front().line, "what stands below " + list_.items[ended.item].number +
                                               " here is not what stands below it in line " +
                                               std::to_string(told.front().line)});
        }
    }

    static std::map<std::size_t, int> quantities(const std::vector<PartsListLine>& lines)
    {
        std::map<std::size_t, int> all;
        for (const PartsListLine& line : lines) {
            all[line.item] += line.quantity;
        }
        return all;
    }

    void placeBelowParent(const csv::Record& record, const PartsListLine& line)
    {
        const std::string parent = columns_->has("parent") ? inUpperCase(number(record, "parent")) : "";
        const std::size_t place = parent.empty() ? top_ : items_.placeOf(parent);
        if (place != nothing && (place != line.item || !parent.empty())) {
            list_.lines[place].push_back(line);
        }
    }

    void describeNumbers()
    {
        const auto note = [this](std::size_t count, const std::string& one, const std::string& many) {
            if (count > 0) {
                list_.notes.push_back(std::to_string(count) + (count == 1 ? one : many));
            }
        };
        note(items_.writtenInLowerCase(), " number is stored in upper case, not as it is written",
             " numbers are stored in upper case, not as they are written");
        note(takenOnce_, " row without a countable quantity counts once",
             " rows without a countable quantity count once each");
        note(skipped_, " row without a countable quantity is left out",
             " rows without a countable quantity are left out");
    }

    const PartsListRules& rules_;
    PartsList list_;
    ItemTable items_{list_};
    std::optional<Columns> columns_;
    std::vector<std::string> title_; // the first row, when it is a title
    std::size_t titles_ = 0;
    std::size_t top_ = nothing;
    std::vector<PartsListLine> topLines_; // below the top, where levels say what stands below what
    std::vector<Occurrence> branch_;
    std::optional<int> firstDepth_;
    std::size_t takenOnce_ = 0;
    std::size_t skipped_ = 0;
};

} // namespace

PartsList readPartsList(const std::string& text, char delimiter, const PartsListRules& rules)
{
    PartsListReader reader(rules);
    const std::vector<csv::Fault> faults =
        csv::parse(text, delimiter, [&reader](csv::Record& record) { reader.take(record); });
    PartsList list = reader.finish();
    for (const csv::Fault& fault : faults) {
        list.complaints.push_back({fault.line, fault.reason});
    }
    std::sort(list.complaints.begin(), list.complaints.end(),
              [](const RowComplaint& left, const RowComplaint& right) { return left.line < right.line; });
    return list;
}

std::map<std::size_t, std::string> rowsOfComplaints(const std::string& text, char delimiter,
                                                    const std::vector<RowComplaint>& complaints)
{
    std::map<std::size_t, std::string> rows;
    for (const RowComplaint& complaint : complaints) {
        rows.emplace(complaint.line, "");
    }
    const auto keep = [&rows](std::size_t line, std::string_view row) {
        if (const auto wanted = rows.find(line); wanted != rows.end()) {
            wanted->second = row;
        }
    };
    for (const csv::Fault& fault :
         csv::parse(text, delimiter, [&keep](csv::Record& record) { keep(record.line, record.text); })) {
        keep(fault.line, fault.text);
    }
    return rows;
}

} // namespace tools
