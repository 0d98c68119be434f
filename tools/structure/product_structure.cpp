// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/product_structure.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/server_list.h"

namespace tools {

namespace {

/** The two ends of a component line: attribute of the line, and relation to the item. */
struct End {
    const char* number;
    const char* relation;
};
constexpr End parentEnd = {"logical_key@item_number", "item@"};
constexpr const char* changePath = "il_ec_number"; // of a line
constexpr End componentEnd = {"logical_key@comp_item_number", "comp_item@"};

std::string withoutTrailingBlanks(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

/** A line on its way into the structure. */
struct Line {
    std::string sequence;
    std::string number; // of the item at its far end
    std::vector<std::string> values;
    std::string change = {};
};

/** Numbers come before other texts, as in an explosion. */
bool isBefore(const Line& left, const Line& right)
{
    const auto key = [](const Line& line) {
        const std::optional<int> number = wholeNumber(line.sequence);
        return std::tuple(!number.has_value(), number.value_or(0), std::string_view(line.sequence));
    };
    return key(left) < key(right);
}

class Reader {
public:
    Reader(const StructureRequest& request, Direction direction, const std::vector<std::string>& attributes)
        : request_(request), attributes_(attributes), isDown_(direction == Direction::Down),
          near_(isDown_ ? parentEnd : componentEnd), far_(isDown_ ? componentEnd : parentEnd)
    {}

    ProductStructure read()
    {
        placeOf({"", request_.item, {}});
        std::size_t first = 0; // of the items that no level before has
        for (int level = 0;
             first < structure_.items.size() && (request_.levels == 0 || level < request_.levels); ++level) {
            const std::size_t end = structure_.items.size();
            readLevel(first, end);
            first = end;
        }
        if (structure_.items.size() == 1 && !request_.change.empty()) {
            requireChange();
        }
        structure_.attributes = attributes_;
        structure_.levels = request_.levels;
        return std::move(structure_);
    }

private:
    void readLevel(std::size_t first, std::size_t end)
    {
        std::vector<std::string> numbers;
        for (std::size_t item = first; item < end; ++item) {
            numbers.push_back(structure_.items[item].number);
        }
        const bool isFirst = first == 0;
        std::unordered_map<std::size_t, std::vector<Line>> lines; // by the item at the near end
        for (std::vector<std::string>& row : rowsOfAny(listOfLines(isFirst), near_.number, numbers)) {
            const auto found = places_.find(withoutTrailingBlanks(row[0]));
            if (found == places_.end()) { // a pattern, in place of an apostrophe, finds more
                continue;
            }
            const auto values = row.begin() + fixedColumns;
            const auto valuesEnd = values + static_cast<std::ptrdiff_t>(attributes_.size());
            if (isFirst) {
                structure_.items.front().values.assign(
                    valuesEnd, valuesEnd + static_cast<std::ptrdiff_t>(attributes_.size()));
            }
            lines[found->second].push_back({std::move(row[2]),
                                            withoutTrailingBlanks(row[1]),
                                            {values, valuesEnd},
                                            request_.withChanges ? row.back() : ""});
        }
        if (isFirst && lines.empty()) {
            structure_.items.front().values = valuesOfFirstItem();
        }
        for (std::size_t item = first; item < end; ++item) {
            addParts(item, lines[item]);
        }
    }

    ServerList listOfLines(bool withNearItem) const
    {
        ServerList list{"Component", {near_.number, far_.number, "logical_key@comp_seq_nm"}, {}, {}};
        const auto select = [&](const char* relation) {
            for (const std::string& attribute : attributes_) {
                list.select.push_back(relation + attribute);
            }
        };
        select(far_.relation);
        if (withNearItem) {
            select(near_.relation);
        }
        if (request_.withChanges) {
            list.select.emplace_back(changePath);
        }
        if (!request_.change.empty()) {
            list.where.push_back(isOneOf(changePath, {request_.change}));
        }
        return list;
    }

    /** A misspelt change has no lines either. */
    void requireChange() const
    {
        if (rowsOf({"EngineeringChange", {"id"}, {isOneOf("id", {request_.change})}, {}}).empty()) {
            throw NothingFound("there is no change " + request_.change);
        }
    }

    /** For an item without lines, whose values no line tells. */
    std::vector<std::string> valuesOfFirstItem() const
    {
        std::vector<std::vector<std::string>> rows =
            rowsOf({"ItemEngineeringData", attributes_, {isOneOf(parentEnd.number, {request_.item})}, {}});
        if (rows.empty()) {
            throw NothingFound("there is no item " + request_.item);
        }
        return std::move(rows.back());
    }

    /** Puts lines to the same item together. */
    void addParts(std::size_t item, std::vector<Line>& lines)
    {
        std::stable_sort(lines.begin(), lines.end(), [this](const Line& left, const Line& right) {
            return isDown_ ? isBefore(left, right) : left.number < right.number;
        });
        std::vector<StructurePart> parts;
        std::unordered_map<std::size_t, std::size_t> known; // item: its place in the parts
        for (Line& line : lines) {
            const std::string change = std::move(line.change);
            const std::size_t part = placeOf(std::move(line));
            const auto [place, isNew] = known.emplace(part, parts.size());
            if (isNew) {
                parts.push_back({part, 0});
            }
            ++parts[place->second].quantity;
            std::vector<std::string>& changes = parts[place->second].changes;
            if (!change.empty() && std::find(changes.begin(), changes.end(), change) == changes.end()) {
                changes.push_back(change);
            }
        }
        structure_.items[item].parts = std::move(parts);
    }

    std::size_t placeOf(Line line)
    {
        const auto [place, isNew] = places_.emplace(line.number, structure_.items.size());
        if (isNew) {
            structure_.items.push_back({std::move(line.number), std::move(line.values), {}});
        }
        return place->second;
    }

    static constexpr std::ptrdiff_t fixedColumns = 3;

    const StructureRequest& request_;
    const std::vector<std::string>& attributes_;
    bool isDown_;
    End near_;
    End far_;
    std::unordered_map<std::string, std::size_t> places_; // of the items, by number
    ProductStructure structure_ = {};
};

} // namespace

ProductStructure readStructure(const StructureRequest& request, Direction direction,
                               const std::vector<std::string>& attributes)
{
    return Reader(request, direction, attributes).read();
}

} // namespace tools
