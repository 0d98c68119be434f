// SPDX-License-Identifier: Apache-2.0
#include "server/administration/loader_csv.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include <csv.h>

#include "server/base/errors.h"

namespace qvserver {

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
        fail(Failure::BadArgument, "cannot read ", path, ": ",
             std::error_code(errno, std::generic_category()).message());
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

/** The CSV parser, fed line by line so that it is known where a record begins. */
class Parser {
public:
    explicit Parser(const std::string& path) : path_(path)
    {
        constexpr unsigned char options = CSV_STRICT | CSV_STRICT_FINI;
        if (csv_init(&parser_, options) != 0) {
            throw std::bad_alloc();
        }
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
        if (csv_parse(&parser_, line.data(), line.size(), takeField, takeRecord, this) != line.size() ||
            outOfMemory_) {
            failOfParser();
        }
    }

    std::vector<CsvRecord> finish()
    {
        if (csv_fini(&parser_, takeField, takeRecord, this) != 0 || outOfMemory_) {
            failOfParser();
        }
        return std::move(records_);
    }

private:
    // No exception may pass through the parser; without memory it goes on and the failure is told afterwards.
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

    [[noreturn]] void failOfParser()
    {
        if (outOfMemory_ || csv_error(&parser_) != CSV_EPARSE) {
            throw std::bad_alloc();
        }
        failAtLine(path_, record_.line,
                   "the quotes do not match; put a field with quotes into quotes and double those inside it");
    }

    const std::string& path_;
    csv_parser parser_ = {};
    std::size_t line_ = 0;
    bool isInRecord_ = false;
    bool outOfMemory_ = false;
    CsvRecord record_ = {};
    std::vector<CsvRecord> records_;
};

} // namespace

std::vector<CsvRecord> readCsv(const std::string& path)
{
    const std::string content = contentOf(path);
    std::string_view rest = content;
    if (rest.substr(0, byteOrderMark.size()) == byteOrderMark) {
        rest.remove_prefix(byteOrderMark.size());
    }
    Parser parser(path);
    while (!rest.empty()) {
        const std::string_view line = firstLine(rest);
        parser.parse(line);
        rest.remove_prefix(line.size());
    }
    return parser.finish();
}

void failAtLine(const std::string& path, std::size_t line, const std::string& reason)
{
    fail(Failure::BadArgument, path, ':', line, ": ", reason, "; nothing was loaded");
}

} // namespace qvserver
