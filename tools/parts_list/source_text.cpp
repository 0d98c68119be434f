// SPDX-License-Identifier: Apache-2.0
#include "tools/parts_list/source_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <system_error>

#include <iconv.h>

#include "csv/csv_file.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

std::string bytesOf(const std::string& path)
{
    if (path == "-") {
        return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    }
    try {
        return csv::contentOf(path);
    } catch (const csv::Error& error) {
        throw Refused(error.what());
    }
}

/** "FILE:LINE: byte COLUMN" of the byte at `offset`. */
std::string placeOf(const std::string& path, const std::string& bytes, std::size_t offset)
{
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    const std::size_t lineFeed = bytes.rfind('\n', offset == 0 ? 0 : offset - 1);
    const std::size_t begin = offset == 0 || lineFeed == std::string::npos ? 0 : lineFeed + 1;
    return path + ":" + std::to_string(std::count(bytes.begin(), end, '\n') + 1) + ": byte " +
           std::to_string(offset - begin + 1);
}

/** The bytes as UTF-8; the offset of the first one that is not of the encoding when there is one. */
class Converter {
public:
    explicit Converter(const std::string& encoding) : handle_(iconv_open("UTF-8", encoding.c_str()))
    {
        if (handle_ == iconv_t(-1)) { // NOLINT(performance-no-int-to-ptr): how the interface says so
            throw Refused("this system cannot read the encoding " + encoding);
        }
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /** Appends to `text`; returns how many bytes were converted, all of them unless one is wrong. */
    std::size_t convert(std::string bytes, std::string& text)
    {
        std::array<char, 65536> block; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by iconv
        char* from = bytes.data();
        std::size_t left = bytes.size();
        while (left > 0) {
            char* to = block.data();
            std::size_t room = block.size();
            const std::size_t result = iconv(handle_, &from, &left, &to, &room);
            text.append(block.data(), block.size() - room);
            if (result == static_cast<std::size_t>(-1) && errno != E2BIG) {
                break;
            }
        }
        return bytes.size() - left;
    }

private:
    iconv_t handle_;
};

} // namespace

std::string partsListText(const std::string& path, const std::string& encoding)
{
    const std::string bytes = bytesOf(path);
    if (const std::size_t nul = bytes.find('\0'); nul != std::string::npos) {
        throw Refused(placeOf(path, bytes, nul) +
                      " is NUL, which no text holds; save the list as CSV in UTF-8 (UTF-16 is not read)");
    }
    std::string text;
    const std::size_t converted = Converter(encoding).convert(bytes, text);
    if (converted < bytes.size()) {
        throw Refused(
            placeOf(path, bytes, converted) + " is not " + encoding +
            "; name the file's encoding with --encoding latin1 or windows-1252, or save it in UTF-8");
    }
    return text;
}

char delimiterOf(std::string_view text, const std::string& named)
{
    static const std::map<std::string, char> words = {{"comma", ','}, {"semicolon", ';'}, {"tab", '\t'}};
    if (const auto word = words.find(named); word != words.end()) {
        return word->second;
    }
    if (named != "auto") {
        if (named.size() != 1 || named == "\"") {
            throw WrongUsage("--delimiter takes auto, comma, semicolon, tab, or one character");
        }
        return named.front();
    }
    constexpr int linesToLookAt = 20;
    constexpr std::string_view candidates = ",;\t";
    std::array<int, candidates.size()> linesWith{};
    std::array<bool, candidates.size()> isInLine{};
    bool isInQuotes = false;
    int lines = 0;
    for (const char c : text) {
        isInQuotes = isInQuotes != (c == '"');
        if (const auto which = candidates.find(c); which != std::string_view::npos && !isInQuotes) {
            linesWith[which] += isInLine[which] ? 0 : 1;
            isInLine[which] = true;
        } else if (c == '\n' && !isInQuotes) {
            isInLine = {};
            if (++lines == linesToLookAt) {
                break;
            }
        }
    }
    return candidates[static_cast<std::size_t>(std::max_element(linesWith.begin(), linesWith.end()) -
                                               linesWith.begin())];
}

} // namespace tools
