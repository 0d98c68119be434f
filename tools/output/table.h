// SPDX-License-Identifier: Apache-2.0
//
// Records as aligned columns, for a person to read.
//
// On a terminal a table that is too wide gives way in this order: names and other free texts are cut and end in
// "…", sentences are wrapped, and if that is not enough, the table is wider than the terminal. Numbers, and
// whatever else tells one object from another, are never cut. Elsewhere a table is as wide as it needs to be.
#ifndef VELRZM_TOOLS_OUTPUT_TABLE_H
#define VELRZM_TOOLS_OUTPUT_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

#include "tools/output/records.h"

namespace tools {

/** The records as a table, each line led by `indentation` blanks; "" when there are none. */
std::string tableText(const Records& records, std::size_t indentation = 0);

/** The rows of `records` as a tree: the first column is drawn as branches. `levels[i]` is the level of row i,
 * which hangs below the last row before it on the level above; the first row has level 0. */
std::string treeText(const Records& records, const std::vector<int>& levels, std::size_t indentation = 0);

} // namespace tools

#endif
