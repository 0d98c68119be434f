// SPDX-License-Identifier: Apache-2.0
//
// Referential integrity: an object that another one refers to exists. What is here runs inside the transaction of
// a change; what concerns deleted or changed objects, after the change was made in the store.
#ifndef VELRZM_SERVER_OBJECTS_REFERENCES_H
#define VELRZM_SERVER_OBJECTS_REFERENCES_H

#include "server/store/store.h"

namespace qvserver {

/** Fails when an object that one with `values` refers to is not stored. */
void checkReferences(Store& store, const Class& objectClass, const Values& values);

/** After an object with `oldValues` was deleted or its keys were changed: fails when others still refer to it. */
void checkNotReferred(Store& store, const Class& objectClass, const Values& oldValues);

/** After an object with `oldValues` was deleted: deletes its parts; fails when others still refer to it. */
void deleteParts(Store& store, const Class& objectClass, const Values& oldValues);

} // namespace qvserver

#endif
