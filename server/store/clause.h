// SPDX-License-Identifier: Apache-2.0
//
// Conditions on objects, as trees.
#ifndef VELRZM_SERVER_STORE_CLAUSE_H
#define VELRZM_SERVER_STORE_CLAUSE_H

#include <string>
#include <variant>
#include <vector>

#include "server/base/text.h"

namespace qvserver {

enum class Operator { Equal, Less, LessOrEqual, Greater, GreaterOrEqual, Like };
enum class Connective { And, Or };

/** The attribute path that a comparison is made with. */
struct Path {
    std::string text;
};

/** What an attribute is compared with: another attribute, a number or a text. */
using Operand = std::variant<Path, ParsedNumber, std::string>;

struct Comparison {
    Operator op = Operator::Equal;
    Path left;
    Operand right;
};

struct Combination;

using Condition = std::variant<Comparison, Combination>;

/** Conditions of which all or one must hold. */
struct Combination {
    Connective connective = Connective::And;
    std::vector<Condition> parts;
};

} // namespace qvserver

#endif
