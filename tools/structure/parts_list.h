// SPDX-License-Identifier: Apache-2.0
//
// A parts list as a file of rows, and the structure that it describes.
#ifndef VELRZM_TOOLS_STRUCTURE_PARTS_LIST_H
#define VELRZM_TOOLS_STRUCTURE_PARTS_LIST_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "csv/csv_file.h"
#include "tools/structure/builder.h"

namespace tools {

/** How the rows are to be read. */
struct PartsListRules {
    std::map<std::string, std::string> columns; // what we call it: what the file calls it
    std::string top;                            // the item that stands above all; empty for none
    bool keepOtherColumns = false;              // as attributes of the item
};

/** A row that was understood. */
struct PartsListRow {
    std::size_t line;
    NewItem item;
    std::string parent; // empty for a top item
    int quantity;
    bool isRepeated; // the structure above came before and brought this line along
};

/** What is wrong with a row. */
struct RowComplaint {
    std::size_t line;
    std::string reason;
};

struct PartsList {
    std::vector<PartsListRow> rows;
    std::vector<RowComplaint> complaints;
};

/** The names that we have for columns. */
const std::vector<std::string>& partsListColumns();

/** The attribute that a column with another name is kept in. */
std::string attributeOfColumn(std::string column);

/** Reads rows, of which the first names the columns. Throws WrongUsage when the rules do not fit the columns.
 */
PartsList readPartsList(const std::vector<csv::Record>& file, const PartsListRules& rules);

} // namespace tools

#endif
