// SPDX-License-Identifier: Apache-2.0
//
// The text of a parts list, whatever encoding and delimiter the spreadsheet saved it with.
#ifndef VELRZM_TOOLS_PARTS_LIST_SOURCE_TEXT_H
#define VELRZM_TOOLS_PARTS_LIST_SOURCE_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace tools {

/** The encodings that a parts list may have. */
inline const std::vector<std::string> partsListEncodings = {"utf-8", "latin1", "windows-1252"};

/** The file at `path`, or standard input for "-", as UTF-8. Throws Refused when it cannot be read, and with line and column
 * when a byte does not belong to the encoding or is NUL. */
std::string partsListText(const std::string& path, const std::string& encoding);

/** What stands between the fields: "auto", "comma", "semicolon", "tab", or the character itself. "auto" takes the one that
 * stands in most of the first lines outside quotes, a comma when none does. Throws WrongUsage for another word. */
char delimiterOf(std::string_view text, const std::string& named);

} // namespace tools

#endif
