// SPDX-License-Identifier: Apache-2.0
//
// Patterns of "&LIKE": % matches any characters, _ any single one; matching is case-sensitive.
#ifndef VELRZM_SERVER_STORE_LIKE_H
#define VELRZM_SERVER_STORE_LIKE_H

#include <optional>
#include <string>
#include <string_view>

namespace qvserver {

/** Whether `value` matches `pattern`, with any number of blanks at its end or none. */
bool isLike(std::string_view value, std::string_view pattern) noexcept;

/** Bounds of the values that can match a pattern: `first` <= value < `end`, blank-padded. */
struct LikeRange {
    std::string first;
    std::string end;
};

/** The bounds that the characters before the first % or _ give; none when there are no such bounds. */
std::optional<LikeRange> rangeOfLike(std::string_view pattern);

} // namespace qvserver

#endif
