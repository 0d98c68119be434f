// SPDX-License-Identifier: Apache-2.0
#include "server/objects/identification.h"

#include <algorithm>
#include <utility>

#include "server/base/errors.h"

namespace qvserver {

namespace {

std::optional<std::int64_t> newest(Store& store, Query query)
{
    query.newestFirst = true;
    query.limit = 1;
    const std::vector<std::int64_t> ids = idsOf(store, std::move(query));
    return ids.empty() ? std::nullopt : std::optional(ids.front());
}

/** The object that has the values of `wanted` in those keys, "" in one that is not set. */
std::optional<std::int64_t> byKeys(Store& store, const Class& objectClass,
                                   const std::vector<std::string_view>& keys, const Values& wanted)
{
    Query query = {&objectClass};
    for (const std::string_view key : keys) {
        query.where.push_back(equals(key, valueOf(wanted, key)));
    }
    return newest(store, std::move(query));
}

std::optional<std::int64_t> byId(Store& store, const Class& objectClass, const Values& wanted)
{
    return newest(store, {&objectClass, {}, {equals(objectIdPath, valueOf(wanted, objectIdPath))}});
}

/** The object by its keys as the class asks for it at a change. */
std::optional<std::int64_t> atChange(Store& store, const Class& objectClass, const Values& wanted)
{
    const AtChange& rule = *objectClass.atChange;
    if (withoutTrailingBlanks(valueOf(wanted, rule.change)).empty()) {
        std::vector<std::string_view> otherKeys = objectClass.keys;
        otherKeys.erase(std::remove(otherKeys.begin(), otherKeys.end(), rule.change), otherKeys.end());
        return byKeys(store, objectClass, otherKeys, wanted);
    }
    if (const auto exact = byKeys(store, objectClass, objectClass.keys, wanted)) {
        return exact;
    }
    Query affected = {&classNamed(rule.affected)};
    for (const Link& link : rule.links) {
        affected.where.push_back(equals(link.to, valueOf(wanted, link.from)));
    }
    if (!exists(store, std::move(affected))) {
        return std::nullopt;
    }
    Values withoutChange = wanted;
    withoutChange.erase(std::string(rule.change));
    return byKeys(store, objectClass, objectClass.keys, withoutChange);
}

bool hasId(const Values& wanted)
{
    return !withoutTrailingBlanks(valueOf(wanted, objectIdPath)).empty();
}

std::int64_t foundOrFail(std::optional<std::int64_t> found, const Class& objectClass, const Values& wanted)
{
    if (!found) {
        fail(Failure::NotFound, "there is no ", objectClass.name, " with ",
             hasId(wanted) ? pathWithValue(objectIdPath, valueOf(wanted, objectIdPath))
                           : keysOf(objectClass, wanted));
    }
    return *found;
}

/** Fails when a key in `wanted` is not that of the object. */
void checkKeys(Store& store, const Class& objectClass, std::int64_t id, const Values& wanted)
{
    Query query = {&objectClass, {}, {isObject(id)}};
    query.select.assign(objectClass.keys.begin(), objectClass.keys.end());
    const auto stored = selectStored(store, query);
    for (std::size_t key = 0; key < objectClass.keys.size(); ++key) {
        const auto set = wanted.find(objectClass.keys[key]);
        if (set != wanted.end() && !sameText(set->second, stored->value(0, key))) {
            fail(Failure::KeyMismatch, "the ", objectClass.name, " with db_object_id '", id, "' has ",
                 pathWithValue(set->first, stored->value(0, key)), ", not ", inQuotes(set->second),
                 "; nothing was deleted");
        }
    }
}

} // namespace

std::int64_t objectToOpen(Store& store, const Class& objectClass, const Values& wanted)
{
    if (hasId(wanted)) {
        return foundOrFail(byId(store, objectClass, wanted), objectClass, wanted);
    }
    return foundOrFail(objectClass.atChange ? atChange(store, objectClass, wanted)
                                            : byKeys(store, objectClass, objectClass.keys, wanted),
                       objectClass, wanted);
}

std::int64_t objectToDelete(Store& store, const Class& objectClass, const Values& wanted)
{
    const auto found = hasId(wanted) ? byId(store, objectClass, wanted)
                                     : byKeys(store, objectClass, objectClass.keys, wanted);
    const std::int64_t id = foundOrFail(found, objectClass, wanted);
    checkKeys(store, objectClass, id, wanted);
    return id;
}

std::string keysOf(const Class& objectClass, const Values& values)
{
    return joined(objectClass.keys, ", ",
                  [&](std::string_view key) { return pathWithValue(key, valueOf(values, key)); });
}

void failDeleted(const Class& objectClass, std::int64_t id)
{
    fail(Failure::ChangedByOther, "the ", objectClass.name, " with ",
         pathWithValue(objectIdPath, std::to_string(id)),
         " was deleted since it was opened; nothing was stored");
}

} // namespace qvserver
