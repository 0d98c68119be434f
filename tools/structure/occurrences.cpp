// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/occurrences.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <unordered_map>

#include "tools/process/failures.h"
#include "tools/process/interruption.h"

namespace tools {

namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

[[noreturn]] void refuseNumber()
{
    throw Refused("there are more than " + std::to_string(most) +
                  " occurrences; --level limits the number of levels");
}

std::int64_t sum(std::int64_t left, std::int64_t right)
{
    if (left > most - right) {
        refuseNumber();
    }
    return left + right;
}

std::int64_t product(std::int64_t left, std::int64_t right)
{
    if (right > 0 && left > most / right) {
        refuseNumber();
    }
    return left * right;
}

} // namespace

std::vector<std::int64_t> occurrences(const ProductStructure& structure, PartCount count)
{
    using Numbers = std::unordered_map<std::size_t, std::int64_t>; // by item, on one level
    std::vector<std::int64_t> totals(structure.items.size(), 0);
    Numbers above = {{0, 1}};
    const int limit = structure.levels == 0 ? std::numeric_limits<int>::max() : structure.levels;
    for (int level = 1; !above.empty() && level <= limit; ++level) {
        checkInterruption();
        if (static_cast<std::size_t>(level) > structure.items.size()) {
            throw Refused("the structure of " + structure.items.front().number + " contains itself");
        }
        Numbers numbers;
        for (const auto& [item, number] : above) {
            for (const StructurePart& part : structure.items[item].parts) {
                const std::int64_t lines = count == PartCount::Lines ? part.quantity : 1;
                numbers[part.item] = sum(numbers[part.item], product(number, lines));
            }
        }
        for (const auto& [item, number] : numbers) {
            totals[item] = sum(totals[item], number);
        }
        above = std::move(numbers);
    }
    return totals;
}

std::int64_t sumOf(const std::vector<std::int64_t>& numbers)
{
    std::int64_t all = 0;
    for (const std::int64_t number : numbers) {
        all = sum(all, number);
    }
    return all;
}

Records totalQuantities(const ProductStructure& structure)
{
    const std::vector<std::int64_t> totals = occurrences(structure, PartCount::Lines);
    Records records{{"item_number"}, {}};
    records.columns.insert(records.columns.end(), structure.attributes.begin(), structure.attributes.end());
    records.columns.emplace_back("quantity");
    for (std::size_t place = 1; place < totals.size(); ++place) {
        const StructureItem& item = structure.items[place];
        std::vector<std::string>& fields = records.rows.emplace_back(std::vector{item.number});
        fields.insert(fields.end(), item.values.begin(), item.values.end());
        fields.push_back(std::to_string(totals[place]));
    }
    std::sort(records.rows.begin(), records.rows.end());
    return records;
}

} // namespace tools
