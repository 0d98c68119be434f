// SPDX-License-Identifier: Apache-2.0
#include "server/structure/explosion_rows.h"

#include <algorithm>

namespace qvserver {

void ExplosionRows::addColumn(std::string_view name, std::string_view lineColumn)
{
    columns_.push_back({std::string(name), lines_.column(lineColumn).value()});
}

void ExplosionRows::append(Rows::Row line, std::size_t level)
{
    while (levels_.size() <= level) {
        levels_.push_back(std::to_string(levels_.size()));
    }
    occurrences_.push_back({line, static_cast<std::uint32_t>(level)});
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
    const Occurrence& occurrence = occurrences_[row];
    return lineColumn == levelColumn ? levels_[occurrence.level].c_str() : occurrence.line[lineColumn];
}

} // namespace qvserver
