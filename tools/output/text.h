// SPDX-License-Identifier: Apache-2.0
//
// Texts: what people read, and what they typed.
#ifndef VELRZM_TOOLS_OUTPUT_TEXT_H
#define VELRZM_TOOLS_OUTPUT_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tools {

/** Texts with `separator` between them. */
template <typename Texts>
std::string joined(const Texts& texts, const std::string& separator)
{
    std::string all;
    for (const std::string& text : texts) {
        all.append(&text == &*texts.begin() ? "" : separator).append(text);
    }
    return all;
}

/** A text in quotation marks. */
std::string quoted(const std::string& text);

/** "1 row", "2 rows". */
std::string counted(std::size_t number, const std::string& unit);

/** A text with its lower-case letters turned to upper case, letter for letter as the library does it. */
std::string inUpperCase(std::string text);

/** What is wrong with a text that the server is to search for, "" when nothing is: an apostrophe ends a text in its
 * search conditions. */
std::string searchFault(const std::string& text);

/** The whole number that a text is, sign included; nothing when it is something else or too large. */
std::optional<int> wholeNumber(const std::string& text);

/** A text broken at blanks into lines of at most `width` columns. Its own line ends stay. The first line is taken
 * to begin in the column `begin`, and the lines that were broken off do. */
std::string wrapped(const std::string& text, std::size_t width, std::size_t begin = 0);

/** Which of the words was probably meant: those that differ least from `word`, if they hardly do. */
std::vector<std::string> nearest(const std::string& word, const std::vector<std::string>& words);

/** The question for such words, as the end of a message; "" when there are none. */
std::string didYouMean(std::vector<std::string> near);

} // namespace tools

#endif
