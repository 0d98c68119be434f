// SPDX-License-Identifier: Apache-2.0
//
// Texts in the two forms in which operations take attribute names and values; a program takes its words in the first.
#ifndef VELRZM_TOOLS_PROCESS_ATTRIBUTE_NAMES_H
#define VELRZM_TOOLS_PROCESS_ATTRIBUTE_NAMES_H

#include <string>
#include <vector>

#include <velrzm/vel_types.h>

namespace tools {

/** Texts as a null-terminated array of `char*`. */
class TextArray {
public:
    explicit TextArray(std::vector<std::string> texts);
    TextArray(const TextArray&) = delete;
    TextArray& operator=(const TextArray&) = delete;

    char** data() { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;
};

/** Texts as a list of the framework. */
VELListValVELUnicodeString textList(const std::vector<std::string>& texts);

} // namespace tools

#endif
