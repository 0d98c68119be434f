// SPDX-License-Identifier: Apache-2.0
#include "tools/output/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <numeric>
#include <sstream>
#include <system_error>

#include "tools/output/terminal.h"

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

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string counted(std::size_t number, const std::string& unit)
{
    return std::to_string(number) + " " + unit + (number == 1 ? "" : "s");
}

std::string inUpperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

std::string searchFault(const std::string& text)
{
    return text.find('\'') == std::string::npos
               ? ""
               : quoted(text) + " has an apostrophe, which ends a text in the server's search conditions";
}

std::optional<int> wholeNumber(const std::string& text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? std::optional<int>(number) : std::nullopt;
}

std::string wrapped(const std::string& text, std::size_t width, std::size_t begin)
{
    std::vector<std::string> lines;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);) {
        lines.push_back(joined(brokenLines(paragraph, width - std::min(begin, width - 1)),
                               "\n" + std::string(begin, ' ')));
    }
    return joined(lines, "\n");
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

std::string didYouMean(std::vector<std::string> near)
{
    constexpr std::size_t enough = 4;
    near.resize(std::min(near.size(), enough));
    std::transform(near.begin(), near.end(), near.begin(), quoted);
    return near.empty() ? "" : "; did you mean " + joined(near, " or ") + "?";
}

} // namespace tools
