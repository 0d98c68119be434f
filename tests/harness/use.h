// SPDX-License-Identifier: Apache-2.0
//
// One use of an operation as a story names it, and the lines of the story that depend on it.
#ifndef VELRZM_TESTS_HARNESS_USE_H
#define VELRZM_TESTS_HARNESS_USE_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/harness/texts.h"

namespace harness {

/** An argument, a further attribute, or a default of the site; without a value it is a null pointer. */
struct Named {
    std::string name;
    std::optional<std::string> value;
    /** Of an argument: the letters that are turned to upper case, and whether every variant keeps it or it is added. */
    enum class Letters { None, OfLocale, Ascii } upper = Letters::None;
    bool isFixed = false;
    bool isOwn = false;

    /** The value, with its letters in upper case. */
    std::string text() const;
};

/** The names to read back, which are captured from slot 0 on, or as a list from slot 1 on, and before `endSlot`. */
struct Selection {
    std::vector<std::string> names;
    std::size_t endSlot = 0;
    bool isList = false;
    /** What slot 0 holds before. */
    std::string slot0 = {};
};

struct Use {
    std::string operation;
    std::vector<Named> arguments;
    std::vector<Named> pairs;
    std::optional<Selection> selection;
    /** The entries of the defaults file by operation. */
    std::map<std::string, std::vector<Named>> defaults;

    /** `OPERATION ARGUMENT | ARGUMENT ...`, see story.h. */
    static Use parse(const std::string& text);
    /** The same with `ARGUMENT | ARGUMENT ...` in the place of those of their names, or with `OPERATION`. */
    Use with(const std::string& changes) const;
};

/** The lines of a story with what depends on the use written out; `stories` holds those of others that it tells. */
Lines expand(const Lines& lines, const Use& use, const std::map<std::string, Lines>& stories);

/** `NAME=VALUE`; without a value, or with `null`, it is a null pointer. */
Named parseNamed(const std::string& text);

} // namespace harness

#endif
