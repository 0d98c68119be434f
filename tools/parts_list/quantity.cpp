// SPDX-License-Identifier: Apache-2.0
#include "tools/parts_list/quantity.h"

#include <regex>

#include "tools/output/text.h"

namespace tools {

namespace {

/** The digits of a whole number without what groups or follows them; empty when the text is something else. */
std::string wholeDigits(const std::string& text)
{
    static const std::regex plain(R"(\+?([0-9]+)([.,]0{1,2}|\.0{4,})?)");
    static const std::regex grouped(
        R"(\+?[0-9]{1,3}(?:(?:,[0-9]{3})+|(?:'[0-9]{3})+|(?: [0-9]{3})+)(?:\.0+)?)");
    std::smatch parts;
    if (std::regex_match(text, parts, plain)) {
        return parts[1];
    }
    if (!std::regex_match(text, grouped)) {
        return "";
    }
    return std::regex_replace(text.substr(0, text.find('.')), std::regex("[^0-9]"), "");
}

} // namespace

std::variant<int, NotAQuantity> quantityOf(const std::string& text)
{
    if (text.empty()) {
        return 1;
    }
    std::string digits = wholeDigits(text);
    if (digits.empty()) {
        static const std::regex ambiguous(R"([0-9]{1,3}\.000)");
        if (std::regex_match(text, ambiguous)) {
            return NotAQuantity{"the quantity " + quoted(text) + " may mean " +
                                    text.substr(0, text.find('.')) +
                                    " or a thousand times as many; write it without the dot",
                                false};
        }
        return NotAQuantity{"the quantity " + quoted(text) + " is not a whole number of occurrences", true};
    }
    digits.erase(0, digits.find_first_not_of('0'));
    const std::string limit = std::to_string(maxQuantity);
    if (digits.empty()) {
        return NotAQuantity{"the quantity is 0; leave the row out", false};
    }
    if (digits.size() > limit.size()) {
        return NotAQuantity{"the quantity " + quoted(text) + " is more than a row may stand for, " + limit,
                            false};
    }
    return std::stoi(digits);
}

} // namespace tools
