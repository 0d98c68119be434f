// SPDX-License-Identifier: Apache-2.0
//
// What the server does by itself when objects are saved or deleted, by the class table. Every rule runs inside
// the transaction of the change.
#ifndef VELRZM_SERVER_OBJECTS_RULES_H
#define VELRZM_SERVER_OBJECTS_RULES_H

#include "server/store/store.h"

namespace qvserver {

/** Before a new object is stored: sets those of its values that depend on what is stored already. */
void fillFromStore(Store& store, const Class& objectClass, Values& values);

/** After an object was stored, changed or deleted: brings the flags up to date that it has, or that show it in others.
 * `values` are its own; after a change it is called once with the old ones, once with the new ones. */
void refreshFlags(Store& store, const Class& objectClass, const Values& values);

/** Creates the companion of the stored object with `values` if who saved it `set` its attribute for that. */
void createCompanion(Store& store, const Class& objectClass, const Values& set, const Values& values);

} // namespace qvserver

#endif
