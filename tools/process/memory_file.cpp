// SPDX-License-Identifier: Apache-2.0
#include "tools/process/memory_file.h"

#include <array>

#include <sys/mman.h>
#include <unistd.h>

#include "tools/process/failures.h"
#include "tools/process/standard_streams.h"

namespace tools {

MemoryFile::MemoryFile(std::string_view text) : descriptor_(memfd_create("velrzm", MFD_CLOEXEC))
{
    if (descriptor_ == -1 || writeAll(descriptor_, text) != 0 || lseek(descriptor_, 0, SEEK_SET) == -1) {
        throw Refused("there is no memory or no file descriptor left");
    }
}

MemoryFile::~MemoryFile()
{
    close(descriptor_);
}

std::string MemoryFile::text() const
{
    std::string text;
    std::array<char, 4096> piece{};
    lseek(descriptor_, 0, SEEK_SET);
    ssize_t length = 0;
    while ((length = read(descriptor_, piece.data(), piece.size())) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(length));
    }
    return text;
}

} // namespace tools
