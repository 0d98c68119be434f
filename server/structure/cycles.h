// SPDX-License-Identifier: Apache-2.0
//
// A product structure must not contain itself, neither directly nor through other levels.
#ifndef VELRZM_SERVER_STRUCTURE_CYCLES_H
#define VELRZM_SERVER_STRUCTURE_CYCLES_H

#include <string>
#include <vector>

#include "server/store/store.h"

namespace qvserver {

/** An object with `values` was stored: fails when it is a line of a structure that closes a cycle. */
void checkNoCycle(Store& store, const Class& objectClass, const Values& values);

/** Fails with the cycle written out; `items` are the items on it, the first one once more at the end. */
[[noreturn]] void failWithCycle(const std::vector<std::string>& items, std::string_view remedy);

} // namespace qvserver

#endif
