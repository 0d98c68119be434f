// SPDX-License-Identifier: Apache-2.0
#include "tools/defaults_files.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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
