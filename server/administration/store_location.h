// SPDX-License-Identifier: Apache-2.0
//
// Locations of stores: "sqlite:PATH" or "sqlite::memory:".
#ifndef VELRZM_SERVER_ADMINISTRATION_STORE_LOCATION_H
#define VELRZM_SERVER_ADMINISTRATION_STORE_LOCATION_H

#include <memory>
#include <string>
#include <vector>

#include "server/store/store.h"

namespace qvserver {

/** The location in QV_STORE, else that of the user's own store. */
std::string storeLocation();

/** The location of the user's own store, in the user's data directory. */
std::string defaultStoreLocation();

/** Opens the store at `location`. */
std::unique_ptr<Store> openStore(const std::string& location);

/** Opens the store at `location`; fails when it is one in memory, which nobody can administer. */
std::unique_ptr<Store> openStoreFile(const std::string& location);

/** Creates an empty store with its first user at `location`, where nothing may exist. */
void createStore(const std::string& location, const std::string& user, const std::string& passwordHash);

/** Fails when there is something at `location`. */
void requireNothingAt(const std::string& location);

/** The path in `location`; fails when that is not the location of a store. */
std::string pathOfStore(const std::string& location);

/** The files of a store at `path`: its own first, then those that exist beside it now and then. */
std::vector<std::string> storeFilesAt(const std::string& path);

} // namespace qvserver

#endif
