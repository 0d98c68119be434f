// SPDX-License-Identifier: Apache-2.0
//
// Items: master records, headers, unit effectivities, and the identifiers that the calling system has for
// them.
#ifndef VELRZM_ITEMS_H
#define VELRZM_ITEMS_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Stores a new item, with the site's defaults for "ItemCreate". The values are set in this order, and the
 * last one of an attribute stays: defaults, the caller's pairs, then the keys and the other arguments. With
 * the environment variable QVL_BOM_HEADER_CREATE set to YES the server also makes the item's bill-of-material
 * header. The current result is the stored item.
 *
 * @param ecNumber the change that introduces the item; turned to upper case in place.
 * @param itemNumber the item number; turned to upper case in place.
 * @param itemName the item's name; turned to upper case in place.
 * @param itemType item type code, not changed; left out when null or empty.
 * @param inputNames further attributes to set.
 * @param inputValues their values at the same positions; a pair without a value is skipped.
 * @param selectedNames the attributes to read back, the first 29 by number as well (from number 1 on).
 * @return 1 when the item was stored, else 0.
 */
VELRZM_API int ItemCreate(char* ecNumber, char* itemNumber, char* itemName, char* itemType,
                          VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
                          VELListValVELUnicodeString& selectedNames);

/**
 * Changes a stored item: opens it by item and change number, sets the site's defaults for "ItemCreate", the
 * caller's pairs, the name and the type, and saves it. Arguments, current result and return value are those
 * of ItemCreate.
 *
 * @return 1 when the item was found and stored, else 0.
 */
VELRZM_API int ItemSave(char* ecNumber, char* itemNumber, char* itemName, char* itemType,
                        VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
                        VELListValVELUnicodeString& selectedNames);

/**
 * Stores a new item header, with the site's defaults for "ItemHeaderCreate", and releases it under an
 * engineering change: with a change number, AffectedItemCreate is called with the action "REL". The current
 * result is then the affected item, otherwise the item; "db_object_id" can be read in both cases. The
 * arguments are not changed.
 *
 * @param ecNumber the change to link the item to, in upper case; empty for none.
 * @param itemNumber the item number, stored in upper case.
 * @param itemName the item's name, stored in upper case.
 * @param itemDescription the description.
 * @param itemType item type code.
 * @param securityLevel security level code.
 * @param securityCategory security category code.
 * @return 1 when the item was stored, also when the link failed; else 0.
 */
VELRZM_API int ItemHeaderCreate(const VELUnicodeString& ecNumber, const VELUnicodeString& itemNumber,
                                const VELUnicodeString& itemName, const VELUnicodeString& itemDescription,
                                const VELUnicodeString& itemType, const VELUnicodeString& securityLevel,
                                const VELUnicodeString& securityCategory);

/**
 * Opens a stored item. The current result is the item, with the selected attributes.
 *
 * @param itemNumber the item number; turned to upper case in place.
 * @param ecNumber the change number; turned to upper case in place.
 * @param selectedNames the attributes to read back, the first 49 by number as well (from number 1 on).
 * @return 1 when the item was found and opened, else 0.
 */
VELRZM_API int ItemOpen(char* itemNumber, char* ecNumber, VELListValVELUnicodeString& selectedNames);

/**
 * Searches items. The current result is the list of those that match every filter given; an empty filter is
 * not used. A value that does not fit its clause is refused: at most 44 characters for the item number, 49 for
 * the change number, 47 for the type code and 48 for the others.
 *
 * @param itemNumber the beginning of the item number, or the whole number after a "="; turned to upper case
 * in place.
 * @param ecNumber the number of a change that affects the item, or a pattern with "%"; turned to upper case
 * in place. Not used by the query type "DEV".
 * @param itemTypeCode the item type code.
 * @param itemStatusCode the beginning of the item's status under the change; not used by the query type
 * "DEV".
 * @param itemName the beginning of the name; turned to upper case in place.
 * @param itemDescription the beginning of the description.
 * @param sortBy "2": by change number; anything else: by item number.
 * @param queryType "DEV": items in development; anything else: items as changes affect them, one record for
 * each affected item.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return the number of records; 0 when there are none or on failure.
 */
VELRZM_API int ItemQuery(char* itemNumber, char* ecNumber, char* itemTypeCode, char* itemStatusCode,
                         char* itemName, char* itemDescription, char* sortBy, char* queryType,
                         char** attributeNames);

/**
 * Stores from which unit of a product on an item is effective, with the site's defaults for
 * "ItemPUEffectivityCreate". The current result is the stored record.
 *
 * @param ecNumber the change number; turned to upper case in place.
 * @param itemNumber the item number; turned to upper case in place.
 * @param productId the product; turned to upper case in place.
 * @param cutInUnit the first unit of the product.
 * @param inputNames further attributes to set, before those above.
 * @param inputValues their values at the same positions; a pair without a value is skipped.
 * @param selectedNames the attributes to read back, the first 29 by number as well (from number 1 on).
 * @return 1 when the record was stored, else 0.
 */
VELRZM_API int ItemPUEffectivityCreate(char* ecNumber, char* itemNumber, char* productId, char* cutInUnit,
                                       VELListValVELUnicodeString& inputNames,
                                       VELListValVELUnicodeString& inputValues,
                                       VELListValVELUnicodeString& selectedNames);

/**
 * Opens the record that ties an item to the calling system's identifier ("alias_xref"). The current result is
 * the record, with the named attributes. No argument is changed.
 *
 * @param dbObjectId the database identifier of the record; when empty, it is found by the numbers.
 * @param itemNumber the item number as it is stored.
 * @param ecNumber the change number as it is stored.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return 1 when the record was found and opened, else 0.
 */
VELRZM_API int ItemAssociationOpen(char* dbObjectId, char* itemNumber, char* ecNumber, char** attributeNames);

/**
 * Stores the record that ties an item to the calling system's identifier. The current result is the stored
 * record. No argument is changed.
 *
 * @param ecNumber the change number; "" for none.
 * @param itemNumber the item number.
 * @param systemPartnerOid the identifier of the item in the calling system.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the record was stored, else 0.
 */
VELRZM_API int ItemAssociationSave(char* ecNumber, char* itemNumber, char* systemPartnerOid,
                                   char** attributeNames);

#endif
