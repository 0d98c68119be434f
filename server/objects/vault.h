// SPDX-License-Identifier: Apache-2.0
//
// The vault: who holds a version of a document, and which version or revision comes next. Everything here runs
// inside the transaction of a vault call. A version is checked in, or checked out to one user, its holder. Each version
// is checked out by itself, so that an old one can be taken up again; what is checked in from it becomes the newest
// version.
#ifndef VELRZM_SERVER_OBJECTS_VAULT_H
#define VELRZM_SERVER_OBJECTS_VAULT_H

#include <cstdint>
#include <string>

#include "server/store/store.h"

namespace qvserver {

/** Fails unless the vault keeps objects of this class. */
void checkVaulted(const Class& objectClass);

/** Fails when the version `id` is checked out. */
void checkNotHeld(Store& store, const Class& objectClass, std::int64_t id);

/** Fails when another user than `user` holds the version with `values`. */
void checkNotHeldByOther(const Class& objectClass, const Values& values, const std::string& user);

/** The version of the same revision as the version `id` that `user` holds: that one itself, else the newest; `id` when
 * there is none. */
std::int64_t versionHeldBy(Store& store, const Class& objectClass, std::int64_t id, const std::string& user);

/** Checks the version `id` out to `user`; fails when it is checked out already. */
void checkOutVersion(Store& store, const Class& objectClass, std::int64_t id, const std::string& user);

/** Ends the check-out of the version `id`; fails unless `user` is the holder. */
void endCheckOut(Store& store, const Class& objectClass, std::int64_t id, const std::string& user);

/** The values of the next version of a revision: those of the version `id`, and what was `changed`. */
Values nextVersion(Store& store, const Class& objectClass, std::int64_t id, const Values& changed);

/** The values of the first version of the document's next revision: those of the version `id`. */
Values nextRevision(Store& store, const Class& objectClass, std::int64_t id);

/** The attributes with which a check-in of the version `id` keeps what it inherits. */
Values checkInDefaults(Store& store, const Class& objectClass, std::int64_t id);

} // namespace qvserver

#endif
