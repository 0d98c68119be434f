// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/texts.h"

#include <algorithm>
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
    replaceAll(text, R"(\t)", "\t");
    return text;
}

std::string errorBlock(const std::string& function, const std::string& text)
{
    return "Function " + function + " generated the following error:\n" + text + '\n' + std::string(69, '-') +
           '\n';
}

Lines split(const std::string& text, const std::string& separator)
{
    Lines parts;
    for (std::size_t begin = 0; !text.empty() && begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
    return parts;
}

void replaceAll(std::string& text, const std::string& part, const std::string& other)
{
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + other.size())) {
        text.replace(at, part.size(), other);
    }
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
