// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include <velrzm/qvlocal.h>

#include "server/administration/backup.h"
#include "server/administration/loader.h"
#include "server/administration/password.h"
#include "server/administration/store_location.h"
#include "server/base/errors.h"
#include "server/base/text.h"

namespace qvlocal {

namespace {

using qvserver::Access;
using qvserver::fail;
using qvserver::Failure;
using qvserver::inQuotes;
using qvserver::Store;
using qvserver::Transaction;

/** Runs `use`; what it throws becomes a StoreError. */
template <typename Use>
auto reported(Use use)
{
    try {
        return use();
    } catch (const std::exception& error) {
        throw StoreError(error.what());
    }
}

void checkUserName(const std::string& user)
{
    constexpr std::size_t maxLength = 255;
    if (user.empty() || user.size() > maxLength || user.find('\0') != std::string::npos) {
        fail(Failure::UserAdministration, "the user name ", inQuotes(user),
             " cannot be used; it must have 1 to ", maxLength, " characters and no NUL");
    }
}

/** Appends the attributes of a class, and of those that it is related to, to `names`; `relations` leads to the class. */
void addAttributeNames(Store& store, const qvserver::Class& objectClass, const std::string& relations,
                       std::vector<AttributeName>& names)
{
    const auto add = [&](std::string_view path) {
        const std::string whole = relations + std::string(path);
        const bool isKnown = std::any_of(names.begin(), names.end(), [&whole](const AttributeName& name) {
            return name.path == whole; // of the class itself, though it begins like a relation
        });
        if (!isKnown) {
            names.push_back({whole, !relations.empty()});
        }
    };
    for (const qvserver::Attribute& attribute : objectClass.attributes) {
        add(attribute.path);
    }
    const std::vector<std::string> added = store.addedPaths(objectClass);
    std::for_each(added.begin(), added.end(), add);
    add(qvserver::updateCountPath);
    add(qvserver::objectIdPath);
    for (const qvserver::Relation& relation : objectClass.relations) {
        addAttributeNames(store, qvserver::classNamed(relation.target),
                          relations + std::string(relation.name) + '@', names);
    }
}

/** Opens the store and runs `change(store)` in one transaction, for a user who must exist or must not. */
template <typename Change>
void changeUser(const std::string& location, const std::string& user, bool mustExist, Change change)
{
    reported([&] {
        const auto store = qvserver::openStoreFile(location);
        Transaction transaction(*store, Access::Write);
        if (store->passwordHash(user).has_value() != mustExist) {
            fail(Failure::UserAdministration, location, mustExist ? " has no user " : " already has a user ",
                 inQuotes(user));
        }
        change(*store);
        transaction.commit();
    });
}

qvserver::CopyProgress progressOrNone(const CopyProgress& progress)
{
    return progress ? progress : [](std::uintmax_t, std::uintmax_t) {};
}

std::size_t loadFile(const std::string& location, const qvserver::LoadFormat& format, const std::string& file)
{
    return reported([&] {
        const auto store = qvserver::openStoreFile(location);
        return qvserver::load(*store, format, file);
    });
}

} // namespace

std::string version()
{
    return VELRZM_VERSION;
}

std::string defaultStore()
{
    return reported([] { return qvserver::defaultStoreLocation(); });
}

std::string currentStore()
{
    return reported([] { return qvserver::storeLocation(); });
}

void initializeStore(const std::string& location, const std::string& user, const std::string& password)
{
    reported([&] {
        checkUserName(user);
        qvserver::createStore(location, user, qvserver::hashOfPassword(password));
    });
}

void requireNoStore(const std::string& location)
{
    reported([&] { qvserver::requireNothingAt(location); });
}

StoreSummary summarizeStore(const std::string& location)
{
    return reported([&] {
        const auto store = qvserver::openStoreFile(location);
        const Transaction sameState(*store, Access::Read);
        store->check();
        StoreSummary summary = {store->engine(), store->isReadOnly(),       store->formatVersion(),
                                store->size(),   store->userNames().size(), {}};
        for (const qvserver::Class& objectClass : qvserver::allClasses()) {
            summary.objects.emplace_back(objectClass.name, store->count(objectClass));
        }
        return summary;
    });
}

void backUpStore(const std::string& location, const std::string& file, Replace replace,
                 const CopyProgress& progress)
{
    reported([&] {
        qvserver::backUpStore(location, file,
                              replace == Replace::Yes ? qvserver::Replace::Yes : qvserver::Replace::No,
                              progressOrNone(progress));
    });
}

void restoreStore(const std::string& file, const std::string& location, const CopyProgress& progress)
{
    reported([&] { qvserver::restoreStore(file, location, progressOrNone(progress)); });
}

void addUser(const std::string& location, const std::string& user, const std::string& password)
{
    changeUser(location, user, false, [&](Store& store) {
        checkUserName(user);
        store.putUser(user, qvserver::hashOfPassword(password));
    });
}

void removeUser(const std::string& location, const std::string& user)
{
    changeUser(location, user, true, [&](Store& store) { store.removeUser(user); });
}

void setPassword(const std::string& location, const std::string& user, const std::string& password)
{
    changeUser(location, user, true,
               [&](Store& store) { store.putUser(user, qvserver::hashOfPassword(password)); });
}

std::vector<std::string> listUsers(const std::string& location)
{
    return reported([&] { return qvserver::openStoreFile(location)->userNames(); });
}

bool isAttributePath(const std::string& path)
{
    return qvserver::isPath(path);
}

std::vector<AttributeName> attributeNames(const std::string& location, const std::string& className)
{
    return reported([&] {
        const auto store = qvserver::openStoreFile(location);
        const Transaction sameState(*store, Access::Read);
        std::vector<AttributeName> names;
        addAttributeNames(*store, qvserver::classNamed(className), "", names);
        return names;
    });
}

std::size_t loadProductOptions(const std::string& location, const std::string& file)
{
    return loadFile(location, qvserver::productOptions(), file);
}

std::size_t loadProductPackages(const std::string& location, const std::string& file)
{
    return loadFile(location, qvserver::productPackages(), file);
}

std::size_t loadTranslationTables(const std::string& location, const std::string& file)
{
    return loadFile(location, qvserver::translationTables(), file);
}

} // namespace qvlocal
