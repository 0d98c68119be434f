// SPDX-License-Identifier: Apache-2.0
//
// VELRZM: operations on the Quorvanemaster product-data-management server for CAD integrations.
//
// This header includes the whole interface. What holds for all of it:
//
//  1. Texts are NUL-terminated and stay the caller's. A null text counts as an empty one and a null array as one
//     without entries, unless a function says otherwise. A `char*` argument is written to only where its
//     function says so: many operations turn item, change and document numbers to upper case in the caller's
//     own buffer, which must then be writable. The program's locale decides what a lower-case letter is (`islower`,
//     `toupper`); AffectedItemCreate, BomHeaderCreate and ItemReferenceCreate turn only "a" to "z".
//  2. An array of attribute names is closed by a null pointer. A list (`VELListValVELUnicodeString`) counts
//     from 1.
//  3. An operation replaces the one current result of the process (result.h) and returns `entries`: for an object 1
//     when it succeeded and 0 when not, for a list the number of its records, 0 when there are none or it could not
//     be counted. Exceptions:
//       - MultiSaveStart, MultiSaveCommit and MultiSaveDiscard set `entries` and leave the rest of the result alone;
//       - XlatRead, XlatRead2, DefaultRead and ItemReferenceQuery leave all of it alone;
//       - DocumentGetLastRevision without a document number sets `entries` to 0 and leaves the rest alone;
//       - DocumentMakeNewRevision returns 1 or 0 as for an object, but `entries` counts a list;
//       - DestroyListOrReport and QvExit destroy the list and the report, and leave `entries` and `FromList` as they
//         are: there is nothing to read until the next operation.
//  4. Nothing is thrown. A failed call of the server is reported on standard output, in the access log, in the
//     error log and in the last-error file (logging.h), and its negative code stays in `QV_RC` until the next call. An
//     operation then skips its further calls. A failed call that does not matter to it is reported, too, but the
//     operation goes on, and `QV_RC` is that of the next call. Exceptions:
//       - a value that cannot be read is empty, and that is not reported; nor is, by most operations, a previous object
//         or list that cannot be destroyed, nor by DocumentMakeNewRevision a new revision that cannot be found;
//       - a missing argument of AffectedItemQuery or DocumentGetLastRevision is told on standard output only (trace
//         level 0), with -1 in `QV_RC`; an argument that does not fit its limit is reported like a failed call;
//       - `QV_RC` is 0 after XlatRead of a name that is not mapped, which is told on standard output and in the access
//         log, and after ComponentReferenceSave of a reference that is already stored, which is reported;
//       - `QV_RC` is the result of AffectedItemCreate, 1 or 0, after ItemHeaderCreate with a change number.
//     Whatever else goes
//     wrong inside a function, as when memory runs out, is reported likewise: `QV_RC` is -1, and the function
//     returns what it returns for a failure. What the server has done by then stays done. The functions that only
//     write (QVL_Log, DisplayError, Process_QV_RC) leave `QV_RC` as it is. A line that cannot be written is left out.
//     The types in vel_types.h are part of the program that uses them, and throw there: std::bad_alloc when a text
//     finds no memory, also on the way into an argument, and std::out_of_range for a position outside a list.
//  5. Values are copied into the caller's buffers, which must be large enough; where a function also comes with
//     a size, it never writes past it. A null buffer receives nothing.
//  6. All state is process-wide and unprotected: call the library from one thread at a time.
#ifndef VELRZM_VELRZM_H
#define VELRZM_VELRZM_H

#include <velrzm/connection.h>
#include <velrzm/defaults.h>
#include <velrzm/documents.h>
#include <velrzm/engineering_changes.h>
#include <velrzm/errors.h>
#include <velrzm/items.h>
#include <velrzm/logging.h>
#include <velrzm/multi_save.h>
#include <velrzm/print_list.h>
#include <velrzm/product_configuration.h>
#include <velrzm/product_structure.h>
#include <velrzm/qv_sdk.h>
#include <velrzm/result.h>
#include <velrzm/translation_tables.h>
#include <velrzm/vel_types.h>

#endif
