// SPDX-License-Identifier: Apache-2.0
//
// The format of the defaults files, for both that read them: DefaultRead and the command. Nothing here depends on
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

/** A line with more characters, not counting its line feed, is read in pieces of this size, each as a line. */
constexpr std::size_t longestDefaultsLine = 63;

/** The words of a line, or of a piece of a line that is too long; a missing word is an empty text. */
struct DefaultsEntry {
    std::string operation;
    std::string name;
    std::string value;
    std::string file;
    int line = 0;               // from 1; the pieces of a line share its number
    bool hasFourthWord = false; // which is not used
    bool isPiece = false;
    bool isCut = false; // a part of the three words is in the next piece
    bool hasCarriageReturn = false;
};

/** The entries of a file, only those of `operation` unless it is null; none when the file cannot be opened. */
std::optional<std::vector<DefaultsEntry>> readDefaultsFile(const std::string& path,
                                                           const char* operation = nullptr);

/** Merges the local entries into the shared ones: each replaces the first of its name, or is added at the end. */
void overrideDefaults(std::vector<DefaultsEntry>& shared, const std::vector<DefaultsEntry>& local);

} // namespace velrzm

#endif
