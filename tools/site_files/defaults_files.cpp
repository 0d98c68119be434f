// SPDX-License-Identifier: Apache-2.0
#include "tools/site_files/defaults_files.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <sstream>

namespace tools {

std::string sharedDefaultsFile()
{
    const char* const directory =
        std::getenv("RZM_DEFAULT_DIRECTORY"); // NOLINT(concurrency-mt-unsafe): one thread
    return std::string(directory == nullptr ? "." : directory) + "/QVL_RZM_DEFAULT";
}

std::string localDefaultsFile()
{
    return "./My_QVL_RZM_DEFAULT";
}

std::vector<DefaultsEntry> pairsFor(const std::string& operation, const std::vector<DefaultsEntry>& shared,
                                    const std::vector<DefaultsEntry>& local)
{
    std::vector<DefaultsEntry> pairs;
    std::copy_if(shared.begin(), shared.end(), std::back_inserter(pairs),
                 [&operation](const DefaultsEntry& entry) { return entry.operation == operation; });
    for (const DefaultsEntry& entry : local) {
        if (entry.operation != operation) {
            continue;
        }
        const auto same = std::find_if(pairs.begin(), pairs.end(), [&entry](const DefaultsEntry& pair) {
            return pair.attribute == entry.attribute;
        });
        if (same == pairs.end()) {
            pairs.push_back(entry);
        } else {
            *same = entry;
        }
    }
    return pairs;
}

std::vector<DefaultsEntry> readDefaultsFile(const std::string& path)
{
    constexpr std::size_t pieceSize = 64; // the library reads a line in pieces of 63 characters
    const std::unique_ptr<std::FILE, decltype(&std::fclose)> file(std::fopen(path.c_str(), "re"),
                                                                  &std::fclose);
    std::vector<DefaultsEntry> entries;
    std::array<char, pieceSize> piece{};
    int line = 1;
    bool isContinued = false;
    while (file != nullptr &&
           std::fgets(piece.data(), static_cast<int>(piece.size()), file.get()) != nullptr) {
        const bool endsLine = std::strchr(piece.data(), '\n') != nullptr || std::feof(file.get()) != 0;
        const std::string text(piece.data(), std::strcspn(piece.data(), "#\n"));
        std::istringstream words(text);
        DefaultsEntry entry{path, line, "", "", "", isContinued || !endsLine};
        words >> entry.operation >> entry.attribute >> entry.value;
        if (!entry.operation.empty()) {
            entries.push_back(entry);
        }
        isContinued = !endsLine;
        line += endsLine ? 1 : 0;
    }
    return entries;
}

} // namespace tools
