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

/** The object that `given` means for an open: by its id, else by its keys, an item also by the change it is
 * asked at. */
std::int64_t objectToOpen(Store& store, const Class& objectClass, const Values& given);

/** The object that `given` means for a deletion: by its id, else exactly by its keys; keys that are set must
 * agree. */
std::int64_t objectToDelete(Store& store, const Class& objectClass, const Values& given);

/** The keys among `values` as messages show them: path='value', ... */
std::string keysOf(const Class& objectClass, const Values& values);

} // namespace qvserver

#endif
