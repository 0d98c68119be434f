// SPDX-License-Identifier: Apache-2.0
//
// The current result: what the last operation left, an object or a list, and how to read its values.
//
//     char value[QV_MAX_VALUE_LENGTH + 1];
//     for (int record = 0; record < entries; ++record)
//         if (GetValue(record, "id", value, sizeof value)) use(value);
#ifndef VELRZM_RESULT_H
#define VELRZM_RESULT_H

#include <cstddef>

#include <velrzm/export.h>
#include <velrzm/qv_sdk.h>

/** The current object; after reading from a list, the object of the record read last. Owned by the library.
 */
VELRZM_API extern QV_ObjectHandle QV_ObjPtr;
/** The current list, or the rows of a report. Owned by the library. */
VELRZM_API extern QV_ListHandle QV_ListPtr;
/** The current report. Owned by the library. */
VELRZM_API extern QV_ReportHandle QV_RepPtr;
/** The code of the last call of the server: negative is a failure. */
VELRZM_API extern int QV_RC;
/** The kind of the current result: "Object" or "List"; empty before the first operation. */
VELRZM_API extern char FromList[10];
/** The number of records of the current result. */
VELRZM_API extern int entries;
/** The record that QV_ObjPtr holds, counted from 0; -1 when none. */
VELRZM_API extern int LastRecNo;
/** The attribute number that GetAttributeValue read last. */
VELRZM_API extern int LastAttNo;
/** The names of the selected attributes, each at most 49 characters and its terminator. */
VELRZM_API extern char SelectedAttribute[50][50];
/**
 * The number of slots of SelectedAttribute in use. Names that were passed as an array stand in the slots from
 * 0 on, names that were passed as a list in the slots from 1 on, and slot 0 is then not part of the result.
 */
VELRZM_API extern int NbSelectedAttribute;

/** Destroys the current report and the current list, as far as there are any. Returns always 1. */
VELRZM_API int DestroyListOrReport();

/**
 * Copies the value of the attribute `name` of record `recNo` into `value`. A record of a list is fetched from
 * the server when it is first asked for and kept until another one is.
 *
 * @param recNo the record, 0 to `entries` - 1.
 * @param name the attribute, as the operation selected it; need not stand in SelectedAttribute.
 * @param value receives the value; must hold QV_MAX_VALUE_LENGTH + 1 characters. "" when there is none.
 * @return 1; 0 when the record number is out of range or the record could not be fetched.
 */
VELRZM_API int GetValue(int recNo, const char* name, char* value);
/**
 * The same for a buffer of `valueSize` bytes, the terminator included: a longer value is cut to fit, and that
 * is told on standard output (trace level 0) and in the access log.
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
 * @return 1; 0 when a number is out of range or the record could not be fetched.
 */
VELRZM_API int GetAttributeValue(int recNo, int attNo, char* name, char* value);
/** The same for buffers of `nameSize` and `valueSize` bytes; what is longer is cut to fit as by GetValue. */
VELRZM_API int GetAttributeValue(int recNo, int attNo, char* name, std::size_t nameSize, char* value,
                                 std::size_t valueSize);

/**
 * Stores the number of records in `*nbEntries` and of selected attributes in `*nbAttributes`; null is
 * skipped.
 */
VELRZM_API void SizeOfAttributeValue(int* nbEntries, int* nbAttributes);

#endif
