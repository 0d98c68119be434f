// SPDX-License-Identifier: Apache-2.0
//
// Engineering changes and the items that they affect.
#ifndef VELRZM_ENGINEERING_CHANGES_H
#define VELRZM_ENGINEERING_CHANGES_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Stores a new engineering change, with the site's defaults for "EngineeringChangeCreate"; the arguments are set after
 * them. The current result is the stored change; read its identifier with GetValue(0, "db_object_id", ...). The
 * selected attributes stay what they were. No argument is changed.
 *
 * @param ecNumber the change number; stored in upper case.
 * @param ecName what the change is about.
 * @param securityLevel security level code; left out when empty.
 * @param securityCategory security category code; left out when empty.
 * @param initiator the person who asks for the change; when empty, the environment variable USER.
 * @return 1 when the change was stored, else 0.
 *
 *     EngineeringChangeCreate("EC-100", "Stronger bracket", "", "", "jdoe");
 */
VELRZM_API int EngineeringChangeCreate(const VELUnicodeString& ecNumber, const VELUnicodeString& ecName,
                                       const VELUnicodeString& securityLevel,
                                       const VELUnicodeString& securityCategory,
                                       const VELUnicodeString& initiator);

/**
 * Opens a stored engineering change. The current result is the change, with the named attributes.
 *
 * @param dbObjectId the database identifier; when empty, the change is found by its number. Not changed.
 * @param ecNumber the change number as it is stored; not turned to upper case.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return 1 when the change was found and opened, else 0.
 */
VELRZM_API int EngineeringChangeOpen(char* dbObjectId, char* ecNumber, char** attributeNames);

/**
 * Records that an engineering change acts on an item, with the site's defaults for "AffectedItemCreate", which are set
 * last. The current result is the stored record.
 *
 * @param ecNumber the change number; turned to upper case in place.
 * @param itemNumber the item number; turned to upper case in place.
 * @param action the change action, a short code; turned to upper case in place. An empty one stands for
 * "CHG"; under "REL" a default for "eff_date_str" is not used.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the record was stored, else 0.
 */
VELRZM_API int AffectedItemCreate(char* ecNumber, char* itemNumber, char* action, char** attributeNames);

/**
 * Lists the items that an engineering change affects, sorted by revision level and item number. The current
 * result is the list.
 *
 * @param ecDbObjectId the database identifier of the change, at most 57 characters; a missing or longer one is
 * refused. Not changed.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return the number of affected items; 0 when there are none or on failure.
 *
 *     char id[QV_MAX_VALUE_LENGTH + 1];
 *     GetValue(0, "db_object_id", id);                  // selected when the change was opened
 *     char* names[] = {itemNumberPath, nullptr};
 *     const int count = AffectedItemQuery(id, names);
 */
VELRZM_API int AffectedItemQuery(char* ecDbObjectId, char** attributeNames);

#endif
