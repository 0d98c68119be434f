// SPDX-License-Identifier: Apache-2.0
#include "server/administration/store_location.h"

#include <cstdlib>
#include <string_view>

#include "server/base/errors.h"
#include "server/sqlite/store.h"

namespace qvserver {

namespace {

constexpr std::string_view sqliteScheme = "sqlite:";
constexpr std::string_view inMemory = ":memory:";

std::string environment(const char* name)
{
    const char* const value =
        std::getenv(name); // NOLINT(concurrency-mt-unsafe): the interface is single-threaded
    return value == nullptr ? "" : value;
}

[[noreturn]] void failInMemory(const std::string& location)
{
    fail(Failure::BadArgument, location,
         " keeps nothing longer than a logon, users included; name a store in a file for this");
}

} // namespace

std::string storeLocation()
{
    const std::string location = environment("QV_STORE");
    return location.empty() ? defaultStoreLocation() : location;
}

std::string defaultStoreLocation()
{
    std::string folder = environment("XDG_DATA_HOME");
    if (folder.empty() || folder.front() != '/') { // by the convention a relative path counts as none
        const std::string home = environment("HOME");
        if (home.empty()) {
            fail(Failure::StoreMissing, "there is no place for a store: QV_STORE, XDG_DATA_HOME and HOME are "
                                        "not set; set QV_STORE to "
                                        "sqlite:PATH");
        }
        folder = home + "/.local/share";
    }
    return std::string(sqliteScheme) + folder + "/velrzm/store.db";
}

std::string pathOfStore(const std::string& location)
{
    if (location.compare(0, sqliteScheme.size(), sqliteScheme) != 0 ||
        location.size() == sqliteScheme.size()) {
        fail(Failure::BadArgument, inQuotes(location),
             " is not the location of a store; set QV_STORE to sqlite:PATH or sqlite::memory:");
    }
    return location.substr(sqliteScheme.size());
}

std::vector<std::string> storeFilesAt(const std::string& path)
{
    return SqliteStore::filesAt(path);
}

std::unique_ptr<Store> openStore(const std::string& location)
{
    const std::string path = pathOfStore(location);
    return path == inMemory ? SqliteStore::inMemory() : SqliteStore::open(path);
}

std::unique_ptr<Store> openStoreFile(const std::string& location)
{
    auto store = openStore(location);
    if (store->isOpenToAll()) {
        failInMemory(location);
    }
    return store;
}

void requireNothingAt(const std::string& location)
{
    SqliteStore::requireNothingAt(pathOfStore(location));
}

void createStore(const std::string& location, const std::string& user, const std::string& passwordHash)
{
    const std::string path = pathOfStore(location);
    if (path == inMemory) {
        failInMemory(location);
    }
    SqliteStore::create(path, user, passwordHash);
}

} // namespace qvserver
