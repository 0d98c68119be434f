// SPDX-License-Identifier: Apache-2.0
#include "server/objects/revision_number.h"

#include <algorithm>
#include <cstddef>

#include "server/base/errors.h"
#include "server/base/text.h"

namespace qvserver {

namespace {

enum class Run { Other, Digits, Letters };

bool isLetter(char c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

Run runOf(char c) noexcept
{
    return isDigit(c) ? Run::Digits : isLetter(c) ? Run::Letters : Run::Other;
}

/** The run that `text` begins with. */
std::string_view firstRun(std::string_view text)
{
    const auto end =
        std::find_if(text.begin(), text.end(), [&](char c) { return runOf(c) != runOf(text.front()); });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string_view withoutLeadingZeros(std::string_view digits) noexcept
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

/** The length of a run with as many digits as any length has. */
std::string lengthOf(std::string_view run)
{
    constexpr std::size_t digits = std::string_view("4000").size();
    static_assert(QV_MAX_VALUE_LENGTH <= 9999);
    const std::string length = std::to_string(run.size());
    return std::string(digits - std::min(digits, length.size()), '0') + length;
}

/** The last of the characters that `c` counts with; after it comes the first one, with a carry. */
char lastOf(char c) noexcept
{
    return isDigit(c) ? '9' : c >= 'a' ? 'z' : 'Z';
}
char firstOf(char c) noexcept
{
    return isDigit(c) ? '0' : c >= 'a' ? 'a' : 'A';
}

} // namespace

std::string revisionSortValue(std::string_view number)
{
    number = withoutTrailingBlanks(number);
    std::string value;
    for (std::string_view rest = number; !rest.empty();) {
        std::string_view run = firstRun(rest);
        rest.remove_prefix(run.size());
        switch (runOf(run.front())) {
        case Run::Other:
            value.append("0").append(run);
            break;
        case Run::Digits:
            run = withoutLeadingZeros(run);
            value.append("1").append(lengthOf(run)).append(run);
            break;
        case Run::Letters:
            value.append("2").append(lengthOf(run)).append(run);
            break;
        }
    }
    value.append(" ").append(number); // 01 and 1 differ in nothing else
    if (value.size() > QV_MAX_VALUE_LENGTH) {
        fail(Failure::ValueTooLong, "the revision number ", inQuotes(number), " has ", number.size(),
             " characters, which is too long to sort by; choose a shorter one");
    }
    return value;
}

std::string nextRevisionNumber(std::string_view number)
{
    std::string next(withoutTrailingBlanks(number));
    const Run kind = next.empty() ? Run::Other : runOf(next.back());
    if (kind == Run::Other) {
        return next + '1';
    }
    std::size_t place = next.size();
    for (; place > 0 && runOf(next[place - 1]) == kind; --place) {
        char& c = next[place - 1];
        if (c != lastOf(c)) {
            ++c;
            return next;
        }
        c = firstOf(c);
    }
    // The whole run went back to its first character (99 to 00, ZZ to AA), so it gets one more in front.
    return next.insert(place, 1, kind == Run::Digits ? '1' : next[place]);
}

} // namespace qvserver
