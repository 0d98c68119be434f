// SPDX-License-Identifier: Apache-2.0
//
// Translation tables of the server: pairs of texts that map the values of one system to those of another.
// Neither function touches the current result; both set `QV_RC`.
#ifndef VELRZM_TRANSLATION_TABLES_H
#define VELRZM_TRANSLATION_TABLES_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Reads the table that the site calls `what`. The defaults files (defaults.h) map this name to the server's, with a line
 * such as "XlatRead units UNIT_OF_MEASURE". A name that is not mapped is told on standard output (trace level 0) and
 * in the access log, and sets `QV_RC` to 0. An entry of the table that cannot be read is reported and gives two empty
 * texts.
 *
 * @param what the site's name of the table, compared exactly.
 * @param from emptied, then filled with the "from" texts in the table's order.
 * @param to emptied, then filled with their translations.
 * @return the number of entries; 0 when the name is not mapped or the table is empty or unknown.
 */
VELRZM_API int XlatRead(const VELUnicodeString& what, VELListValVELUnicodeString& from,
                        VELListValVELUnicodeString& to);

/** Reads the table that the server calls `tableName`; otherwise like XlatRead. */
VELRZM_API int XlatRead2(const VELUnicodeString& tableName, VELListValVELUnicodeString& from,
                         VELListValVELUnicodeString& to);

#endif
