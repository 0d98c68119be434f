// SPDX-License-Identifier: Apache-2.0
//
// Which values of an object come from its callers and which ones the server fills in, as the class table has it.
#ifndef VELRZM_SERVER_OBJECTS_FILLING_H
#define VELRZM_SERVER_OBJECTS_FILLING_H

#include <cstdint>

#include "server/base/class_table.h"

namespace qvserver {

/** What is stored of the attributes that a caller `set`: all but those of the server, and what only asks it for
 * something. */
Values storable(const Class& objectClass, const Values& set);

/** What a copy of an object with `values` takes over; the rest is filled in anew. */
Values inheritable(const Class& objectClass, const Values& values);

/** Adds to the `changed` values of an object what derives from `all` of its values. */
void fillDerived(const Class& objectClass, const Values& all, Values& changed);

/** Sets what the server fills in for the new object `id`. */
void fillNew(const Class& objectClass, std::int64_t id, Values& values);

} // namespace qvserver

#endif
