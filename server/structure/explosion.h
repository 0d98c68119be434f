// SPDX-License-Identifier: Apache-2.0
//
// The explosion report: the lines of a structure over all levels, depth first.
#ifndef VELRZM_SERVER_STRUCTURE_EXPLOSION_H
#define VELRZM_SERVER_STRUCTURE_EXPLOSION_H

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "server/store/rows.h"
#include "server/store/store.h"

namespace qvserver {

class ExplosionReport {
public:
    static constexpr std::string_view className = "IndentedRetrievalStrmElm";
    static constexpr std::string_view reportName = "ExplosionRetrieval";
    static constexpr std::size_t allLevels = std::numeric_limits<std::size_t>::max();

    /** Sets a parameter; fails when there is none of that name or it cannot have that value. */
    void set(std::string_view parameter, std::string_view value);
    /** Makes `path` a column of the rows. */
    void subscribe(std::string_view path);
    /** A row for each line and occurrence below the top item. */
    std::shared_ptr<const RowSet> generate(Store& store) const;

private:
    std::string top_;
    std::string change_; // "" for lines of any change
    std::size_t maxLevel_ = allLevels;
    std::vector<std::string> columns_;
};

} // namespace qvserver

#endif
