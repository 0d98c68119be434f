// SPDX-License-Identifier: Apache-2.0
#include "frame/upper_case.h"

#include <cctype>

#include "diagnostics/text.h"

namespace velrzm {
namespace {

char upperCased(char unit, Letters letters) noexcept
{
    const bool isAscii = unit >= 'a' && unit <= 'z';
    if (letters == Letters::Ascii) {
        return isAscii ? static_cast<char>(unit - 'a' + 'A') : unit;
    }
    const int code = static_cast<unsigned char>(unit);
    return std::islower(code) != 0 ? static_cast<char>(std::toupper(code)) : unit;
}

} // namespace

void toUpperCase(char* text, Letters letters) noexcept
{
    for (; given(text); ++text) {
        *text = upperCased(*text, letters);
    }
}

std::string upperCased(const char* text, Letters letters)
{
    std::string upper = orEmpty(text);
    toUpperCase(upper.data(), letters);
    return upper;
}

} // namespace velrzm
