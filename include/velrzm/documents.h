// SPDX-License-Identifier: Apache-2.0
//
// Documents: versions in the vault, their revisions and their change control.
#ifndef VELRZM_DOCUMENTS_H
#define VELRZM_DOCUMENTS_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Creates a document with the revision number "1" and checks its first version in, with the site's defaults for
 * "DocumentCreateCheckIn", which are set last. The server gives the document its number. The current result is the new
 * document version.
 *
 * @param ecNumber the change that controls the document, turned to upper case in place; null or "" for none.
 * @param documentTitle the title; turned to upper case in place.
 * @param systemPartnerOid the identifier of the document in the calling system.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return 1 when the document was created and checked in, else 0.
 */
VELRZM_API int DocumentCreateCheckIn(char* ecNumber, char* documentTitle, char* systemPartnerOid,
                                     char** attributeNames);

/**
 * Checks a document version out of the vault to the user: opens it, sets the site's defaults for "DocumentCheckOut" and
 * checks it out. The current result is the document version.
 *
 * @param dbObjectId the database identifier of the version; when empty, the number and revision identify it. Not
 * changed.
 * @param documentNumber the document number; turned to upper case in place.
 * @param revisionNumber the revision number, not changed.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return 1 when the version was checked out, else 0.
 */
VELRZM_API int DocumentCheckOut(char* dbObjectId, char* documentNumber, char* revisionNumber,
                                char** attributeNames);
/**
 * Checks in a document version that was checked out, with the defaults for "DocumentCheckIn"; otherwise like
 * DocumentCheckOut.
 */
VELRZM_API int DocumentCheckIn(char* dbObjectId, char* documentNumber, char* revisionNumber,
                               char** attributeNames);
/** Cancels a check-out, with the defaults for "DocumentCancelCheckOut"; otherwise like DocumentCheckOut. */
VELRZM_API int DocumentCancelCheckOut(char* dbObjectId, char* documentNumber, char* revisionNumber,
                                      char** attributeNames);

/**
 * Makes the next revision of a document, gives it its title and the calling system's identifier, and puts it under the
 * control of an engineering change or of none. When the same change controls the base revision, the base revision is
 * released from it. A failure after the revision was made leaves it in the vault, without what the failed step and
 * those after it would have set.
 *
 * The current result is the base revision, record 0, on which the site's defaults for "DocumentMakeNewRevision" are set.
 * `entries`, however, is the number of the document's versions, or -1 when these were not listed.
 *
 * @param ecNumber the change that controls the new revision, not changed; null or "" for none.
 * @param documentNumber the document number, at most 49 characters; a longer one is refused. Turned to upper case in place.
 * @param revisionNumber the number of the base revision.
 * @param newRevDocumentTitle the title of the new revision.
 * @param systemPartnerOid the identifier of the document in the calling system.
 * @param attributeNames null-terminated array of the attributes of the base revision to read back, the first 50 by
 * number as well.
 * @param newRevisionNumber receives the number of the new revision; must hold QV_MAX_VALUE_LENGTH + 1
 * characters. Written as soon as the new revision is found, also when a later step fails.
 * @param newDbObjectId receives its database identifier, likewise.
 * @return 1 when the new revision was made and stored, else 0.
 */
VELRZM_API int DocumentMakeNewRevision(char* ecNumber, char* documentNumber, char* revisionNumber,
                                       char* newRevDocumentTitle, char* systemPartnerOid,
                                       char** attributeNames, char* newRevisionNumber, char* newDbObjectId);

/**
 * Puts a document revision under the control of an engineering change. The current result is the revision.
 * The site's defaults for "DocumentMakeECControlled" are written to the access log and not set.
 *
 * @param ecNumber the controlling change; an empty one is set as well. Turned to upper case in place.
 * @param documentNumber the document number; turned to upper case in place.
 * @param revisionNumber the revision number.
 * @param documentTitle the title, written to the trace and the access log only.
 * @param attributeNames null-terminated array of the attributes to read back, the first 50 by number as well.
 * @return 1 when the revision was stored under change control, else 0.
 */
VELRZM_API int DocumentMakeECControlled(char* ecNumber, char* documentNumber, char* revisionNumber,
                                        const char* documentTitle, char** attributeNames);

/**
 * Opens a document revision. The current result is the revision, with the named attributes.
 *
 * @param documentNumber the document number; turned to upper case in place.
 * @param revisionNumber the revision number.
 * @param attributeNames the attributes to read back, the first 49 by number as well (from number 1 on).
 * @return 1 when the revision was found and opened, else 0.
 */
VELRZM_API int DocumentOpen(char* documentNumber, char* revisionNumber,
                            VELListValVELUnicodeString& attributeNames);

/**
 * Lists the versions of a document in the order of their revisions; the last record is the latest version of the latest
 * revision. The current result is the list, with "doc_revision@doc_number" and "doc_revision@doc_rev_num" of each
 * version and nothing to read by number. Read the number of record `entries` - 1.
 *
 * @param documentNumber the document number as it is stored, at most 49 characters; a longer one is refused. So is a
 * missing one, which leaves the current result as it was, but for `entries`.
 * @return the number of versions; 0 when there are none or on failure.
 */
VELRZM_API int DocumentGetLastRevision(const char* documentNumber);

#endif
