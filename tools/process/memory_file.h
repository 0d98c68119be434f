// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_PROCESS_MEMORY_FILE_H
#define VELRZM_TOOLS_PROCESS_MEMORY_FILE_H

#include <string>
#include <string_view>

namespace tools {

/** A file without a name, in memory, for what wants to read from or write to a descriptor. */
class MemoryFile {
public:
    /** Throws Refused when no descriptor is left. */
    explicit MemoryFile(std::string_view text = {});
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int descriptor() const { return descriptor_; }
    /** Everything in it. */
    std::string text() const;

private:
    int descriptor_;
};

} // namespace tools

#endif
