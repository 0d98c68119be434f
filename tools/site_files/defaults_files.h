// SPDX-License-Identifier: Apache-2.0
//
// Defaults files with the places of their lines, as an administrator looks at them. What an operation gets is
// what DefaultRead makes of them.
#ifndef VELRZM_TOOLS_SITE_FILES_DEFAULTS_FILES_H
#define VELRZM_TOOLS_SITE_FILES_DEFAULTS_FILES_H

#include <string>
#include <vector>

namespace tools {

/** An entry, or what could be one. */
struct DefaultsEntry {
    std::string file;
    int line;
    std::string operation;
    std::string attribute;
    std::string value;
    bool isLineTooLong; // its line is read in pieces, and this is one of them
};

/** The shared defaults file and the local one, as the environment says. */
std::string sharedDefaultsFile();
std::string localDefaultsFile();

/** The pairs that an operation gets from the entries of the shared file and the local one: a local entry takes
 * the place of the first one of its attribute. */
std::vector<DefaultsEntry> pairsFor(const std::string& operation, const std::vector<DefaultsEntry>& shared,
                                    const std::vector<DefaultsEntry>& local);

/** The entries of a file; none when it cannot be read. */
std::vector<DefaultsEntry> readDefaultsFile(const std::string& path);

} // namespace tools

#endif
