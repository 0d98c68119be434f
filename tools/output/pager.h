// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_OUTPUT_PAGER_H
#define VELRZM_TOOLS_OUTPUT_PAGER_H

#include <string_view>

namespace tools {

/** From now on, nothing goes through a pager. */
void switchOffPager();

/** Shows a text that is longer than the terminal through the pager that the environment names, or less. Returns false
 * when the text is to be written as usual: it is shorter, the results are not on a terminal, or there is no pager. */
bool showInPager(std::string_view text);

} // namespace tools

#endif
