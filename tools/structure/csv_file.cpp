// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/csv_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include <csv.h>

#include "tools/process/failures.h"

namespace tools {

namespace {

/** Collects rows and knows where each begins. */
class Reader {
public:
    Reader(const std::string& path, char delimiter) : path_(path)
    {
        csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI);
        csv_set_delim(&parser_, static_cast<unsigned char>(delimiter));
    }
    ~Reader() { csv_free(&parser_); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    void read(const std::string& text)
    {
        for (const char unit : text) { // one at a time: only so is the line of a row known
            inRow_ = inRow_ || (unit != '\n' && unit != '\r');
            begin_ = inRow_ ? begin_ : line_ + (unit == '\n' ? 1 : 0);
            if (csv_parse(&parser_, &unit, 1, takeField, takeRow, this) != 1) {
                complain();
            }
            line_ += unit == '\n' ? 1 : 0;
            begin_ = inRow_ ? begin_ : line_;
        }
        if (csv_fini(&parser_, takeField, takeRow, this) != 0) {
            complain();
        }
    }

    std::vector<CsvRow> rows;

private:
    static void takeField(void* text, std::size_t length, void* reader)
    {
        static_cast<Reader*>(reader)->fields_.emplace_back(static_cast<const char*>(text), length);
    }

    static void takeRow(int /*end*/, void* reader)
    {
        Reader& self = *static_cast<Reader*>(reader);
        self.rows.push_back({self.begin_, std::move(self.fields_)});
        self.fields_.clear();
        self.inRow_ = false;
    }

    [[noreturn]] void complain() const
    {
        throw Refused(
            path_ + ":" + std::to_string(begin_) +
            ": this row is not well formed: a field with quotes in it must stand in quotes itself, with "
            "those inside doubled, and its last quote must not be missing");
    }

    const std::string& path_;
    csv_parser parser_ = {};
    std::vector<std::string> fields_;
    bool inRow_ = false;
    int line_ = 1;
    int begin_ = 1; // the line where the current row begins
};

} // namespace

std::vector<CsvRow> readCsvFile(const std::string& path, char delimiter)
{
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        throw Refused(path + " cannot be read: " + std::strerror(errno));
    }
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) {
        throw Refused(path + " cannot be read to its end");
    }
    constexpr const char* byteOrderMark = "\xEF\xBB\xBF";
    if (text.compare(0, std::strlen(byteOrderMark), byteOrderMark) == 0) {
        text.erase(0, std::strlen(byteOrderMark));
    }
    Reader reader(path, delimiter);
    reader.read(text);
    return std::move(reader.rows);
}

} // namespace tools
