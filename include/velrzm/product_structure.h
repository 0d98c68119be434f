// SPDX-License-Identifier: Apache-2.0
//
// Product structure: headers of bills of material, component lines, their references, and the explosion.
#ifndef VELRZM_PRODUCT_STRUCTURE_H
#define VELRZM_PRODUCT_STRUCTURE_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Makes sure that an item has a bill-of-material header at an engineering change: opens it and, when that fails, stores
 * one with the site's defaults for "BomHeaderCreate", which are set last. The failed open is reported like any failure.
 * The current result is the header: with "db_object_id" when it was there, with the named attributes when it is new.
 *
 * @param ecNumber the change number; turned to upper case in place.
 * @param itemNumber the item number; turned to upper case in place.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the header is there, else 0.
 */
VELRZM_API int BomHeaderCreate(char* ecNumber, char* itemNumber, char** attributeNames);

/**
 * Explodes a bill of material. The current result is the list of its lines; from the local server they come depth first.
 *
 * @param parameterNames null-terminated array of report parameters. The local server takes "item_number" (the top item,
 * required), "ec_number" (lines of this change only) and "max_level" (1 for the lines of the top item alone; every level
 * when it is 0 or missing). "itm_doc_str" is always set to "*", after these.
 * @param parameterValues their values, at the same places, as many as there are names; a null value counts as
 * "".
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return the number of lines; 0 when there are none or on failure.
 */
VELRZM_API int BomExplode(char** parameterNames, char** parameterValues, char** attributeNames);

/**
 * Stores a component line of a bill of material. The current result is the stored line. No argument is
 * changed.
 *
 * @param ecNumber the change under which the line is valid.
 * @param itemNumber the parent item.
 * @param componentItemNumber the component item.
 * @param componentSequenceNumber the line's number on the parent.
 * @param componentType the component's type; left out when null or empty.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the line was stored, else 0.
 */
VELRZM_API int ComponentCreate(char* ecNumber, char* itemNumber, char* componentItemNumber,
                               char* componentSequenceNumber, char* componentType, char** attributeNames);

/**
 * Deletes a component line. No argument is changed.
 *
 * @param dbObjectId the database identifier of the line.
 * @param ecNumber the change under which the line is valid.
 * @param itemNumber the parent item.
 * @param componentItemNumber the component item.
 * @param componentSequenceNumber the line's number on the parent.
 * @return 1 when the line was deleted, else 0.
 */
VELRZM_API int ComponentDelete(char* dbObjectId, char* ecNumber, char* itemNumber, char* componentItemNumber,
                               char* componentSequenceNumber);

/**
 * Opens a component line. The current result is the line, with the named attributes.
 *
 * @param dbObjectId the database identifier of the line.
 * @param ecNumber the change number; turned to upper case in place.
 * @param attributeNames the attributes to read back, the first 49 by number as well (from number 1 on).
 * @return 1 when the line was found and opened, else 0.
 */
VELRZM_API int ComponentOpen(char* dbObjectId, char* ecNumber, VELListValVELUnicodeString& attributeNames);

/**
 * Stores the calling system's cross-reference of a component line. A line has at most one: when it has one already, that
 * one stays as it is, the failed save is reported, a warning with the arguments is written to standard output (trace
 * level 0), and the operation succeeds, with `QV_RC` 0. The current result is the object that was to be stored. No
 * argument is changed.
 *
 * @param ecNumber the change under which the line is valid.
 * @param itemNumber the parent item.
 * @param componentItemNumber the component item.
 * @param componentSequenceNumber the line's number on the parent.
 * @param componentReferenceXref the cross-reference.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the reference was stored, now or before; else 0.
 */
VELRZM_API int ComponentReferenceSave(char* ecNumber, char* itemNumber, char* componentItemNumber,
                                      char* componentSequenceNumber, char* componentReferenceXref,
                                      char** attributeNames);

/**
 * Deletes a component reference. No argument is changed.
 *
 * @param dbObjectId the database identifier of the reference.
 * @param ecNumber the change number.
 * @return 1 when the reference was deleted, else 0.
 */
VELRZM_API int ComponentReferenceDelete(char* dbObjectId, char* ecNumber);

/**
 * Ties a document to an item, with the site's defaults for "ItemReferenceCreate", which are set last. The
 * current result is the stored reference.
 *
 * @param ecNumber the change number, turned to upper case in place; "" for none.
 * @param itemNumber the item number; turned to upper case in place.
 * @param documentNumber the document number; turned to upper case in place.
 * @param documentRevisionNumber the document's revision.
 * @param systemPartnerOid the identifier of the document in the calling system.
 * @param attributeNames null-terminated array of the attributes to read back, the first 30 by number as well.
 * @return 1 when the reference was stored, else 0.
 */
VELRZM_API int ItemReferenceCreate(char* ecNumber, char* itemNumber, char* documentNumber,
                                   char* documentRevisionNumber, char* systemPartnerOid,
                                   char** attributeNames);

/**
 * Deletes an item reference. No argument is changed.
 *
 * @param dbObjectId the database identifier of the reference.
 * @param ecNumber the change number.
 * @return 1 when the reference was deleted, else 0.
 */
VELRZM_API int ItemReferenceDelete(char* dbObjectId, char* ecNumber);

/** Does nothing and returns 0: the server has no such query. The current result stays what it was. */
VELRZM_API int ItemReferenceQuery(char* dbObjectId, char* ecNumber, char* itemNumber, char* documentNumber,
                                  char** attributeNames);

#endif
