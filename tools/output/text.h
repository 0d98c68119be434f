// SPDX-License-Identifier: Apache-2.0
//
// Small works on texts that people read.
#ifndef VELRZM_TOOLS_OUTPUT_TEXT_H
#define VELRZM_TOOLS_OUTPUT_TEXT_H

#include <string>
#include <vector>

namespace tools {

/** Texts with something between them. */
std::string joined(const std::vector<std::string>& texts, const std::string& separator);

/** A text in quotation marks. */
std::string quoted(const std::string& text);

/** A text broken at blanks to lines of at most `width` characters. Every line but the first begins in the
 * column `begin`, where the first is taken to begin already. Its own line ends stay. */
std::string wrapped(const std::string& text, std::size_t width, std::size_t begin = 0);

/** Which of the words was probably meant: those that differ least from `word`, if they hardly do. */
std::vector<std::string> nearest(const std::string& word, const std::vector<std::string>& words);

} // namespace tools

#endif
