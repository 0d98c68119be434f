// SPDX-License-Identifier: Apache-2.0
//
// What stands behind a list handle: the clauses, and the rows once it was opened.
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

/** A row of a list; it keeps the rows alive when the list is gone. */
struct Record {
    std::shared_ptr<const RowSet> rows;
    std::size_t row;

    const char* get(std::string_view path) const;
};

class List {
public:
    explicit List(const Class& objectClass) { query_.objectClass = &objectClass; }
    /** A list of rows that were found in another way. */
    explicit List(std::shared_ptr<const RowSet> rows) : rows_(std::move(rows)) {}

    /** Adds a clause of the kind "Select", "Where" or "OrderBy". */
    void addClause(std::string_view kind, std::string_view text);
    void open(Store& store);
    /** The rows; fails when the list was not opened. */
    const std::shared_ptr<const RowSet>& rows() const;
    Record record(int index) const;

private:
    Query query_;
    std::shared_ptr<const RowSet> rows_;
};

} // namespace qvserver

#endif
