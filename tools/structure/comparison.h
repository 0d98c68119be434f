// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_COMPARISON_H
#define VELRZM_TOOLS_STRUCTURE_COMPARISON_H

#include "tools/output/records.h"
#include "tools/structure/product_structure.h"

namespace tools {

/** The components that one structure has and the other has not, or has on another number of lines, by parent. The
 * parent of the topmost is left empty, so that structures of different items can be compared. The items have
 * their names as first values. */
Records differences(const ProductStructure& before, const ProductStructure& after);

} // namespace tools

#endif
