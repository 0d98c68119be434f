// SPDX-License-Identifier: Apache-2.0
//
// The current result: what the last operation left, an object or a list, and how to read its values. Look at these
// variables, and do not change them.
//
//     char value[QV_MAX_VALUE_LENGTH + 1];
//     for (int record = 0; record < entries; ++record)
//         if (GetValue(record, "id", value, sizeof value)) use(value);
#ifndef VELRZM_RESULT_H
#define VELRZM_RESULT_H

#include <cstddef>

#include <velrzm/export.h>
#include <velrzm/qv_sdk.h>

/**
 * The current object; after reading from a list, the object of the record read last. Owned by the library, which
 * destroys it when it needs another one.
 */
VELRZM_API extern QV_ObjectHandle QV_ObjPtr;
/** The current list, or the rows of a report; stays when an operation on an object follows. Owned by the library. */
VELRZM_API extern QV_ListHandle QV_ListPtr;
/** The current report. Owned by the library. */
VELRZM_API extern QV_ReportHandle QV_RepPtr;
/**
 * The code of the last server call that was checked: negative is a failure. -1 after a refusal of the library itself;
 * velrzm.h names the operations that set it otherwise.
 */
VELRZM_API extern int QV_RC;
/** The kind of the current result: "Object" or "List"; empty before the first operation. */
VELRZM_API extern char FromList[10];
/**
 * The number of records of the current result: 1 or 0 for an object, any number for a list. The multi-save functions
 * store their own result here, and DocumentMakeNewRevision the number of versions that it listed, or -1.
 */
VELRZM_API extern int entries;
/** The record read last, counted from 0; of a list, the one that QV_ObjPtr holds. -1 when none was read. */
VELRZM_API extern int LastRecNo;
/** The slot that GetAttributeValue read last; an operation does not change it. */
VELRZM_API extern int LastAttNo;
/** The names of the selected attributes, each at most 49 characters and its terminator. */
VELRZM_API extern char SelectedAttribute[50][50];
/**
 * The number of slots of SelectedAttribute in use. Names that were passed as an array stand in the slots from 0 on.
 * Names that were passed as a list stand in the slots from 1 on; slot 0 then keeps what it held and is counted.
 */
VELRZM_API extern int NbSelectedAttribute;

/**
 * Destroys the current report and then the current list, as far as there are any. A failure is reported, and when the
 * report cannot be destroyed, the list stays. The object, `entries`, `FromList` and the selection stay as they are.
 *
 * @return always 1.
 */
VELRZM_API int DestroyListOrReport();

/**
 * Copies the value of the attribute `name` of record `recNo` into `value`. A record of a list is fetched from
 * the server when it is first asked for and kept until another one is.
 *
 * @param recNo the record, 0 to `entries` - 1; an object is record 0.
 * @param name the attribute, as the operation selected it; need not stand in SelectedAttribute.
 * @param value receives the value; must hold QV_MAX_VALUE_LENGTH + 1 characters. "" when there is none: the server's
 * code is not looked at.
 * @return 1; 0 when the record number is out of range or the record could not be fetched. Before the first operation,
 * and while `entries` is negative, any record counts as one without values: 1, with "".
 */
VELRZM_API int GetValue(int recNo, const char* name, char* value);
/**
 * The same for a buffer of `valueSize` bytes, the terminator included: a longer value is cut to fit, with a warning on
 * standard output (trace level 0) and in the access log.
 */
VELRZM_API int GetValue(int recNo, const char* name, char* value, std::size_t valueSize);

/**
 * Copies the name in slot `attNo` of SelectedAttribute into `name` and the value of that attribute of record
 * `recNo` into `value`.
 *
 * @param recNo the record, 0 to `entries` - 1.
 * @param attNo the slot, 0 to `NbSelectedAttribute` - 1.
 * @param name receives the name; must hold 50 characters.
 * @param value receives the value; must hold QV_MAX_VALUE_LENGTH + 1 characters.
 * @return 1; 0 when a number is out of range or the record could not be fetched. As with GetValue, 1 and empty texts
 * while there is no result.
 */
VELRZM_API int GetAttributeValue(int recNo, int attNo, char* name, char* value);
/** The same for buffers of `nameSize` and `valueSize` bytes; what is longer is cut to fit as by GetValue. */
VELRZM_API int GetAttributeValue(int recNo, int attNo, char* name, std::size_t nameSize, char* value,
                                 std::size_t valueSize);

/** Stores `entries` in `*nbEntries` and `NbSelectedAttribute` in `*nbAttributes`; a null pointer is skipped. */
VELRZM_API void SizeOfAttributeValue(int* nbEntries, int* nbAttributes);

#endif
