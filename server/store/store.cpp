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

void failDamaged(std::string_view what)
{
    fail(Failure::StoreUnusable, "the store is damaged: ", what, "; restore a backup");
}

std::shared_ptr<const Rows> selectStored(Store& store, const Query& query)
{
    auto rows = store.select(query);
    if (rows->empty()) {
        failDamaged("a stored " + std::string(query.objectClass->name) + " cannot be read");
    }
    return rows;
}

std::int64_t integerAt(const Rows& rows, std::size_t row, std::size_t column)
{
    const std::string_view text = rows.value(row, column);
    const auto number = parseNumber(text);
    const auto* const whole = number ? std::get_if<std::int64_t>(&*number) : nullptr;
    if (whole == nullptr) {
        failDamaged("there is " + inQuotes(text) + " in place of a whole number");
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
