// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/texts.h"

#include <algorithm>
#include <sstream>

namespace harness {

std::string errorBlock(const std::string& function, const std::string& text)
{
    return "Function " + function + " generated the following error:\n" + text + '\n' + std::string(69, '-') +
           '\n';
}

std::string cutHead(std::string& text, const std::string& separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    std::string head = text.substr(0, end);
    text.erase(0, end + separator.size());
    return head;
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
