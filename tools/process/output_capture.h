// SPDX-License-Identifier: Apache-2.0
//
// What the library writes to standard output, caught while this object lives.
#ifndef VELRZM_TOOLS_PROCESS_OUTPUT_CAPTURE_H
#define VELRZM_TOOLS_PROCESS_OUTPUT_CAPTURE_H

#include <string>

#include "tools/process/memory_file.h"

namespace tools {

class OutputCapture {
public:
    OutputCapture();
    /** What was caught and not taken goes where it would have gone. */
    ~OutputCapture();
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    /** Ends the capture and returns what was written. */
    std::string take();

private:
    std::string end();

    MemoryFile file_;
    int saved_; // the descriptor that file_ stands in for
};

} // namespace tools

#endif
