// SPDX-License-Identifier: Apache-2.0
//
// Records: named columns and a row of values for each.
#ifndef VELRZM_TOOLS_OUTPUT_RECORDS_H
#define VELRZM_TOOLS_OUTPUT_RECORDS_H

#include <string>
#include <vector>

namespace tools {

struct Records {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

/** The value of an attribute of a record of the current result. */
std::string currentValue(int record, const std::string& name);

/** The attributes `names` of all records of the current result. */
Records currentRecords(const std::vector<std::string>& names);

} // namespace tools

#endif
