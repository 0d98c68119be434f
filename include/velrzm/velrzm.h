// SPDX-License-Identifier: Apache-2.0
//
// VELRZM: operations on the Quorvanemaster product-data-management server for CAD integrations.
//
// This header includes the whole interface. What holds for all of it:
//
//  1. Texts are NUL-terminated and stay the caller's. A null text counts as an empty one, a null array or list
//     as one without entries, unless a function says otherwise. A `char*` argument is written to only where its
//     function says so: many operations turn item, change and document numbers to upper case in the caller's
//     own buffer. What is a lower-case letter is decided by the program's locale (`islower`, `toupper`); by
//     AffectedItemCreate, BomHeaderCreate and ItemReferenceCreate only "a" to "z" are turned.
//  2. An array of attribute names is closed by a null pointer. A list (`VELListValVELUnicodeString`) counts
//     from 1.
//  3. Every operation replaces the one current result of the process (result.h) and returns `entries`: for an
//     object 1 when it succeeded and 0 when not, for a list the number of its records, 0 when none or on failure.
//  4. Nothing is thrown. A failed call of the server is reported on standard output, in the access log, in the
//     error log and in the last-error file (logging.h), and leaves its negative code in `QV_RC`. Whatever else goes
//     wrong inside a function, as when memory runs out, is reported likewise: `QV_RC` is -1, and the function
//     returns what it returns for a failure. What the server has done by then stays done. The functions that only
//     write (QVL_Log, DisplayError, Process_QV_RC) leave `QV_RC` as it is. A line that cannot be written is left out.
//     The types in vel_types.h are part of the program that uses them, and throw there: std::bad_alloc when a text
//     finds no memory, also on the way into an argument, and std::out_of_range for a position outside a list.
//  5. Values are copied into the caller's buffers, which must be large enough; where a function also comes with
//     a size, it never writes past it.
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
