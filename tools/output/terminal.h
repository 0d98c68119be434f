// SPDX-License-Identifier: Apache-2.0
//
// What the results are shown on, and how text is dressed up for it.
#ifndef VELRZM_TOOLS_OUTPUT_TERMINAL_H
#define VELRZM_TOOLS_OUTPUT_TERMINAL_H

#include <string>
#include <string_view>

namespace tools {

struct Terminal {
    bool interactive = false; // a person looks at it
    bool colour = false;      // a terminal that shows colours, and NO_COLOR does not forbid them
    bool unicode = false;     // characters beyond ASCII can be shown
    unsigned width = 80;      // in characters; meaningful for a terminal only
};

/** Sets the locale for texts in UTF-8 and looks at the results' channel; called once, at the start. */
void inspectTerminal();
const Terminal& terminal();

enum class Style { Bold, Dim, Good, Bad };

/** `text` in a style, as far as the terminal shows colours. */
std::string styled(Style style, std::string_view text);

/** `text`, filled up with blanks to `width` characters as the terminal shows them. */
std::string padded(std::string_view text, std::size_t width);

} // namespace tools

#endif
