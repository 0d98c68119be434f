// SPDX-License-Identifier: Apache-2.0
//
// Where the store is and how it is reached: "sqlite:PATH" or "sqlite::memory:".
#ifndef VELRZM_SERVER_ADMINISTRATION_STORE_LOCATION_H
#define VELRZM_SERVER_ADMINISTRATION_STORE_LOCATION_H

#include <memory>
#include <string>
#include <vector>

#include "server/store/store.h"

namespace qvserver {

/** The place that QV_STORE names, else the user's own store. */
std::string storeLocation();

/** The user's own store, in the user's data directory. */
std::string defaultStoreLocation();

/** Opens the store at `location`. */
std::unique_ptr<Store> openStore(const std::string& location);

/** Opens the store at `location`; fails when it is one in memory, which nobody can administer. */
std::unique_ptr<Store> openStoreFile(const std::string& location);

/** Makes an empty store with its first user at `location`, where nothing may be yet. */
void createStore(const std::string& location, const std::string& user, const std::string& passwordHash);

/** Fails when there is something where a store is to be made. */
void requireNothingAt(const std::string& location);

/** The path that `location` names; fails when it names no store. */
std::string pathOfStore(const std::string& location);

/** The files of a store at `path`: its own first, then those that come and go beside it. */
std::vector<std::string> storeFilesAt(const std::string& path);

} // namespace qvserver

#endif
