// SPDX-License-Identifier: Apache-2.0
#include "server/structure/structure.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <variant>

#include "server/base/text.h"

namespace qvserver {

namespace {

constexpr std::string_view parentPath = "logical_key@item_number";
constexpr std::size_t componentColumn = 0;
constexpr std::size_t sequenceColumn = 1;

/** What the lines of an item are sorted by: numbers come before other texts, and older lines before newer ones. */
using LineOrder = std::tuple<bool, long double, std::string_view, std::int64_t>;

LineOrder orderOf(std::string_view sequence, std::int64_t id)
{
    if (const auto number = parseNumber(sequence)) {
        const auto real = std::visit([](auto plain) { return static_cast<long double>(plain); }, *number);
        return {false, real, std::string_view(), id};
    }
    return {true, 0, withoutTrailingBlanks(sequence), id};
}

} // namespace

Structure::Structure(Store& store, const Query& query, std::string_view topItem, std::size_t maxLevel,
                     Rows& values)
    : values_(values), lines_({{nullptr, leaf}})
{
    Uses uses = {{SortableText(topItem), 0}};
    std::vector<UseIterator> newItems = findNewItems(uses);
    for (std::size_t level = 0; level < maxLevel && !newItems.empty(); ++level) {
        uses = readLines(store, query, uses, newItems);
        newItems = findNewItems(uses);
    }
}

/** Reads the lines of items whose uses are given; returns the uses of their components. */
Structure::Uses Structure::readLines(Store& store, const Query& query, const Uses& uses,
                                     const std::vector<UseIterator>& newItems)
{
    std::vector<std::string_view> numbers;
    numbers.reserve(newItems.size());
    for (const auto use : newItems) {
        numbers.push_back(use->number.text());
    }
    std::size_t row = values_.size();
    const std::size_t firstLine = lines_.size();
    const std::vector<Match> matches = store.selectForEach(query, parentPath, numbers, values_);
    std::vector<std::pair<LineOrder, std::size_t>> sorted; // the lines of one item
    for (auto match = matches.begin(); match != matches.end();) {
        const std::size_t value = match->value;
        sorted.clear();
        for (; match != matches.end() && match->value == value; ++match, ++row) {
            sorted.emplace_back(orderOf(values_.value(row, sequenceColumn), match->id), row);
        }
        std::sort(sorted.begin(), sorted.end());
        const auto item = static_cast<std::uint32_t>(items_.size());
        const auto first = static_cast<std::uint32_t>(lines_.size());
        for (const auto& [order, lineRow] : sorted) {
            lines_.push_back({values_.row(lineRow), leaf});
        }
        items_.push_back({numbers[value], first, static_cast<std::uint32_t>(lines_.size())});
        places_.emplace(newItems[value]->number, item);
        setComponent(newItems[value], uses.end(), item);
    }
    return usesFrom(firstLine);
}

Structure::Uses Structure::usesFrom(std::size_t firstLine) const
{
    Uses uses;
    uses.reserve(lines_.size() - firstLine);
    for (std::size_t line = firstLine; line < lines_.size(); ++line) {
        uses.push_back({SortableText(withoutTrailingBlanks(lines_[line].values[componentColumn])),
                        static_cast<std::uint32_t>(line)});
    }
    std::sort(uses.begin(), uses.end(),
              [](const Use& left, const Use& right) { return left.number < right.number; });
    return uses;
}

/** Sets the components of lines whose items are known; returns the first use of each other item. */
std::vector<Structure::UseIterator> Structure::findNewItems(const Uses& uses)
{
    std::vector<UseIterator> newItems;
    for (auto use = uses.begin(); use != uses.end();) {
        if (const auto known = places_.find(use->number); known != places_.end()) {
            use = setComponent(use, uses.end(), known->second);
        } else {
            newItems.push_back(use);
            use = std::find_if(use, uses.end(),
                               [first = use](const Use& other) { return !(other.number == first->number); });
        }
    }
    return newItems;
}

/** Sets the component of all lines that use the item of `first`; returns the first use of the next item. */
Structure::UseIterator Structure::setComponent(UseIterator first, UseIterator end, std::uint32_t item)
{
    auto use = first;
    for (; use != end && use->number == first->number; ++use) {
        lines_[use->line].component = item;
    }
    return use;
}

} // namespace qvserver
