// SPDX-License-Identifier: Apache-2.0
//
// Items: master records, headers, unit effectivities, and the identifiers that the calling system has for
// them.
#ifndef VELRZM_ITEMS_H
#define VELRZM_ITEMS_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Stores a new item, with the site's defaults for "ItemCreate". The values are set in this order, and the last one of an
 * attribute counts: the defaults, the caller's pairs, the keys and the other arguments. With the environment variable
 * QVL_BOM_HEADER_CREATE set to YES the server also makes the item's bill-of-material header. The current result is the
 * stored item.
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
 * Changes a stored item: opens it by item and change number, sets the site's defaults for "ItemCreate", the caller's
 * pairs, the name and the type, in this order, and saves it. The arguments are those of ItemCreate; a default or a pair
 * that names a key is set after the item was found. The current result is the item.
 *
 * @return 1 when the item was found and stored, else 0.
 */
VELRZM_API int ItemSave(char* ecNumber, char* itemNumber, char* itemName, char* itemType,
                        VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
                        VELListValVELUnicodeString& selectedNames);

/**
 * Stores a new item header, with the site's defaults for "ItemHeaderCreate"; the arguments are set after them. With a
 * change number it then calls AffectedItemCreate with the action "REL", to release the item under that change, and
 * AffectedItemCreate's result is the current one, with "db_object_id" in slot 0 of the selected attributes. Without
 * one the current result is the item, and the selected attributes stay what they were; GetValue(0, "db_object_id", ...)
 * reads its identifier. No argument is changed.
 *
 * @param ecNumber the change to release the item under, used in upper case; empty for none.
 * @param itemNumber the item number, stored in upper case.
 * @param itemName the item's name, stored in upper case.
 * @param itemDescription the description.
 * @param itemType item type code; this and the two codes below are set also when they are empty.
 * @param securityLevel security level code.
 * @param securityCategory security category code.
 * @return 1 when the item was stored, else 0. With a change number it is 1 also when AffectedItemCreate failed, whose
 * result, 1 or 0, is then in `QV_RC`.
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
 * Searches items. The current result is the list of those that match every filter given; an empty filter is not used.
 * In a filter that asks for a beginning or a pattern, "%" stands for any characters and "_" for any one.
 *
 * A filter that does not fit its clause is refused. The limits are 44 characters for the beginning of an item number and
 * 48 for a whole one (behind the "="), 49 for the change number, 47 for the type code, and 48 for the others.
 *
 * Besides the named attributes, each record has "net_pu_flg" and "logical_key@loc_id", and unless the query type is
 * "DEV" also "ai_obj@item_status", "ai_obj@pln_rev_level", "ai_obj@ec@id", "ai_obj@ec@db_object_id", "ai_obj@ec@status"
 * and "ai_obj@ec@chg_control_code", to be read with GetValue.
 *
 * @param itemNumber the beginning of the item number, or "=" and the whole number; turned to upper case in place.
 * @param ecNumber the number of a change that affects the item, or a pattern with "%"; turned to upper case in place.
 * Not used by the query type "DEV", and then not changed.
 * @param itemTypeCode the item type code.
 * @param itemStatusCode the beginning of the item's status under the change; not used by the query type "DEV".
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
 * Stores from which unit of a product on an item is effective, with the site's defaults for "ItemPUEffectivityCreate".
 * The values are set in this order, and the last one of an attribute counts: the defaults, the caller's pairs, the other
 * arguments. The current result is the stored record.
 *
 * @param ecNumber the change number; turned to upper case in place.
 * @param itemNumber the item number; turned to upper case in place.
 * @param productId the product; turned to upper case in place.
 * @param cutInUnit the first unit of the product, not changed.
 * @param inputNames further attributes to set.
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
