// SPDX-License-Identifier: Apache-2.0
//
// A structure as a page for a browser: one file that needs no other one and no network.
#ifndef VELRZM_TOOLS_PAGE_PAGE_H
#define VELRZM_TOOLS_PAGE_PAGE_H

#include <string>

#include "tools/structure/comparison.h"
#include "tools/structure/product_structure.h"

namespace tools {

/** The page of a structure. `scope` says for the summary what of it was read: "lines of EC-1"; empty for everything. */
std::string structurePage(const ProductStructure& structure, const std::string& scope);

/** The page of a comparison. `title` says of what. */
std::string comparisonPage(const Comparison& comparison, const std::string& title);

} // namespace tools

#endif
