// SPDX-License-Identifier: Apache-2.0
//
// Turning keys to upper case. There are two rules for what counts as a lower-case letter; every use names its own.
#ifndef VELRZM_FRAME_UPPER_CASE_H
#define VELRZM_FRAME_UPPER_CASE_H

#include <string>

namespace velrzm {

/** Which lower-case letters are turned to upper case. */
enum class Letters {
    OfLocale, // those of the standard character classification, so by the program's locale
    Ascii     // a to z alone, whatever the locale
};

/** Turns the letters of `text` to upper case in place; null is left alone. */
void toUpperCase(char* text, Letters letters) noexcept;
/** A copy of `text` with its letters turned to upper case; an empty one for null. */
std::string upperCased(const char* text, Letters letters);

} // namespace velrzm

#endif
