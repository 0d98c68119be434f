// SPDX-License-Identifier: Apache-2.0
#include "server/objects/vault.h"

#include <limits>
#include <memory>
#include <utility>

#include "server/base/errors.h"
#include "server/base/text.h"
#include "server/objects/filling.h"
#include "server/objects/identification.h"
#include "server/objects/revision_number.h"

namespace qvserver {

namespace {

Values valuesOf(Store& store, const Class& objectClass, std::int64_t id)
{
    Values values = store.values(objectClass, id);
    if (values.empty()) {
        failDeleted(objectClass, id);
    }
    return values;
}

/** How messages name a version. */
std::string describe(const Class& objectClass, const Values& values)
{
    const std::string_view versionPath = objectClass.vault->version;
    return "the " + std::string(objectClass.name) + " with " + keysOf(objectClass, values) + ", " +
           pathWithValue(versionPath, valueOf(values, versionPath));
}

std::string_view holderOf(const Class& objectClass, const Values& values)
{
    return valueOf(values, objectClass.vault->holder);
}

void setHolder(Store& store, const Class& objectClass, std::int64_t id, const std::string& holder)
{
    store.update(objectClass, id, {{std::string(objectClass.vault->holder), holder}}, Count::Nothing);
}

/** The values of `path` of the objects that have the first `keys` keys of `values`, in the order of `order`. */
std::shared_ptr<const Rows> inOrder(Store& store, const Class& objectClass, const Values& values,
                                    std::size_t keys, std::string_view order, std::string_view path)
{
    Query query = {&objectClass, {std::string(path)}, {}, {std::string(order)}};
    for (std::size_t key = 0; key < keys; ++key) {
        query.where.push_back(equals(objectClass.keys[key], valueOf(values, objectClass.keys[key])));
    }
    return selectStored(store, query);
}

} // namespace

void checkVaulted(const Class& objectClass)
{
    if (!objectClass.vault) {
        fail(Failure::BadArgument, "the vault does not keep objects of the class ", objectClass.name,
             "; create a ", classes::document, " for this call");
    }
}

void checkNotHeld(Store& store, const Class& objectClass, std::int64_t id)
{
    const Values values = valuesOf(store, objectClass, id);
    if (const auto holder = holderOf(objectClass, values); !holder.empty()) {
        fail(Failure::VaultState, describe(objectClass, values), " is checked out by ", inQuotes(holder),
             "; check it in or cancel the check-out first");
    }
}

void checkNotHeldByOther(const Class& objectClass, const Values& values, const std::string& user)
{
    if (!objectClass.vault) {
        return;
    }
    if (const auto holder = holderOf(objectClass, values); !holder.empty() && holder != user) {
        fail(Failure::VaultState, describe(objectClass, values), " is checked out by ", inQuotes(holder),
             "; nobody else can change it until it is checked in");
    }
}

std::int64_t versionHeldBy(Store& store, const Class& objectClass, std::int64_t id, const std::string& user)
{
    const Values values = valuesOf(store, objectClass, id);
    if (holderOf(objectClass, values) == user) {
        return id;
    }
    Query held = {&objectClass, {}, {equals(objectClass.vault->holder, user)}};
    for (const std::string_view key : objectClass.keys) {
        held.where.push_back(equals(key, valueOf(values, key)));
    }
    held.newestFirst = true;
    const std::vector<std::int64_t> ids = idsOf(store, std::move(held));
    return ids.empty() ? id : ids.front();
}

void checkOutVersion(Store& store, const Class& objectClass, std::int64_t id, const std::string& user)
{
    checkNotHeld(store, objectClass, id);
    setHolder(store, objectClass, id, user);
}

void endCheckOut(Store& store, const Class& objectClass, std::int64_t id, const std::string& user)
{
    const Values values = valuesOf(store, objectClass, id);
    const auto holder = holderOf(objectClass, values);
    if (holder.empty()) {
        fail(Failure::VaultState, describe(objectClass, values), " is checked in, not checked out by ",
             inQuotes(user), "; check it out first");
    }
    if (holder != user) {
        fail(Failure::VaultState, describe(objectClass, values), " is checked out by ", inQuotes(holder),
             ", not by ", inQuotes(user));
    }
    setHolder(store, objectClass, id, "");
}

Values nextVersion(Store& store, const Class& objectClass, std::int64_t id, const Values& changed)
{
    const Values base = valuesOf(store, objectClass, id);
    for (const std::string_view key : objectClass.keys) {
        const auto set = changed.find(key);
        if (set != changed.end() && !sameText(set->second, valueOf(base, key))) {
            fail(Failure::KeyMismatch, describe(objectClass, base), " is checked in with ",
                 pathWithValue(key, set->second), "; a version cannot leave its revision");
        }
    }
    Values next = changed;
    next.merge(inheritable(objectClass, base));
    const std::string_view path = objectClass.vault->version;
    const auto versions = inOrder(store, objectClass, base, objectClass.keys.size(), path, path);
    const std::int64_t last = integerAt(*versions, versions->size() - 1, 0);
    if (last == std::numeric_limits<std::int64_t>::max()) {
        fail(Failure::RangeEnd, "there is no version after ", path, "=", last, "; make a new revision");
    }
    next.insert_or_assign(std::string(path), std::to_string(last + 1));
    return next;
}

Values nextRevision(Store& store, const Class& objectClass, std::int64_t id)
{
    const Values base = valuesOf(store, objectClass, id);
    Values next = inheritable(objectClass, base);
    const std::string_view path = objectClass.keys[1];
    const auto revisions = inOrder(store, objectClass, base, 1, objectClass.vault->revisionSort, path);
    next.insert_or_assign(std::string(path), nextRevisionNumber(revisions->value(revisions->size() - 1, 0)));
    return next;
}

Values checkInDefaults(Store& store, const Class& objectClass, std::int64_t id)
{
    const Values stored = valuesOf(store, objectClass, id);
    Values defaults;
    for (const Attribute& attribute : objectClass.attributes) {
        if (attribute.source == Source::Follows) {
            defaults.emplace(attribute.text, valueOf(stored, attribute.path));
        }
    }
    return defaults;
}

} // namespace qvserver
