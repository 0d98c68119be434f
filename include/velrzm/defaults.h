// SPDX-License-Identifier: Apache-2.0
//
// Attribute defaults that a site configures for an operation.
#ifndef VELRZM_DEFAULTS_H
#define VELRZM_DEFAULTS_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Reads the defaults of an operation from the shared file QVL_RZM_DEFAULT, in the directory that
 * RZM_DEFAULT_DIRECTORY names or in the working directory, and then from ./My_QVL_RZM_DEFAULT: each of its entries
 * replaces the value of the first one with the same attribute, or is added at the end. Both files are read afresh by
 * every call; a missing one is skipped, and so is, with a warning, a shared file whose path has more than 255
 * characters. A warning is a line on standard output (trace level 0) and in the access log.
 *
 * A line holds the operation's name, an attribute and a value, separated by blanks or tabs; text from a "#" on
 * is a comment. Lines may end as on Windows. A line is read up to its 63rd character, and what follows counts as
 * another line; an entry that is cut there is used as it is, with a warning. A missing word is an empty text.
 *
 *     ItemCreate   item_type   P     # the usual part
 *
 * EngineeringChangeCreate, ItemCreate, ItemSave, ItemHeaderCreate and ItemPUEffectivityCreate use all pairs; the other
 * operations with defaults use the first 19 and warn when there are more.
 *
 * @param operation the name that the lines must begin with, compared exactly; may stand in one of the lists.
 * @param names emptied, then filled with the attribute names.
 * @param values emptied, then filled with the values, at the same positions.
 * @return the number of pairs; 0, with both lists empty, when memory runs out. There is no other failure.
 */
VELRZM_API int DefaultRead(const VELUnicodeString& operation, VELListValVELUnicodeString& names,
                           VELListValVELUnicodeString& values);

#endif
