// SPDX-License-Identifier: Apache-2.0
//
// Product structures as they are read from a store.
#ifndef VELRZM_SERVER_STRUCTURE_STRUCTURE_H
#define VELRZM_SERVER_STRUCTURE_STRUCTURE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>
#include <vector>

#include "server/store/rows.h"
#include "server/store/store.h"
#include "server/structure/sortable_text.h"

namespace qvserver {

/** An item and all items below it. However often an item occurs, its lines are read and kept once. */
class Structure {
public:
    /** The component of a line whose item has no lines, or none that were read. */
    static constexpr std::uint32_t leaf = std::numeric_limits<std::uint32_t>::max();

    struct Line {
        Rows::Row values;
        std::uint32_t component; // its place among the items, or `leaf`
    };
    /** An item with lines. They are adjacent and in their order. */
    struct Item {
        std::string_view number; // without trailing blanks
        std::uint32_t firstLine;
        std::uint32_t endOfLines;
    };
    /** The columns that the query for lines begins with. */
    static constexpr std::array<std::string_view, 2> columns = {"logical_key@comp_item_number",
                                                                "logical_key@comp_seq_nm"};

    /**
     * Reads the lines below `topItem` that `query` finds, down to the level `maxLevel`, and appends their values
     * to `values`. The store is asked once for each level. The structure refers to `topItem` and `values`.
     */
    Structure(Store& store, const Query& query, std::string_view topItem, std::size_t maxLevel, Rows& values);

    /** The place of the item at the top, or `leaf`. */
    std::uint32_t top() const noexcept { return lines_.front().component; }
    std::size_t size() const noexcept { return items_.size(); }
    const Item& item(std::uint32_t place) const noexcept { return items_[place]; }
    const Line& line(std::uint32_t place) const noexcept { return lines_[place]; }

private:
    /** The component of a line that was read last. */
    struct Use {
        SortableText number;
        std::uint32_t line;
    };
    /** Sorted by number, so that the uses of an item are adjacent. */
    using Uses = std::vector<Use>;
    using UseIterator = Uses::const_iterator;

    Uses readLines(Store& store, const Query& query, const Uses& uses,
                   const std::vector<UseIterator>& newItems);
    Uses usesFrom(std::size_t firstLine) const;
    std::vector<UseIterator> findNewItems(const Uses& uses);
    UseIterator setComponent(UseIterator first, UseIterator end, std::uint32_t item);

    Rows& values_;
    std::vector<Item> items_;
    std::vector<Line> lines_; // the first one, without values, has the item at the top as its component
    std::map<SortableText, std::uint32_t> places_; // of the items
};

} // namespace qvserver

#endif
