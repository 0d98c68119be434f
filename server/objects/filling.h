// SPDX-License-Identifier: Apache-2.0
//
// Which values of an object come from its callers and which ones the server fills in, by the class table.
#ifndef VELRZM_SERVER_OBJECTS_FILLING_H
#define VELRZM_SERVER_OBJECTS_FILLING_H

#include <cstdint>

#include "server/base/class_table.h"

namespace qvserver {

/** What is stored of the attributes that were `given`: not the server's own ones, nor orders to it. */
Values storable(const Class& objectClass, const Values& given);

/** What another object takes over from one with `values`; the rest is filled in anew. */
Values inheritable(const Class& objectClass, const Values& values);

/** Sets what follows from `all` values of the object, new or changed, among those that are `changed`. */
void fillDerived(const Class& objectClass, const Values& all, Values& changed);

/** Sets what the server fills in when the object `id` is new. */
void fillNew(const Class& objectClass, std::int64_t id, Values& values);

} // namespace qvserver

#endif
