// SPDX-License-Identifier: Apache-2.0
#include "server/objects/identification.h"

#include "server/base/errors.h"

namespace qvserver {

namespace {

std::optional<std::int64_t> newest(Store& store, Query query)
{
    query.select = {std::string(objectIdPath)};
    query.newestFirst = true;
    query.limit = 1;
    const auto rows = store.select(query);
    if (rows->empty()) {
        return std::nullopt;
    }
    return std::get<std::int64_t>(parseNumber(rows->value(0, 0)).value());
}

/** The object whose keys are exactly those in `given`, a key that is not set being ''. */
std::optional<std::int64_t> byKeys(Store& store, const Class& objectClass, const Values& given)
{
    Query query = {&objectClass};
    for (const std::string_view key : objectClass.keys) {
        query.where.push_back(equals(key, valueOf(given, key)));
    }
    return newest(store, query);
}

std::optional<std::int64_t> byId(Store& store, const Class& objectClass, const Values& given)
{
    Query query = {&objectClass};
    query.where.push_back(equals(objectIdPath, valueOf(given, objectIdPath)));
    return newest(store, query);
}

/**
 * An item at a change is the record of that change, else the record without a change that the change affects;
 * an item at no change is its newest record.
 */
std::optional<std::int64_t> itemAtChange(Store& store, const Class& item, const Values& given)
{
    const std::string_view number = valueOf(given, "logical_key@item_number");
    const std::string_view location = valueOf(given, "logical_key@loc_id");
    const std::string_view change = withoutTrailingBlanks(valueOf(given, "il_ec_number"));
    if (change.empty()) {
        return newest(
            store,
            {&item, {}, {equals("logical_key@item_number", number), equals("logical_key@loc_id", location)}});
    }
    if (const auto exact = byKeys(store, item, given)) {
        return exact;
    }
    if (!exists(
            store,
            {&classNamed("AffectedItem"), {}, {equals("ec@id", change), equals("item_number", number)}})) {
        return std::nullopt;
    }
    Values withoutChange = given;
    withoutChange.erase("il_ec_number");
    return byKeys(store, item, withoutChange);
}

bool hasId(const Values& given)
{
    return !withoutTrailingBlanks(valueOf(given, objectIdPath)).empty();
}

std::int64_t foundOrFail(std::optional<std::int64_t> found, const Class& objectClass, const Values& given)
{
    if (!found) {
        const std::string wanted = hasId(given) ? "db_object_id=" + inQuotes(valueOf(given, objectIdPath))
                                                : keysOf(objectClass, given);
        fail(Failure::NotFound, "there is no ", objectClass.name, " with ", wanted);
    }
    return *found;
}

/** Fails when a key in `given` is not that of the object. */
void checkKeys(Store& store, const Class& objectClass, std::int64_t id, const Values& given)
{
    Query query = {&objectClass, {}, {isObject(id)}};
    query.select.assign(objectClass.keys.begin(), objectClass.keys.end());
    const auto stored = store.select(query);
    for (std::size_t key = 0; key < objectClass.keys.size(); ++key) {
        const auto set = given.find(objectClass.keys[key]);
        if (set != given.end() && !sameText(set->second, stored->value(0, key))) {
            fail(Failure::KeyMismatch, "the ", objectClass.name, " with db_object_id '", id, "' has ",
                 set->first, "=", inQuotes(stored->value(0, key)), ", not ", inQuotes(set->second),
                 "; nothing was deleted");
        }
    }
}

} // namespace

std::int64_t objectToOpen(Store& store, const Class& objectClass, const Values& given)
{
    if (hasId(given)) {
        return foundOrFail(byId(store, objectClass, given), objectClass, given);
    }
    const bool isItem = objectClass.name == "ItemEngineeringData";
    return foundOrFail(isItem ? itemAtChange(store, objectClass, given) : byKeys(store, objectClass, given),
                       objectClass, given);
}

std::int64_t objectToDelete(Store& store, const Class& objectClass, const Values& given)
{
    const auto found = hasId(given) ? byId(store, objectClass, given) : byKeys(store, objectClass, given);
    const std::int64_t id = foundOrFail(found, objectClass, given);
    checkKeys(store, objectClass, id, given);
    return id;
}

std::string keysOf(const Class& objectClass, const Values& values)
{
    std::string text;
    for (const std::string_view key : objectClass.keys) {
        text.append(text.empty() ? "" : ", ").append(key).append("=").append(inQuotes(valueOf(values, key)));
    }
    return text;
}

} // namespace qvserver
