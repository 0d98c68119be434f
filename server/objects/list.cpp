// SPDX-License-Identifier: Apache-2.0
#include "server/objects/list.h"

#include <algorithm>
#include <string>

#include "server/base/errors.h"
#include "server/store/clause_parser.h"

namespace qvserver {

namespace {

/** The path of a "Select" or "OrderBy" clause. */
std::string pathOf(std::string_view kind, std::string_view text)
{
    text = withoutTrailingBlanks(text);
    if (!isPath(text)) {
        fail(Failure::BadClause, "the ", kind, " clause ", inQuotes(text), " is not an attribute path");
    }
    return std::string(text);
}

} // namespace

const char* Record::get(std::string_view path) const
{
    const auto column = rows->column(path);
    if (!column) {
        fail(Failure::NotLoaded, "the attribute ", inQuotes(path),
             " is not in the list; select it before the list is opened");
    }
    return rows->value(row, *column);
}

void List::addClause(std::string_view kind, std::string_view text)
{
    if (query_.objectClass == nullptr) {
        fail(Failure::BadArgument, "the rows of a report take no clauses; set attributes of the report");
    }
    if (kind == "Where") {
        query_.where.push_back(parseClause(text));
    } else if (kind == "OrderBy") {
        query_.orderBy.push_back(pathOf(kind, text));
    } else if (kind == "Select") {
        std::string path = pathOf(kind, text);
        if (std::find(query_.select.begin(), query_.select.end(), path) == query_.select.end()) {
            query_.select.push_back(std::move(path));
        }
    } else {
        fail(Failure::BadArgument, inQuotes(kind), " is not a kind of clause; use Select, Where or OrderBy");
    }
}

void List::open(Store& store)
{
    if (query_.objectClass == nullptr) {
        fail(Failure::BadArgument, "the rows of a report are already open");
    }
    rows_ = store.select(query_);
}

const std::shared_ptr<const RowSet>& List::rows() const
{
    if (rows_ == nullptr) {
        fail(Failure::NotOpen, "the list was not opened");
    }
    return rows_;
}

Record List::record(int index) const
{
    const auto& found = rows();
    if (index < 0 || static_cast<std::size_t>(index) >= found->size()) {
        fail(Failure::BadArgument, "there is no record ", index, " in a list of ", found->size(),
             "; records are numbered from 0");
    }
    return {found, static_cast<std::size_t>(index)};
}

} // namespace qvserver
