// SPDX-License-Identifier: Apache-2.0
//
// What the library writes to standard output: its trace, warnings and reports of failures. If a trace was asked for,
// all of it goes to standard error; otherwise only warnings do, and the reason of a failure becomes part of the message
// with which the command ends.
#ifndef VELRZM_TOOLS_PROCESS_LIBRARY_OUTPUT_H
#define VELRZM_TOOLS_PROCESS_LIBRARY_OUTPUT_H

#include <sstream>
#include <string>

namespace tools {

/** While this object lives, what the library writes goes where this header says. There is one, in main. */
class LibraryOutput {
public:
    LibraryOutput();
    ~LibraryOutput();
    LibraryOutput(const LibraryOutput&) = delete;
    LibraryOutput& operator=(const LibraryOutput&) = delete;

private:
    std::streambuf* previous_;
};

/** Collects what the library writes while this object lives, for a caller who shows it himself. */
class OutputCapture : private std::stringbuf {
public:
    OutputCapture();
    ~OutputCapture() override;
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    /** Ends the capture and returns what was written. */
    std::string take();

private:
    void end();

    std::streambuf* previous_; // null after the end
};

/** The failure of the call of the server that was made last, to be thrown: `what` was asked for, and the
 * server's reason. NothingFound when there is no such object, else Refused. */
[[noreturn]] void throwServerFailure(const std::string& what);

} // namespace tools

#endif
