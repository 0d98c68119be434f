// SPDX-License-Identifier: Apache-2.0
#include "csv/csv_file.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include <csv.h>

namespace csv {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content;
    std::array<char, 65536> block = {};
    while (file.good()) {
        file.read(block.data(), block.size());
        content.append(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (!file.is_open() || file.bad()) {
        throw Error("cannot read " + path + ": " + std::error_code(errno, std::generic_category()).message());
    }
    return content;
}

/** The first line of `text`, with what ends it: a line feed, a carriage return or both. */
std::string_view firstLine(std::string_view text)
{
    const auto end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) {
        return text;
    }
    return text.substr(0, text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
}

/** The parser of the CSV library, fed line by line so that it is known where a record begins. */
class Parser {
public:
    Parser(const std::string& path, char separator) : path_(path)
    {
        constexpr unsigned char options = CSV_STRICT | CSV_STRICT_FINI;
        if (csv_init(&parser_, options) != 0) {
            throw std::bad_alloc();
        }
        csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    }
    ~Parser() { csv_free(&parser_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    void parse(std::string_view line)
    {
        ++line_;
        if (!isInRecord_) {
            record_.line = line_;
            isInRecord_ = line.find_first_not_of(" \t\r\n") != std::string_view::npos;
        }
        const std::size_t accepted =
            csv_parse(&parser_, line.data(), line.size(), takeField, takeRecord, this);
        checkMemory();
        if (accepted != line.size()) {
            failOfQuotes("at byte " + std::to_string(accepted + 1) + " of line " + std::to_string(line_));
        }
    }

    std::vector<Record> finish()
    {
        const bool ended = csv_fini(&parser_, takeField, takeRecord, this) == 0;
        checkMemory();
        if (!ended) {
            failOfQuotes("before the end of the file");
        }
        return std::move(records_);
    }

private:
    // No exception may pass through the C library: a failed allocation is noted and reported afterwards.
    static void takeField(void* text, std::size_t size, void* self) noexcept
    {
        auto& parser = *static_cast<Parser*>(self);
        parser.keep([&] { parser.record_.fields.emplace_back(static_cast<const char*>(text), size); });
    }
    static void takeRecord(int /*end*/, void* self) noexcept
    {
        auto& parser = *static_cast<Parser*>(self);
        parser.keep([&] {
            parser.records_.push_back(std::exchange(parser.record_, {parser.line_ + 1, {}}));
        });
        parser.isInRecord_ = false;
    }
    template <typename Step>
    void keep(Step step) noexcept
    {
        try {
            step();
        } catch (const std::exception&) {
            outOfMemory_ = true;
        }
    }

    void checkMemory()
    {
        const int error = csv_error(&parser_);
        if (outOfMemory_ || (error != CSV_SUCCESS && error != CSV_EPARSE)) {
            throw std::bad_alloc();
        }
    }

    [[noreturn]] void failOfQuotes(const std::string& place) const
    {
        throw Error(path_ + ':' + std::to_string(record_.line) + ": the quotes do not match " + place +
                    "; put a field that contains quotes in quotes itself, and double those inside it");
    }

    const std::string& path_;
    csv_parser parser_ = {};
    std::size_t line_ = 0;
    bool isInRecord_ = false;
    bool outOfMemory_ = false;
    Record record_ = {};
    std::vector<Record> records_;
};

} // namespace

std::vector<Record> readFile(const std::string& path, char separator)
{
    const std::string content = contentOf(path);
    std::string_view rest = content;
    if (rest.substr(0, byteOrderMark.size()) == byteOrderMark) {
        rest.remove_prefix(byteOrderMark.size());
    }
    Parser parser(path, separator);
    while (!rest.empty()) {
        const std::string_view line = firstLine(rest);
        parser.parse(line);
        rest.remove_prefix(line.size());
    }
    return parser.finish();
}

} // namespace csv
