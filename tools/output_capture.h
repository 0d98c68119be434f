// SPDX-License-Identifier: Apache-2.0
//
// What the library writes to standard output, caught while this object lives.
#ifndef VELRZM_TOOLS_OUTPUT_CAPTURE_H
#define VELRZM_TOOLS_OUTPUT_CAPTURE_H

#include <string>

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

    int file_ = -1;  // the text, in memory
    int saved_ = -1; // the descriptor that file_ stands in for
};

} // namespace tools

#endif
