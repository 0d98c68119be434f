// SPDX-License-Identifier: Apache-2.0
#include "server/store/query_sql.h"

#include <map>
#include <optional>
#include <utility>

#include "server/base/errors.h"
#include "server/store/like.h"

namespace qvserver {

namespace {

/** An operator in SQL. */
std::string_view sqlOperator(Operator op)
{
    switch (op) {
    case Operator::Less:
        return " < ";
    case Operator::LessOrEqual:
        return " <= ";
    case Operator::Greater:
        return " > ";
    case Operator::GreaterOrEqual:
        return " >= ";
    case Operator::Equal:
    case Operator::Like:
        break;
    }
    return " = ";
}

/** The SQL of a value, and how it is stored and compares. */
struct Expression {
    enum class Form { Integer, Text, TextOfNumber };

    std::string sql;
    Form form = Form::Text;
    bool indexed = false; // a column, which an index may help to search

    bool isNumber() const { return form != Form::Text; }
    std::string asNumber() const
    {
        return form == Form::Integer ? sql : std::string(numberFunction) + '(' + sql + ')';
    }
    std::string asText() const { return sql + " COLLATE RTRIM"; }
};

class QuerySql {
public:
    explicit QuerySql(const Query& query) : query_(query) {}

    Sql build()
    {
        checkLimit(query_.select.size(), maxColumns, "attributes to read, the server's own included");
        checkLimit(query_.where.size() + query_.orderBy.size(), maxClauses, "clauses");
        const std::string columns = selectList();
        const std::string condition = combination({Connective::And, query_.where});
        const std::string order = query_.ordered ? " ORDER BY " + orderList() : "";
        sql_.text = "SELECT " + columns + " FROM " + sqlName(query_.objectClass->name) + " AS t0" + joins_;
        if (!query_.where.empty()) {
            sql_.text += " WHERE " + condition;
        }
        sql_.text += order;
        if (query_.limit > 0) {
            sql_.text += " LIMIT " + parameter(std::int64_t(query_.limit));
        }
        checkLimit(sql_.parameters.size(), maxValues, "values to compare with");
        return std::move(sql_);
    }

private:
    void checkLimit(std::size_t count, std::size_t limit, std::string_view what) const
    {
        if (count > limit) {
            fail(Failure::BadArgument, "there are ", count, ' ', what, " in one query of ",
                 query_.objectClass->name, "; at most ", limit, " are possible");
        }
    }

    struct Place {
        const Class* objectClass;
        std::string alias;
    };

    std::string parameter(SqlValue value)
    {
        sql_.parameters.push_back(std::move(value));
        return '?' + std::to_string(sql_.parameters.size());
    }

    std::string selectList()
    {
        std::string list;
        for (const std::string& path : query_.select) {
            list += (list.empty() ? "" : ", ") + valueAt(path).sql;
        }
        return list.empty() ? "1" : list;
    }

    std::string orderList()
    {
        const std::string direction = query_.newestFirst ? " DESC" : "";
        std::string list;
        for (const std::string& path : query_.orderBy) {
            const Expression value = valueAt(path);
            list += (value.isNumber() ? value.asNumber() + ", " : "") + value.asText() + ", ";
        }
        list += "t0.db_object_id" + direction;
        for (int join = 1; join <= int(places_.size()); ++join) {
            list += ", t" + std::to_string(join) + ".db_object_id" + direction;
        }
        return list;
    }

    /** The attribute that `path` names: one of the class, else one of a related class, else one that a site added. */
    Expression valueAt(std::string_view path)
    {
        Place place = {query_.objectClass, "t0"};
        std::string relations;
        for (;;) {
            if (path == objectIdPath || path == updateCountPath) {
                return {place.alias + '.' + std::string(path), Expression::Form::Integer, false};
            }
            if (const Attribute* attribute = place.objectClass->attribute(path)) {
                return {place.alias + '.' + sqlName(path),
                        attribute->kind == Kind::Number ? Expression::Form::TextOfNumber
                                                        : Expression::Form::Text,
                        true};
            }
            const auto separator = path.find('@');
            const Relation* relation = separator == std::string_view::npos
                                           ? nullptr
                                           : place.objectClass->relation(path.substr(0, separator));
            if (relation == nullptr) {
                return {"COALESCE((SELECT value FROM attribute WHERE object = " + place.alias +
                        ".db_object_id AND name = " + parameter(std::string(path)) + "), '')"};
            }
            relations.append(path.substr(0, separator + 1));
            place = joined(place, *relation, relations);
            path.remove_prefix(separator + 1);
        }
    }

    /** The related objects, joined when they are first mentioned. `relations` is the path up to and including the
     * relation. */
    Place joined(const Place& from, const Relation& relation, const std::string& relations)
    {
        if (const auto known = places_.find(relations); known != places_.end()) {
            return known->second;
        }
        Place to = {&classNamed(relation.target), 't' + std::to_string(places_.size() + 1)};
        const std::string table = sqlName(relation.target);
        const std::string source = from.alias + '.' + sqlName(relation.link.from);
        joins_ += (query_.relatedMayMiss ? " LEFT JOIN " : " JOIN ") + table + " AS " + to.alias + " ON " +
                  to.alias;
        joins_ += relation.which == Related::Each
                      ? '.' + sqlName(relation.link.to) + " = " + source
                      : ".db_object_id = (SELECT MAX(db_object_id) FROM " + table + " WHERE " +
                            sqlName(relation.link.to) + " = " + source + ')';
        places_.emplace(relations, to);
        return to;
    }

    std::string combination(const Combination& combination)
    {
        const char* const connective = combination.connective == Connective::And ? " AND " : " OR ";
        std::string text;
        for (const Condition& part : combination.parts) {
            text += (text.empty() ? "" : connective) + condition(part);
        }
        return text;
    }

    std::string condition(const Condition& condition)
    {
        if (const auto* parts = std::get_if<Combination>(&condition)) {
            return '(' + combination(*parts) + ')';
        }
        const auto& comparison = std::get<Comparison>(condition);
        const Expression left = valueAt(comparison.left.text);
        return comparison.op == Operator::Like ? like(left, std::get<std::string>(comparison.right))
                                               : compare(left, comparison.op, comparison.right);
    }

    std::string compare(const Expression& left, Operator op, const Operand& operand)
    {
        if (const auto* path = std::get_if<Path>(&operand)) {
            const Expression right = valueAt(path->text);
            return left.isNumber() || right.isNumber()
                       ? left.asNumber() + std::string(sqlOperator(op)) + right.asNumber()
                       : left.asText() + std::string(sqlOperator(op)) + right.sql;
        }
        std::optional<ParsedNumber> number;
        if (const auto* given = std::get_if<ParsedNumber>(&operand)) {
            number = *given;
        } else if (left.isNumber()) {
            number = parseNumber(std::get<std::string>(operand));
        }
        if (number) {
            const SqlValue value = std::visit([](auto plain) { return SqlValue(plain); }, *number);
            return left.asNumber() + std::string(sqlOperator(op)) + parameter(value);
        }
        return left.asText() + std::string(sqlOperator(op)) + parameter(std::get<std::string>(operand));
    }

    /** The bounds let the database find candidates by an index; the function decides which of them match. */
    std::string like(const Expression& value, const std::string& pattern)
    {
        std::string text = std::string(likeFunction) + '(' + value.sql + ", " + parameter(pattern) + ')';
        if (const auto range = rangeOfLike(pattern); range && value.indexed) {
            text = '(' + value.asText() + " >= " + parameter(range->first) + " AND " + value.asText() +
                   " < " + parameter(range->end) + " AND " + text + ')';
        }
        return text;
    }

    const Query& query_;
    Sql sql_;
    std::string joins_;
    std::map<std::string, Place, std::less<>> places_; // by relations
};

} // namespace

std::string sqlName(std::string_view name)
{
    return std::string("\"").append(name).append("\"");
}

Sql sqlOf(const Query& query)
{
    return QuerySql(query).build();
}

} // namespace qvserver
