// SPDX-License-Identifier: Apache-2.0
//
// CSV files, record by record.
#ifndef VELRZM_SERVER_ADMINISTRATION_LOADER_CSV_H
#define VELRZM_SERVER_ADMINISTRATION_LOADER_CSV_H

#include <cstddef>
#include <string>
#include <vector>

namespace qvserver {

struct CsvRecord {
    std::size_t line; // of the file, counted from 1, where the record begins
    std::vector<std::string> fields;
};

/**
 * The records of a file, empty lines left out. Fields are separated by commas; one in double quotes may hold
 * commas, line breaks and, doubled, quotes. Blanks around a field without quotes do not count, nor does a
 * byte order mark.
 */
std::vector<CsvRecord> readCsv(const std::string& path);

/** Fails with what is wrong at that line of the file. */
[[noreturn]] void failAtLine(const std::string& path, std::size_t line, const std::string& reason);

} // namespace qvserver

#endif
