// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_STRUCTURE_CSV_FILE_H
#define VELRZM_TOOLS_STRUCTURE_CSV_FILE_H

#include <string>
#include <vector>

namespace tools {

struct CsvRow {
    int line; // of the file, where the row begins
    std::vector<std::string> fields;
};

/** The rows of a CSV file, its header included; blank lines are skipped and a byte order mark is no part of
 * the first field. Throws Refused, with the line, when the file cannot be read or is not well formed. */
std::vector<CsvRow> readCsvFile(const std::string& path, char delimiter);

} // namespace tools

#endif
