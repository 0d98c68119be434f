// SPDX-License-Identifier: Apache-2.0
#include "csv/csv_file.h"

#include <array>
#include <cerrno>
#include <exception>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include <csv.h>

namespace csv {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

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
    Parser(char separator, const std::function<void(Record&)>& take) : take_(take)
    {
        start(static_cast<unsigned char>(separator));
    }
    ~Parser() { csv_free(&parser_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    std::vector<Fault> parse(std::string_view content)
    {
        rest_ = content;
        while (!rest_.empty()) {
            const std::string_view line = firstLine(rest_);
            ++line_;
            if (!isInRecord_ && line.find_first_not_of(" \t\r\n") != std::string_view::npos) {
                isInRecord_ = true;
                record_.line = line_;
                record_.text = rest_;
            }
            rest_.remove_prefix(line.size());
            const std::size_t accepted =
                csv_parse(&parser_, line.data(), line.size(), takeField, takeRecord, this);
            rethrow();
            if (accepted != line.size()) {
                skip("at byte " + std::to_string(accepted + 1) + " of line " + std::to_string(line_));
            } else if (rest_.empty() && csv_fini(&parser_, takeField, takeRecord, this) != 0) {
                skip("before the end of the file");
            }
            rethrow();
        }
        return std::move(faults_);
    }

private:
    void start(unsigned char separator)
    {
        constexpr unsigned char options = CSV_STRICT | CSV_STRICT_FINI;
        if (csv_init(&parser_, options) != 0) {
            throw std::bad_alloc();
        }
        csv_set_delim(&parser_, separator);
    }

    // No exception may pass through the C library: it is kept and thrown afterwards.
    static void takeField(void* text, std::size_t size, void* self) noexcept
    {
        auto& parser = *static_cast<Parser*>(self);
        parser.keep([&] { parser.record_.fields.emplace_back(static_cast<const char*>(text), size); });
    }
    static void takeRecord(int /*end*/, void* self) noexcept
    {
        auto& parser = *static_cast<Parser*>(self);
        parser.keep([&] { parser.finishRecord(); });
    }
    template <typename Step>
    void keep(Step step) noexcept
    {
        try {
            if (exception_ == nullptr) {
                step();
            }
        } catch (...) {
            exception_ = std::current_exception();
        }
    }

    void finishRecord()
    {
        std::string_view text = record_.text.substr(0, record_.text.size() - rest_.size());
        text.remove_suffix(text.size() - (text.find_last_not_of("\r\n") + 1));
        record_.text = text;
        isInRecord_ = false;
        take_(record_);
        record_.fields.clear();
    }

    void rethrow()
    {
        const int error = csv_error(&parser_);
        if (error != CSV_SUCCESS && error != CSV_EPARSE) {
            throw std::bad_alloc();
        }
        if (exception_ != nullptr) {
            std::rethrow_exception(exception_);
        }
    }

    /** Notes that the record is badly quoted and goes on in the line after its first. */
    void skip(const std::string& place)
    {
        const std::string_view line = firstLine(record_.text);
        faults_.push_back(
            {record_.line, line.substr(0, line.find_last_not_of("\r\n") + 1),
             "the quotes do not match " + place +
                 "; put a field that contains quotes in quotes itself, and double those inside it"});
        rest_ = record_.text.substr(line.size());
        line_ = record_.line;
        record_.fields.clear();
        isInRecord_ = false;
        const unsigned char delimiter = csv_get_delim(&parser_);
        csv_free(&parser_);
        start(delimiter);
    }

    const std::function<void(Record&)>& take_;
    csv_parser parser_ = {};
    std::string_view rest_; // what is not read yet
    std::size_t line_ = 0;
    bool isInRecord_ = false;
    std::exception_ptr exception_;
    Record record_ = {};
    std::vector<Fault> faults_;
};

} // namespace

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

std::vector<Fault> parse(std::string_view content, char separator, const std::function<void(Record&)>& take)
{
    if (content.substr(0, byteOrderMark.size()) == byteOrderMark) {
        content.remove_prefix(byteOrderMark.size());
    }
    return Parser(separator, take).parse(content);
}

std::vector<Record> readFile(const std::string& path, char separator)
{
    std::vector<Record> records;
    const std::string content = contentOf(path);
    const std::vector<Fault> faults = parse(content, separator, [&records](Record& record) {
        records.push_back({record.line, {}, std::move(record.fields)});
    });
    if (!faults.empty()) {
        throw Error(path + ':' + std::to_string(faults.front().line) + ": " + faults.front().reason);
    }
    return records;
}

std::string field(std::string_view text)
{
    std::string quoted(csv_write(nullptr, 0, text.data(), text.size()), '\0');
    csv_write(quoted.data(), quoted.size(), text.data(), text.size());
    return quoted;
}

} // namespace csv
