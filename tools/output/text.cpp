// SPDX-License-Identifier: Apache-2.0
#include "tools/output/text.h"

#include <algorithm>
#include <numeric>
#include <sstream>

namespace tools {

namespace {

/** How many letters must be put in, left out or replaced, or neighbours exchanged, to make one word of the
 * other. */
std::size_t distance(const std::string& from, const std::string& to)
{
    std::vector<std::size_t> beforePrevious;
    std::vector<std::size_t> previous;
    std::vector<std::size_t> current(to.size() + 1);
    std::iota(current.begin(), current.end(), 0);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        beforePrevious = std::move(previous);
        previous = current;
        current[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = previous[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            current[j] = std::min({replaced, previous[j] + 1, current[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
                current[j] = std::min(current[j], beforePrevious[j - 2] + 1);
            }
        }
    }
    return current.back();
}

bool isBeginning(const std::string& word, const std::string& whole)
{
    return !word.empty() && whole.compare(0, word.size(), word) == 0;
}

} // namespace

std::string joined(const std::vector<std::string>& texts, const std::string& separator)
{
    std::string all;
    for (const std::string& text : texts) {
        all.append(all.empty() ? "" : separator).append(text);
    }
    return all;
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string wrapped(const std::string& text, std::size_t width, std::size_t begin)
{
    std::string result;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        result.append(result.empty() ? 0 : 1, '\n');
        std::size_t column = begin;
        std::istringstream words(line);
        for (std::string word; words >> word; column += word.size()) {
            if (column > begin && column + 1 + word.size() > width) {
                result.append("\n").append(begin, ' ');
                column = begin;
            }
            if (column > begin) {
                result += ' ';
                ++column;
            }
            result += word;
        }
    }
    return result;
}

std::vector<std::string> nearest(const std::string& word, const std::vector<std::string>& words)
{
    constexpr std::size_t lettersPerFault = 3;
    std::size_t allowed = (word.size() + 1) / lettersPerFault;
    std::vector<std::string> found;
    for (const std::string& candidate : words) {
        const std::size_t faults = isBeginning(word, candidate) ? 0 : distance(word, candidate);
        if (faults > allowed || faults >= candidate.size()) {
            continue;
        }
        if (faults < allowed) {
            found.clear();
            allowed = faults;
        }
        found.push_back(candidate);
    }
    return found;
}

} // namespace tools
