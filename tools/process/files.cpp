// SPDX-License-Identifier: Apache-2.0
#include "tools/process/files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "tools/process/failures.h"

namespace tools {

std::ifstream openForReading(const std::string& path)
{
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    const bool isDirectory =
        std::filesystem::is_directory(path, ignored); // which can be opened, but not read
    if (!file.is_open() || isDirectory) {
        throw Refused(path + " cannot be read: " + std::strerror(isDirectory ? EISDIR : errno));
    }
    return file;
}

} // namespace tools
