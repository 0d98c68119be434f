// SPDX-License-Identifier: Apache-2.0
//
// What the results are shown on, and how text is dressed up for it.
#ifndef VELRZM_TOOLS_OUTPUT_TERMINAL_H
#define VELRZM_TOOLS_OUTPUT_TERMINAL_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tools {

struct Terminal {
    bool interactive = false; // a person looks at it
    bool colour = false;      // a terminal that shows colours, and NO_COLOR does not forbid them
    bool unicode = false;     // characters beyond ASCII can be shown
    std::size_t width = 80;   // in columns; meaningful for a terminal only, like the height
    std::size_t height = 24;  // in lines
};

/** Sets the locale for texts in UTF-8 and looks at the results' channel; called once, at the start. */
void inspectTerminal();
const Terminal& terminal();

enum class Style { Plain, Bold, Dim, Good, Bad };

/** `text` in a style, as far as the terminal shows colours. */
std::string styled(Style style, std::string_view text);

/** How many columns of a terminal a visible text takes. */
std::size_t shownWidth(std::string_view text);

/** `text`, filled up with blanks to `width` columns. */
std::string padded(std::string_view text, std::size_t width);

/** The beginning of a text that is wider than `width` columns, with "…" to show that it goes on. */
std::string cut(std::string_view text, std::size_t width);

/** The lines of `text` when it is broken at blanks so that none is wider than `width`. A word that is wider itself
 * is broken anywhere. */
std::vector<std::string> brokenLines(std::string_view text, std::size_t width);

} // namespace tools

#endif
