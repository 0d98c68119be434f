// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_PROCESS_VISIBLE_TEXT_H
#define VELRZM_TOOLS_PROCESS_VISIBLE_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tools {

/** A character of UTF-8. */
struct Character {
    std::uint32_t code;
    std::size_t size; // in bytes; 1 where they are not UTF-8
    bool isValid;
};

/** The first character of a text that is not empty. */
Character firstCharacter(std::string_view text);

/** A text with everything that a terminal would obey instead of showing it written out as an escape, "\u001b":
 * control characters but for line ends and tabs, C1 controls, marks that change the direction of writing, and
 * bytes that are not UTF-8. A JSON text keeps its meaning. */
std::string visible(std::string_view text);

/** The same on one line: line ends and tabs are written out as well, "\n" and "\t". */
std::string visibleLine(std::string_view text);

} // namespace tools

#endif
