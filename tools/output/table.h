// SPDX-License-Identifier: Apache-2.0
//
// Records as aligned columns, for a person to read.
#ifndef VELRZM_TOOLS_OUTPUT_TABLE_H
#define VELRZM_TOOLS_OUTPUT_TABLE_H

#include <string>

#include "tools/output/records.h"

namespace tools {

/** The records as a table, each line led by `indentation` blanks. On a terminal wide values are cut to its
 * width, elsewhere the table is as wide as it needs to be. */
std::string tableText(const Records& records, unsigned indentation = 0);

/** The rows of `records` as a tree: the first column is drawn as branches, `parents[i]` is the row below
 * which row i hangs, -1 for a root. */
std::string treeText(const Records& records, const std::vector<int>& parents, unsigned indentation = 0);

} // namespace tools

#endif
