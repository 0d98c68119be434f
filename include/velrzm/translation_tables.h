// SPDX-License-Identifier: Apache-2.0
//
// Translation tables of the server: pairs of texts that map the values of one system to those of another.
// Neither function touches the current result.
#ifndef VELRZM_TRANSLATION_TABLES_H
#define VELRZM_TRANSLATION_TABLES_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Reads the table that the site calls `what`: the defaults files map the name to the server's, with an entry
 * of the operation "XlatRead", the name and the table. An entry that cannot be read is reported and gives two
 * empty texts.
 *
 * @param what the name of the table at the site, compared exactly.
 * @param from emptied, then filled with the "from" texts in the table's order.
 * @param to emptied, then filled with their translations.
 * @return the number of entries; 0 when the name is not mapped or the table is empty or unknown.
 */
VELRZM_API int XlatRead(const VELUnicodeString& what, VELListValVELUnicodeString& from,
                        VELListValVELUnicodeString& to);

/** Reads the table that the server calls `tableName`; see XlatRead. */
VELRZM_API int XlatRead2(const VELUnicodeString& tableName, VELListValVELUnicodeString& from,
                         VELListValVELUnicodeString& to);

#endif
