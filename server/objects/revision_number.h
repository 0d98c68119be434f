// SPDX-License-Identifier: Apache-2.0
//
// Revision numbers of documents: how they sort, and which one follows.
//
// A revision number is read as runs of digits, of letters and of other characters. Runs of digits count as
// numbers, runs of letters by their length first, so that 9 comes before 10 and Z before AA. Digits come
// before letters.
#ifndef VELRZM_SERVER_OBJECTS_REVISION_NUMBER_H
#define VELRZM_SERVER_OBJECTS_REVISION_NUMBER_H

#include <string>
#include <string_view>

namespace qvserver {

/** A text that sorts, byte by byte, as the revision number does, and is different for different numbers. Fails when it
 * would be longer than a value may be. */
std::string revisionSortValue(std::string_view number);

/**
 * The revision number after `number`; it always sorts behind it. The last run counts on: 9 to 10, 09 to 10,
 * Z to AA, AZ to BA, A9 to A10, 1Z to 1AA. What ends in another character gets a counter: A- to A-1, "" to 1.
 */
std::string nextRevisionNumber(std::string_view number);

} // namespace qvserver

#endif
