// SPDX-License-Identifier: Apache-2.0
#include "server/structure/explosion_rows.h"

#include <algorithm>

namespace qvserver {

namespace {

/** Whose values are fetched into the processor's cache while a row is read. */
constexpr std::size_t rowsAhead = 4;

} // namespace

void ExplosionRows::addColumn(std::string_view name, std::string_view lineColumn)
{
    columns_.push_back({std::string(name), lines_.column(lineColumn).value()});
}

void ExplosionRows::append(Rows::Row line, std::size_t level)
{
    while (levels_.size() <= level) {
        levels_.push_back(std::to_string(levels_.size()));
    }
    linesOfRows_.push_back(line);
    levelsOfRows_.push_back(static_cast<std::uint32_t>(level));
}

std::optional<std::size_t> ExplosionRows::column(std::string_view path) const
{
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [path](const Column& column) { return column.name == path; });
    return found == columns_.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(std::distance(columns_.begin(), found)));
}

const char* ExplosionRows::value(std::size_t row, std::size_t column) const noexcept
{
    const std::size_t lineColumn = columns_[column].lineColumn;
    if (lineColumn == levelColumn) {
        return levels_[levelsOfRows_[row]].c_str();
    }
    // Rows are mostly read one after the other, but their values lie in the order in which they were found.
    if (row + rowsAhead < linesOfRows_.size()) {
        __builtin_prefetch(linesOfRows_[row + rowsAhead]);
    }
    return linesOfRows_[row][lineColumn];
}

} // namespace qvserver
