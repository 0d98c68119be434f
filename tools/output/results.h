// SPDX-License-Identifier: Apache-2.0
//
// Where every result is written. What is shown on a terminal cannot do anything to it: whatever a terminal would
// obey is written out as an escape.
#ifndef VELRZM_TOOLS_OUTPUT_RESULTS_H
#define VELRZM_TOOLS_OUTPUT_RESULTS_H

#include <string_view>

namespace tools {

/** Nobody reads the results any more, as after `velrzm ... | head`. */
class OutputClosed {};

/** Writes a text to the results. Throws OutputClosed, Interrupted, or Refused when it cannot be written. */
void writeResult(std::string_view text);

/** The same for a text in which only this program's own styles are left for the terminal to obey. */
void writeStyledResult(std::string_view text);

} // namespace tools

#endif
