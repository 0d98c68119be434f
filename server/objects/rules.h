// SPDX-License-Identifier: Apache-2.0
//
// What the server does by itself when objects of certain classes are saved or deleted. Every rule runs inside
// the transaction of the change.
#ifndef VELRZM_SERVER_OBJECTS_RULES_H
#define VELRZM_SERVER_OBJECTS_RULES_H

#include "server/store/store.h"

namespace qvserver {

/** Before a new object is stored: may set some of its values. */
void beforeCreate(Store& store, const Class& objectClass, Values& values);

/** After an object was stored, changed or deleted: its values; for a change once with the old ones, once with
 * the new. */
void afterChange(Store& store, const Class& objectClass, const Values& values);

/** The attribute by which the saver of an item orders its BOM header; an order is not stored. */
constexpr std::string_view createBomHeaderPath = "create_bomheader";

/** Carries out what was ordered among the attributes that were `given` for the saved object with `values`. */
void obeyOrders(Store& store, const Class& objectClass, const Values& given, const Values& values);

} // namespace qvserver

#endif
