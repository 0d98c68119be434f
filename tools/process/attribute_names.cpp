// SPDX-License-Identifier: Apache-2.0
#include "tools/process/attribute_names.h"

#include <utility>

namespace tools {

TextArray::TextArray(std::vector<std::string> texts) : texts_(std::move(texts))
{
    for (std::string& text : texts_) {
        pointers_.push_back(text.data());
    }
    pointers_.push_back(nullptr);
}

VELListValVELUnicodeString textList(const std::vector<std::string>& texts)
{
    VELListValVELUnicodeString list;
    for (const std::string& text : texts) {
        list.Append(text.c_str());
    }
    return list;
}

} // namespace tools
