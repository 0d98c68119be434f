// SPDX-License-Identifier: Apache-2.0
//
// Deleting a record of the product structure: one operation, with a table of what differs by kind of record.
#ifndef VELRZM_OPERATIONS_PRODUCT_STRUCTURE_DELETION_H
#define VELRZM_OPERATIONS_PRODUCT_STRUCTURE_DELETION_H

#include "frame/object_request.h"

namespace velrzm {

/** A kind of record that can be deleted. */
struct Deletion {
    const char* prefix;
    const char* className;
    const char* executing; // the trace line before the call; null for none
};

/** A key beside the database identifier and the change number. */
struct FurtherKey {
    const char* input; // the label of its line among the inputs; null for none
    Setting setting;
};

/** Deletes the record that these keys identify; the result is `entries`. */
int deleteRecord(const Deletion& deletion, const char* dbObjectId, const char* ecNumber,
                 std::initializer_list<FurtherKey> furtherKeys = {});

} // namespace velrzm

#endif
