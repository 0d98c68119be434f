// SPDX-License-Identifier: Apache-2.0
#include "config/defaults_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include <velrzm/vel_types.h>

namespace velrzm {
namespace {

/** The words of a line as an entry. */
DefaultsEntry wordsOf(const std::string& line)
{
    VELToken tokens(line.c_str());
    DefaultsEntry entry;
    entry.operation = tokens.GetNextToken();
    entry.name = tokens.GetNextToken();
    entry.value = tokens.GetNextToken();
    entry.hasFourthWord = tokens.GetNextToken() != "";
    return entry;
}

std::string withoutComment(std::string_view line)
{
    return std::string(line.substr(0, line.find('#')));
}

/** The entry on a piece of a line; `rest` is what follows in the line. */
DefaultsEntry entryOn(std::string_view piece, std::string_view rest)
{
    DefaultsEntry entry = wordsOf(withoutComment(piece));
    if (!rest.empty()) {
        const std::string longer = std::string(piece).append(rest.substr(0, longestDefaultsLine));
        const DefaultsEntry whole = wordsOf(withoutComment(longer));
        entry.isCut =
            entry.operation != whole.operation || entry.name != whole.name || entry.value != whole.value;
    }
    entry.hasCarriageReturn = piece.find('\r') != std::string_view::npos;
    return entry;
}

/** Whether a line can be one of the operation; most are not, and splitting them into words would take long. */
bool canBeOf(std::string_view line, std::string_view operation)
{
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t' || line.front() == '\r')) {
        line.remove_prefix(1);
    }
    return line.substr(0, operation.size()) == operation;
}

std::vector<DefaultsEntry> entriesIn(std::string_view content, const char* operation)
{
    std::vector<DefaultsEntry> entries;
    for (int line = 1; !content.empty(); ++line) {
        std::string_view rest = content.substr(0, content.find('\n'));
        content.remove_prefix(std::min(rest.size() + 1, content.size()));
        const bool isTooLong = rest.size() > longestDefaultsLine;
        while (!rest.empty()) {
            const std::string_view piece = rest.substr(0, longestDefaultsLine);
            rest.remove_prefix(piece.size());
            if (piece.front() == '#' || (operation != nullptr && !canBeOf(piece, operation))) {
                continue;
            }
            DefaultsEntry entry = entryOn(piece, rest);
            if (operation == nullptr ? !entry.operation.empty() : entry.operation == operation) {
                entry.line = line;
                entry.isPiece = isTooLong;
                entries.push_back(std::move(entry));
            }
        }
    }
    return entries;
}

std::string readAll(std::FILE* file)
{
    std::string content;
    std::array<char, 65536> block; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by fread
    std::size_t size = 0;
    do {
        size = std::fread(block.data(), 1, block.size(), file);
        content.append(block.data(), size);
    } while (size == block.size());
    return content;
}

} // namespace

std::optional<std::string> sharedDefaultsPath()
{
    const char* const directory = std::getenv("RZM_DEFAULT_DIRECTORY");
    std::string path = std::string(directory == nullptr ? "." : directory) + "/QVL_RZM_DEFAULT";
    return path.size() > longestDefaultsPath ? std::nullopt : std::optional(std::move(path));
}

std::optional<std::vector<DefaultsEntry>> readDefaultsFile(const std::string& path, const char* operation)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r"), &std::fclose);
    if (file == nullptr) {
        return std::nullopt;
    }
    std::vector<DefaultsEntry> entries = entriesIn(readAll(file.get()), operation);
    for (DefaultsEntry& entry : entries) {
        entry.file = path;
    }
    return entries;
}

void overrideDefaults(std::vector<DefaultsEntry>& shared, const std::vector<DefaultsEntry>& local)
{
    for (const DefaultsEntry& entry : local) {
        const auto same =
            std::find_if(shared.begin(), shared.end(),
                         [&entry](const DefaultsEntry& candidate) { return candidate.name == entry.name; });
        if (same == shared.end()) {
            shared.push_back(entry);
        } else {
            *same = entry;
        }
    }
}

} // namespace velrzm
