// SPDX-License-Identifier: Apache-2.0
#include "server/store/clause_parser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "server/base/errors.h"

namespace qvserver {

namespace {

constexpr int maxDepth = 20; // what the database can still parse

constexpr std::array<std::pair<std::string_view, Operator>, 6> operators = {{{"<=", Operator::LessOrEqual},
                                                                             {">=", Operator::GreaterOrEqual},
                                                                             {"=", Operator::Equal},
                                                                             {"<", Operator::Less},
                                                                             {">", Operator::Greater},
                                                                             {"LIKE", Operator::Like}}};
constexpr std::array<std::pair<std::string_view, Connective>, 2> connectives = {
    {{"OR", Connective::Or}, {"AND", Connective::And}}};

class ClauseParser {
public:
    explicit ClauseParser(std::string_view text) : text_(text) {}

    Condition parse()
    {
        Condition condition = parseCondition(0);
        skipBlanks();
        if (position_ != text_.size()) {
            refuse("the end");
        }
        return condition;
    }

private:
    Condition parseCondition(int depth)
    {
        if (depth > maxDepth) {
            refuse("a comparison: conditions are nested too deeply");
        }
        expect('&');
        for (const auto& [name, connective] : connectives) {
            if (take(name)) {
                return parseCombination(connective, depth);
            }
        }
        for (const auto& [name, op] : operators) {
            if (take(name)) {
                return parseComparison(op);
            }
        }
        refuse("an operator: =, <, <=, >, >=, LIKE, OR, AND");
    }

    Condition parseCombination(Connective connective, int depth)
    {
        Combination combination = {connective, {}};
        expect('(');
        combination.parts.push_back(parseCondition(depth + 1));
        expect(',');
        combination.parts.push_back(parseCondition(depth + 1));
        expect(')');
        return combination;
    }

    Condition parseComparison(Operator op)
    {
        Comparison comparison;
        comparison.op = op;
        expect('(');
        comparison.left = parsePath();
        expect(',');
        comparison.right = parseOperand();
        if (op == Operator::Like && !std::holds_alternative<std::string>(comparison.right)) {
            refuse("preceded by a pattern in quotes");
        }
        expect(')');
        return comparison;
    }

    Operand parseOperand()
    {
        skipBlanks();
        const char next = peek();
        if (next == '\'') {
            return parseText();
        }
        if (next == '-' || isDigit(next)) {
            return parseNumberOperand();
        }
        return parsePath();
    }

    Path parsePath()
    {
        skipBlanks();
        const std::string_view path = takeWhile([](char c) { return isNamePart(c) || c == '@'; });
        if (!isPath(path)) {
            position_ -= path.size();
            refuse("an attribute path");
        }
        return {std::string(path)};
    }

    Operand parseNumberOperand()
    {
        const std::string_view digits =
            takeWhile([](char c) { return isNamePart(c) || c == '-' || c == '.'; });
        const auto number = parseNumber(digits);
        if (!number) {
            position_ -= digits.size();
            refuse("a number");
        }
        return *number;
    }

    std::string parseText()
    {
        const std::size_t start = ++position_;
        for (auto quote = text_.find('\'', start); quote != std::string_view::npos;
             quote = text_.find('\'', quote + 1)) {
            const auto next = text_.find_first_not_of(' ', quote + 1);
            if (next != std::string_view::npos && (text_[next] == ',' || text_[next] == ')')) {
                position_ = next;
                return std::string(text_.substr(start, quote - start));
            }
        }
        position_ = text_.size();
        refuse("the quote that ends the text");
    }

    template <typename Accepts>
    std::string_view takeWhile(Accepts accepts)
    {
        const auto* const first = text_.begin() + static_cast<std::ptrdiff_t>(position_);
        const auto length = static_cast<std::size_t>(std::find_if_not(first, text_.end(), accepts) - first);
        position_ += length;
        return text_.substr(position_ - length, length);
    }

    bool take(std::string_view word)
    {
        const bool found = text_.substr(position_, word.size()) == word;
        position_ += found ? word.size() : 0;
        return found;
    }

    void expect(char wanted)
    {
        skipBlanks();
        if (peek() != wanted) {
            refuse(std::string("'") + wanted + "'");
        }
        ++position_;
    }

    char peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }
    void skipBlanks() { position_ = std::min(text_.find_first_not_of(' ', position_), text_.size()); }

    [[noreturn]] void refuse(std::string_view wanted) const
    {
        fail(Failure::BadClause, "the clause ", inQuotes(text_), " does not parse: character ", position_ + 1,
             " should be ", wanted);
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

} // namespace

Condition parseClause(std::string_view clause)
{
    return ClauseParser(clause).parse();
}

} // namespace qvserver
