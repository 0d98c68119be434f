// SPDX-License-Identifier: Apache-2.0
//
// The page as it lies in the program, with the program's version, its styles and its script filled in.
#ifndef VELRZM_TOOLS_PAGE_PAGE_TEXT_H
#define VELRZM_TOOLS_PAGE_PAGE_TEXT_H

#include <string_view>

namespace tools {

/** What comes before the data, and what follows them. */
extern const std::string_view pageHead;
extern const std::string_view pageTail;

} // namespace tools

#endif
