// SPDX-License-Identifier: Apache-2.0
//
// Quantities of a parts list. A quantity is stored as that many component lines, so only whole ones can be.
#ifndef VELRZM_TOOLS_PARTS_LIST_QUANTITY_H
#define VELRZM_TOOLS_PARTS_LIST_QUANTITY_H

#include <string>
#include <variant>

namespace tools {

/** The most occurrences that one row may stand for. */
constexpr int maxQuantity = 999999;

/** Why a text is not a number of occurrences. */
struct NotAQuantity {
    std::string reason;
    bool isMeasure; // an amount of something that is not counted: metres, litres, "as required"
};

/** The occurrences that a text stands for: 1 when it is empty; "4", "4.0", "4,00" and "1,000" are read as a person would. */
std::variant<int, NotAQuantity> quantityOf(const std::string& text);

} // namespace tools

#endif
