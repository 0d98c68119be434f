// SPDX-License-Identifier: Apache-2.0
#include "server/store/store.h"

#include <variant>

#include "server/base/errors.h"

namespace qvserver {

bool exists(Store& store, Query query)
{
    query.limit = 1;
    return !store.select(query)->empty();
}

std::int64_t integerAt(const Rows& rows, std::size_t row, std::size_t column)
{
    const std::string_view text = rows.value(row, column);
    const auto number = parseNumber(text);
    const auto* const whole = number ? std::get_if<std::int64_t>(&*number) : nullptr;
    if (whole == nullptr) {
        fail(Failure::StoreUnusable, "the store is damaged: it holds ", inQuotes(text),
             " where a whole number belongs; restore a backup");
    }
    return *whole;
}

std::vector<std::int64_t> idsOf(Store& store, Query query)
{
    query.select = {std::string(objectIdPath)};
    const auto rows = store.select(query);
    std::vector<std::int64_t> ids;
    for (std::size_t row = 0; row < rows->size(); ++row) {
        ids.push_back(integerAt(*rows, row, 0));
    }
    return ids;
}

} // namespace qvserver
