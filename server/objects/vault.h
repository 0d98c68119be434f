// SPDX-License-Identifier: Apache-2.0
//
// The vault: who holds a version of a document, and which version or revision comes next. Everything here
// runs inside the transaction of a vault call. A version is held by nobody, then it is checked in, or by one
// user, who checked it out. Each version is held apart from the others, so that an old one can be taken up
// again; what is checked in from it becomes the newest version.
#ifndef VELRZM_SERVER_OBJECTS_VAULT_H
#define VELRZM_SERVER_OBJECTS_VAULT_H

#include <cstdint>
#include <string>

#include "server/store/store.h"

namespace qvserver {

/** Fails unless the vault keeps objects of this class. */
void checkVaulted(const Class& objectClass);

/** Fails when somebody holds the version `id`. */
void checkNotHeld(Store& store, const Class& objectClass, std::int64_t id);

/** Checks the version `id` out to `user`; refused when somebody holds it. */
void takeOut(Store& store, const Class& objectClass, std::int64_t id, const std::string& user);

/** Ends the check-out of the version `id`; refused when `user` does not hold it. */
void giveBack(Store& store, const Class& objectClass, std::int64_t id, const std::string& user);

/** The values of the next version of a revision, which takes over those of the version `id` and what was
 * `changed`. */
Values nextVersion(Store& store, const Class& objectClass, std::int64_t id, const Values& changed);

/** The values of the first version of the document's next revision, which takes over those of the version
 * `id`. */
Values nextRevision(Store& store, const Class& objectClass, std::int64_t id);

/** What a check-in of the version `id` has to give for it to change nothing. */
Values checkInDefaults(Store& store, const Class& objectClass, std::int64_t id);

} // namespace qvserver

#endif
