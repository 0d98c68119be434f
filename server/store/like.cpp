// SPDX-License-Identifier: Apache-2.0
#include "server/store/like.h"

#include <cstddef>

#include "server/base/text.h"

namespace qvserver {

bool isLike(std::string_view value, std::string_view pattern) noexcept
{
    value = withoutTrailingBlanks(value);
    const auto characterAt = [value](std::size_t place) { return place < value.size() ? value[place] : ' '; };
    std::size_t place = 0;
    std::size_t next = 0;
    std::size_t afterPercent =
        std::string_view::npos; // where to resume when the last % takes one more character
    std::size_t takenUpTo = 0;
    while (next < pattern.size() || place < value.size()) {
        if (next < pattern.size() && pattern[next] == '%') {
            afterPercent = ++next;
            takenUpTo = place;
        } else if (next < pattern.size() && (pattern[next] == '_' || pattern[next] == characterAt(place))) {
            ++next;
            ++place;
        } else if (afterPercent != std::string_view::npos && takenUpTo < value.size()) {
            next = afterPercent;
            place = ++takenUpTo;
        } else {
            return false;
        }
    }
    return true;
}

std::optional<LikeRange> rangeOfLike(std::string_view pattern)
{
    LikeRange range;
    range.first = withoutTrailingBlanks(pattern.substr(0, pattern.find_first_of("%_")));
    range.end = range.first;
    while (!range.end.empty() && range.end.back() == '\xFF') {
        range.end.pop_back();
    }
    if (range.end.empty()) {
        return std::nullopt;
    }
    const auto last = static_cast<unsigned char>(range.end.back());
    range.end.back() =
        static_cast<char>(last + (last + 1 == ' ' ? 2 : 1)); // a blank at the end would not count
    return range;
}

} // namespace qvserver
