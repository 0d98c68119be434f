// SPDX-License-Identifier: Apache-2.0
//
// CSV files, record by record.
#ifndef VELRZM_CSV_CSV_FILE_H
#define VELRZM_CSV_CSV_FILE_H

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace csv {

struct Record {
    std::size_t line;      // of the file, counted from 1, where the record begins
    std::string_view text; // as it stands in the file, without its line end; only while the content is there
    std::vector<std::string> fields;
};

/** A record whose quotes do not match. */
struct Fault {
    std::size_t line;      // where the record begins
    std::string_view text; // the first line of the record
    std::string reason;    // with the place
};

/** The file cannot be read, or is not well formed; the text says where and why. */
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The bytes of a file. Throws Error. */
std::string contentOf(const std::string& path);

/**
 * Hands each record of `content` to `take`, the header included and empty lines left out. A field in double quotes may hold
 * separators, line breaks and, doubled, quotes. Blanks around a field without quotes do not count, nor does a byte order mark.
 * After a record whose quotes do not match, reading goes on with the next line. Returns these records.
 */
std::vector<Fault> parse(std::string_view content, char separator, const std::function<void(Record&)>& take);

/** The records of a file, without their text; throws Error for a file that cannot be read or whose quotes do not match. */
std::vector<Record> readFile(const std::string& path, char separator = ',');

/** A text as a field in quotes, those inside it doubled. */
std::string field(std::string_view text);

} // namespace csv

#endif
