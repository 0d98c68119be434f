// SPDX-License-Identifier: Apache-2.0
//
// A product structure in memory: its items, each with its lines.
#ifndef VELRZM_SERVER_STRUCTURE_STRUCTURE_H
#define VELRZM_SERVER_STRUCTURE_STRUCTURE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "server/base/arena.h"
#include "server/base/text.h"
#include "server/store/rows.h"
#include "server/store/store.h"
#include "server/structure/text_index.h"

namespace qvserver {

/** The items below one item, and it. However often an item occurs, its lines are read and kept once. */
class Structure {
public:
    /** A line: its values, and its component, `leaf` when that is known to have no lines. */
    struct Line {
        Rows::Row values;
        std::uint32_t item;
    };
    static constexpr std::uint32_t leaf = std::numeric_limits<std::uint32_t>::max();
    /** The number of the item on top; the others follow level by level. */
    static constexpr std::uint32_t top = 0;
    /** The columns that the values of the lines begin with. */
    static constexpr std::array<std::string_view, 2> columns = {"logical_key@comp_item_number",
                                                                "logical_key@comp_seq_nm"};

    /** The structure below `topItem`; `lookup` finds the lines of an item, `values` takes their values. All must
     * live as long as it. */
    Structure(std::string_view topItem, Lookup& lookup, Rows& values);

    /** Reads the lines down to a level, 0 means all. */
    void read(std::size_t maxLevel);

    /** How many items there are, without the leaves. */
    std::size_t size() const noexcept { return items_.size(); }
    /** The item's own number, without blanks at its end. */
    std::string_view itemNumber(std::uint32_t item) const noexcept
    {
        return item == top ? topItem_ : componentIn(items_[item].namedIn);
    }
    /** The lines of an item that was read stand together, in their order. */
    std::uint32_t firstLineOf(std::uint32_t item) const noexcept { return items_[item].firstLine; }
    std::uint32_t endOfLinesOf(std::uint32_t item) const noexcept { return items_[item].endOfLines; }
    const Line& line(std::uint32_t number) const noexcept { return lines_[number]; }

private:
    /** What the lines of an item are sorted by. */
    struct SortedLine {
        std::optional<ParsedNumber> number;
        std::string_view text;
        std::int64_t id;
        std::uint32_t row;
        std::uint32_t hash;

        bool operator<(const SortedLine& other) const;
    };
    struct Item {
        std::uint32_t hash;
        std::uint32_t namedIn = 0; // the row that named it first; none for the top
        std::uint32_t firstLine = 0;
        std::uint32_t endOfLines = 0;
    };

    void readLevel(std::uint32_t first, std::uint32_t end);
    void addLines(Item& item, std::size_t firstRow, const std::vector<std::int64_t>& ids);
    std::uint32_t itemOf(std::uint32_t row, std::uint32_t hash);
    std::string_view componentIn(std::uint32_t row) const noexcept;

    std::string_view topItem_;
    Lookup& lookup_;
    Rows& values_;
    TextIndex index_;
    Arena memory_; // of the items and lines
    std::pmr::deque<Item> items_{&memory_};
    std::pmr::deque<Line> lines_{&memory_};
    std::vector<SortedLine> sorted_; // of the item that was read last
};

} // namespace qvserver

#endif
