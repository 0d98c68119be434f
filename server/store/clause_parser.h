// SPDX-License-Identifier: Apache-2.0
//
// The prefix notation of "Where" clauses:
//
//     condition  = "&" operator "(" path "," operand ")" | "&LIKE(" path "," text ")"
//                | "&OR(" condition "," condition ")" | "&AND(" condition "," condition ")"
//     operator   = "=" | "<" | "<=" | ">" | ">="
//     operand    = path | number | text
//     text       = "'" anything "'", up to the first quote that is followed by "," or ")"; other quotes belong to
//                  the text
//
// Blanks are allowed between all parts, but not within an operator.
#ifndef VELRZM_SERVER_STORE_CLAUSE_PARSER_H
#define VELRZM_SERVER_STORE_CLAUSE_PARSER_H

#include <string_view>

#include "server/store/clause.h"

namespace qvserver {

/** The tree of `clause`; fails with the position of the fault when it does not parse. */
Condition parseClause(std::string_view clause);

} // namespace qvserver

#endif
