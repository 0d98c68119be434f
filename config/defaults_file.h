// SPDX-License-Identifier: Apache-2.0
//
// The form of the defaults files, for all that read them: DefaultRead and the command. Nothing here depends on
// the state of the library.
#ifndef VELRZM_CONFIG_DEFAULTS_FILE_H
#define VELRZM_CONFIG_DEFAULTS_FILE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velrzm {

constexpr const char* localDefaultsPath = "./My_QVL_RZM_DEFAULT";

/** The longest path of the shared file, in characters. */
constexpr std::size_t longestDefaultsPath = 255;
/** The path of the shared file, in the directory that RZM_DEFAULT_DIRECTORY names; none when it is too long. */
std::optional<std::string> sharedDefaultsPath();

/** A longer line, without its line feed, is read in pieces of so many characters, each a line of its own. */
constexpr std::size_t longestDefaultsLine = 63;

/** The words of a line, or of a piece of a longer one; a word that is missing is an empty text. */
struct DefaultsEntry {
    std::string operation;
    std::string name;
    std::string value;
    std::string file;
    int line = 0;               // from 1; the pieces of a line share its number
    bool hasFourthWord = false; // which is not used
    bool isPiece = false;
    bool isCut = false; // one of the three words goes on, or comes, in the next piece
    bool hasCarriageReturn = false;
};

/** The entries of a file, only those of `operation` unless it is null; none when the file cannot be opened. */
std::optional<std::vector<DefaultsEntry>> readDefaultsFile(const std::string& path,
                                                           const char* operation = nullptr);

/** Lets each entry of the local file replace the first shared one of its name, or be added where there is none. */
void overrideDefaults(std::vector<DefaultsEntry>& shared, const std::vector<DefaultsEntry>& local);

} // namespace velrzm

#endif
