// SPDX-License-Identifier: Apache-2.0
//
// Which operations use the defaults files, and what they do with what they find.
#ifndef VELRZM_TOOLS_SITE_FILES_DEFAULTS_USES_H
#define VELRZM_TOOLS_SITE_FILES_DEFAULTS_USES_H

#include <string>
#include <vector>

namespace tools {

/** What an operation does with its defaults. */
struct DefaultsUse {
    enum class Limit { None, First19 };
    enum class Effect { SetOnObject, NamesTable, OnlyLogged };

    const char* operation;
    const char* entries; // the operation that its entries in the files name
    Limit limit;
    Effect effect;
    const char* className; // of the object that gets the defaults; "" where none does
    /** Attributes that it sets after the defaults, whatever it is given: a default of such a name is lost. */
    std::vector<std::string> setAfterwards = {};
};

constexpr int defaultsLimit = 19;

/** Every operation that reads defaults. */
const std::vector<DefaultsUse>& defaultsUses();

/** Those that use the entries of that name. */
std::vector<DefaultsUse> usesOfEntries(const std::string& name);

/** The names that entries may have, in a text. */
std::string operationsWithDefaults();

} // namespace tools

#endif
