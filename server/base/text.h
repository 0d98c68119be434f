// SPDX-License-Identifier: Apache-2.0
//
// Texts: blank-padded values, attribute paths, numbers, lists.
#ifndef VELRZM_SERVER_BASE_TEXT_H
#define VELRZM_SERVER_BASE_TEXT_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>

namespace qvserver {

/** The length of the longest attribute path, in characters. */
constexpr std::size_t maxPathLength = 255;

/** `value` without the blanks at its end, which never matter. */
inline std::string_view withoutTrailingBlanks(std::string_view value) noexcept
{
    const auto last = value.find_last_not_of(' ');
    return value.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

/** Whether two values are equal when padded with blanks. */
inline bool sameText(std::string_view left, std::string_view right) noexcept
{
    return withoutTrailingBlanks(left) == withoutTrailingBlanks(right);
}

/** What `textOf` makes of each element of `range`, with `separator` in between. */
template <typename Range, typename TextOf>
std::string joined(const Range& range, std::string_view separator, TextOf textOf)
{
    std::string text;
    bool isFirst = true;
    for (const auto& element : range) {
        text.append(isFirst ? std::string_view() : separator).append(textOf(element));
        isFirst = false;
    }
    return text;
}

/** The texts of `range` with `separator` in between. */
template <typename Range>
std::string joined(const Range& range, std::string_view separator)
{
    return joined(range, separator, [](std::string_view element) { return element; });
}

inline bool isDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}
inline bool isNameStart(char c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
inline bool isNamePart(char c) noexcept
{
    return isNameStart(c) || isDigit(c);
}

/** Whether `path` is a sequence of names joined by "@". */
inline bool isPath(std::string_view path) noexcept
{
    bool atStart = true;
    for (const char c : path) {
        if (atStart ? !isNameStart(c) : (c != '@' && !isNamePart(c))) {
            return false;
        }
        atStart = c == '@';
    }
    return !atStart && path.size() <= maxPathLength;
}

using ParsedNumber = std::variant<std::int64_t, double>;

/** The decimal number in `text`, with blanks around it or not; none when it is something else. */
inline std::optional<ParsedNumber> parseNumber(std::string_view text) noexcept
{
    text = withoutTrailingBlanks(text);
    text.remove_prefix(text.find_first_not_of(' ') == std::string_view::npos ? text.size()
                                                                             : text.find_first_not_of(' '));
    const char* const end = text.data() + text.size();
    if (text.empty() || !(isDigit(text.back()) && (isDigit(text.front()) || text.front() == '-'))) {
        return std::nullopt; // from_chars accepts inf and nan as well
    }
    std::int64_t whole = 0;
    if (const auto parsed = std::from_chars(text.data(), end, whole);
        parsed.ec == std::errc() && parsed.ptr == end) {
        return whole;
    }
    double real = 0;
    if (const auto parsed = std::from_chars(text.data(), end, real, std::chars_format::fixed);
        parsed.ec == std::errc() && parsed.ptr == end) {
        return real;
    }
    return std::nullopt;
}

} // namespace qvserver

#endif
