// SPDX-License-Identifier: Apache-2.0
//
// Keeping references whole: an object that another one refers to exists. Both checks run inside the
// transaction of the change, after it was made in the store.
#ifndef VELRZM_SERVER_OBJECTS_REFERENCES_H
#define VELRZM_SERVER_OBJECTS_REFERENCES_H

#include "server/store/store.h"

namespace qvserver {

/** Fails when something that an object with `values` refers to is not stored. */
void checkReferences(Store& store, const Class& objectClass, const Values& values);

/** An object with `oldValues` was deleted or got other keys: fails when others still refer to it. */
void checkNotReferred(Store& store, const Class& objectClass, const Values& oldValues);

/** An object with `oldValues` was deleted: deletes what is part of it, and fails when others still refer to
 * it. */
void deleteParts(Store& store, const Class& objectClass, const Values& oldValues);

} // namespace qvserver

#endif
