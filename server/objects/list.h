// SPDX-License-Identifier: Apache-2.0
//
// Lists of objects, and the records that are read from them.
#ifndef VELRZM_SERVER_OBJECTS_LIST_H
#define VELRZM_SERVER_OBJECTS_LIST_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include "server/store/query.h"
#include "server/store/rows.h"
#include "server/store/store.h"

namespace qvserver {

/** A row of a list; it keeps the rows alive when the list is destroyed. */
struct Record {
    std::shared_ptr<const RowSet> rows;
    std::size_t row;

    /** The value of a selected attribute. */
    const char* get(std::string_view path) const;
};

/** What a list handle stands for: a class and clauses, and from the opening on the rows that they selected. */
class List {
public:
    explicit List(const Class& objectClass) { query_.objectClass = &objectClass; }
    /** An open list of the rows of a report; it takes no clauses. */
    explicit List(std::shared_ptr<const RowSet> rows) : rows_(std::move(rows)) {}

    /** Adds a clause of the kind "Select", "Where" or "OrderBy". */
    void addClause(std::string_view kind, std::string_view text);
    /** Runs the query; the rows stay as they are until the list is opened again. */
    void open(Store& store);
    /** The rows; fails when the list was not opened. */
    const std::shared_ptr<const RowSet>& rows() const;
    /** Record `index`, counted from 0. */
    Record record(int index) const;

private:
    Query query_;
    std::shared_ptr<const RowSet> rows_;
};

} // namespace qvserver

#endif
