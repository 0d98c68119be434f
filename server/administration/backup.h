// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_SERVER_ADMINISTRATION_BACKUP_H
#define VELRZM_SERVER_ADMINISTRATION_BACKUP_H

#include <string>

#include "server/store/store.h"

namespace qvserver {

enum class Replace { No, Yes };

/**
 * Writes a copy of the store at `location` to `file`, where it is a store of its own. The copy appears there complete and
 * synced to the disk, or not at all.
 */
void backUpStore(const std::string& location, const std::string& file, Replace replace,
                 const CopyProgress& progress);

/**
 * Puts a copy of the store in `file` in the place of the one at `location`, which nobody may use; a store need not be
 * there. The restored store appears there complete and synced to the disk, or the old one stays.
 */
void restoreStore(const std::string& file, const std::string& location, const CopyProgress& progress);

} // namespace qvserver

#endif
