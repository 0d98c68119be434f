// SPDX-License-Identifier: Apache-2.0
//
// Finding the stored object that attributes identify.
#ifndef VELRZM_SERVER_OBJECTS_IDENTIFICATION_H
#define VELRZM_SERVER_OBJECTS_IDENTIFICATION_H

#include <cstdint>
#include <optional>
#include <string>

#include "server/store/store.h"

namespace qvserver {

/** The object to open: by its id, else by its keys, at a change if that makes a difference for the class. */
std::int64_t objectToOpen(Store& store, const Class& objectClass, const Values& wanted);

/** The object to delete: by its id, else by exactly its keys; keys that are set must agree. */
std::int64_t objectToDelete(Store& store, const Class& objectClass, const Values& wanted);

/** The keys among `values` as messages show them: path='value', ... */
std::string keysOf(const Class& objectClass, const Values& values);

/** Fails because an opened object was deleted. */
[[noreturn]] void failDeleted(const Class& objectClass, std::int64_t id);

} // namespace qvserver

#endif
