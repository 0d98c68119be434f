// SPDX-License-Identifier: Apache-2.0
//
// CSV files, record by record.
#ifndef VELRZM_CSV_CSV_FILE_H
#define VELRZM_CSV_CSV_FILE_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace csv {

struct Record {
    std::size_t line; // of the file, counted from 1, where the record begins
    std::vector<std::string> fields;
};

/** The file cannot be read, or is not well formed; the text says where and why. */
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/**
 * The records of a file, its header included and empty lines left out. A field in double quotes may hold separators,
 * line breaks and, doubled, quotes. Blanks around a field without quotes do not count, nor does a byte order mark.
 * Throws Error.
 */
std::vector<Record> readFile(const std::string& path, char separator = ',');

} // namespace csv

#endif
