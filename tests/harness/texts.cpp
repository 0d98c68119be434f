// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/texts.h"

#include <sstream>
#include <stdexcept>

namespace harness {

VELListValVELUnicodeString textList(std::initializer_list<const char*> texts)
{
    VELListValVELUnicodeString list;
    for (const char* const text : texts) {
        list.Append(text);
    }
    return list;
}

VELListValVELUnicodeString textList(const std::vector<std::string>& texts)
{
    VELListValVELUnicodeString list;
    for (const std::string& text : texts) {
        list.Append(text.c_str());
    }
    return list;
}

std::vector<std::string> numberedNames(const std::string& prefix, int count)
{
    std::vector<std::string> names;
    for (int number = 1; number <= count; ++number) {
        names.push_back(prefix + std::to_string(number));
    }
    return names;
}

std::string lines(const std::string& raw)
{
    if (raw.empty() || raw.front() != '\n') {
        throw std::invalid_argument("an expected text begins on a line of its own");
    }
    std::string text = raw.substr(1);
    for (std::size_t tab = text.find(R"(\t)"); tab != std::string::npos; tab = text.find(R"(\t)", tab)) {
        text.replace(tab, 2, "\t");
    }
    return text;
}

std::string errorBlock(const std::string& function, const std::string& text)
{
    return "Function " + function + " generated the following error:\n" + text + '\n' + std::string(69, '-') +
           '\n';
}

int countLines(const std::string& text, const std::string& part)
{
    std::istringstream stream(text);
    int count = 0;
    for (std::string line; std::getline(stream, line);) {
        count += line.find(part) != std::string::npos ? 1 : 0;
    }
    return count;
}

} // namespace harness
