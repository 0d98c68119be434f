// SPDX-License-Identifier: Apache-2.0
#include "server/structure/structure.h"

#include <algorithm>
#include <variant>

namespace qvserver {

namespace {

constexpr std::size_t componentColumn = 0;
constexpr std::size_t sequenceColumn = 1;

} // namespace

/** Numbers come before other texts, and what was stored first before the rest. */
bool Structure::SortedLine::operator<(const SortedLine& other) const
{
    const auto real = [](const ParsedNumber& any) {
        return std::visit([](auto plain) { return static_cast<long double>(plain); }, any);
    };
    if (number && other.number) {
        const auto own = real(*number);
        const auto others = real(*other.number);
        return own != others ? own < others : id < other.id;
    }
    if (number || other.number) {
        return number.has_value();
    }
    return text != other.text ? text < other.text : id < other.id;
}

Structure::Structure(std::string_view topItem, Lookup& lookup, Rows& values)
    : topItem_(topItem), lookup_(lookup), values_(values)
{
    const std::uint32_t hash = hashOf(topItem);
    index_.find(hash, top, [](std::uint32_t /*item*/) { return false; });
    items_.push_back({hash});
}

void Structure::read(std::size_t maxLevel)
{
    std::uint32_t first = top; // of the items that no higher level has
    for (std::size_t level = 0; first < size() && (maxLevel == 0 || level < maxLevel); ++level) {
        const auto end = static_cast<std::uint32_t>(size());
        readLevel(first, end);
        first = end;
    }
}

void Structure::readLevel(std::uint32_t first, std::uint32_t end)
{
    for (std::uint32_t item = first; item < end; ++item) {
        if (lookup_.mayFind(items_[item].hash)) {
            lookup_.ask(itemNumber(item), item);
        }
    }
    lookup_.find(values_,
                 [&](std::uint32_t item, std::size_t firstRow, const std::vector<std::int64_t>& ids) {
                     addLines(items_[item], firstRow, ids);
                     lookup_.expect(size() - end);
                 });
}

void Structure::addLines(Item& item, std::size_t firstRow, const std::vector<std::int64_t>& ids)
{
    sorted_.clear();
    auto row = static_cast<std::uint32_t>(firstRow);
    for (const std::int64_t id : ids) {
        const std::string_view sequence = withoutTrailingBlanks(values_.value(row, sequenceColumn));
        const std::uint32_t hash = hashOf(componentIn(row));
        index_.fetch(hash);
        sorted_.push_back({parseNumber(sequence), sequence, id, row, hash});
        ++row;
    }
    std::sort(sorted_.begin(), sorted_.end());
    item.firstLine = static_cast<std::uint32_t>(lines_.size());
    for (const SortedLine& line : sorted_) {
        lines_.push_back({values_.row(line.row), itemOf(line.row, line.hash)});
    }
    item.endOfLines = static_cast<std::uint32_t>(lines_.size());
}

std::uint32_t Structure::itemOf(std::uint32_t row, std::uint32_t hash)
{
    if (!lookup_.mayFind(hash)) {
        return leaf;
    }
    const std::string_view component = componentIn(row);
    const auto next = static_cast<std::uint32_t>(size());
    const auto item =
        index_.find(hash, next, [&](std::uint32_t known) { return component == itemNumber(known); });
    if (item == next) {
        items_.push_back({hash, row});
    }
    return item;
}

std::string_view Structure::componentIn(std::uint32_t row) const noexcept
{
    return withoutTrailingBlanks(values_.value(row, componentColumn));
}

} // namespace qvserver
