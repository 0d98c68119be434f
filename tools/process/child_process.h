// SPDX-License-Identifier: Apache-2.0
//
// Other programs. None of them gets the password in its environment.
#ifndef VELRZM_TOOLS_PROCESS_CHILD_PROCESS_H
#define VELRZM_TOOLS_PROCESS_CHILD_PROCESS_H

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tools {

/** A program that runs beside this one, at most as long as this object lives. */
class ChildProcess {
public:
    /** Starts the program `words.front()`, which is looked for as a shell does, with the other words as arguments,
     * the descriptors as its standard input and output, and `variables`, "NAME=VALUE" each, in its environment. */
    ChildProcess(std::vector<std::string> words, int input, int output,
                 const std::vector<std::string>& variables = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /** 0, or the reason why the program could not be started. */
    int startError() const { return startError_; }
    /** Waits for its end. Returns its exit status; of one that a signal ended, 128 and the signal's number. */
    int wait();
    /** Waits no longer than `time`; nothing when the program goes on. */
    std::optional<int> waitFor(std::chrono::milliseconds time);

private:
    std::optional<int> status(int options);

    pid_t process_ = -1; // -1: it has ended, or was not started
    int startError_;
};

} // namespace tools

#endif
