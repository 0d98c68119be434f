// SPDX-License-Identifier: Apache-2.0
//
// The rows of an explosion. However often a line occurs, its values are kept once.
#ifndef VELRZM_SERVER_STRUCTURE_EXPLOSION_ROWS_H
#define VELRZM_SERVER_STRUCTURE_EXPLOSION_ROWS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/store/rows.h"

namespace qvserver {

class ExplosionRows final : public RowSet {
public:
    /** Rows with the values of `lineColumns` of their lines and with their level. */
    explicit ExplosionRows(const std::vector<std::string>& lineColumns) : lines_(lineColumns) {}

    /** Names the column with a value of the line. */
    void addColumn(std::string_view name, std::string_view lineColumn);
    /** Names the column with the level. */
    void addLevelColumn(std::string_view name) { columns_.push_back({std::string(name), levelColumn}); }

    /** The values of the lines. */
    Rows& lines() noexcept { return lines_; }
    /** Makes room for so many rows. */
    void reserve(std::size_t rows) { occurrences_.reserve(rows); }
    /** Appends an occurrence of a line, by the row of its values. */
    void append(Rows::Row line, std::size_t level);

    std::size_t size() const noexcept override { return occurrences_.size(); }
    std::optional<std::size_t> column(std::string_view path) const override;
    const char* value(std::size_t row, std::size_t column) const noexcept override;

private:
    static constexpr std::size_t levelColumn = static_cast<std::size_t>(-1);

    struct Column {
        std::string name;
        std::size_t lineColumn;
    };
    struct Occurrence {
        Rows::Row line;
        std::uint32_t level;
    };

    Rows lines_;
    std::vector<Column> columns_;
    std::vector<Occurrence> occurrences_;
    std::vector<std::string> levels_; // as texts
};

} // namespace qvserver

#endif
