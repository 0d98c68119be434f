// SPDX-License-Identifier: Apache-2.0
//
// Which attributes there are. The server takes any name and answers "" where there is no such attribute; the local
// server tells its administrators which ones are stored.
#ifndef VELRZM_TOOLS_COMMANDS_ATTRIBUTE_CHECK_H
#define VELRZM_TOOLS_COMMANDS_ATTRIBUTE_CHECK_H

#include <string>
#include <vector>

#include "tools/output/records.h"

namespace tools {

/** The attributes of its own that a stored object of the class may have a value of. Throws Refused where another
 * server than the local one serves. */
std::vector<std::string> attributesOf(const std::string& className);

/** Warns of those of `names`, columns of the records, that no stored object of the class has: they may be misspelt. */
void warnOfUnknownAttributes(const std::string& className, const std::vector<std::string>& names,
                             const Records& records);

/** Warns of those of `names` that no stored object of the class has, but one has a name that is almost the same. Any other
 * unknown name is taken for that of a new attribute. */
void warnOfMisspeltAttributes(const std::string& className, const std::vector<std::string>& names);

} // namespace tools

#endif
