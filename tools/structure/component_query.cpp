// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/component_query.h"

#include <utility>

#include "tools/process/server_list.h"

namespace tools {

std::vector<ComponentLine> linesThatUse(const std::string& component, const std::string& change)
{
    constexpr const char* parent = "logical_key@item_number";
    constexpr const char* sequence = "logical_key@comp_seq_nm";
    ServerList list{"Component",
                    {parent, sequence},
                    {isOneOf("logical_key@comp_item_number", {component})},
                    {parent, sequence}};
    if (!change.empty()) {
        list.where.push_back(isOneOf("il_ec_number", {change}));
    }
    std::vector<ComponentLine> lines;
    for (std::vector<std::string>& row : rowsOf(list)) {
        lines.push_back({std::move(row[0]), std::move(row[1])});
    }
    return lines;
}

} // namespace tools
