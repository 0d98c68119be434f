// SPDX-License-Identifier: Apache-2.0
//
// The story of one use of the library: its server calls and everything that it writes, in the order in which
// it happens, and what it leaves behind. docs/stories.md says how stories are told.
#ifndef VELRZM_TESTS_HARNESS_STORY_H
#define VELRZM_TESTS_HARNESS_STORY_H

#include <functional>
#include <map>
#include <string>

namespace harness {

/** What the global variables say, by their names; the current handles and the last error too. */
using State = std::map<std::string, std::string>;
State currentState();
/** The line that ends a story. */
std::string lineOf(const State& state);

/** What one use of the library gave and wrote. */
struct Outcome {
    int result = 0;
    std::string story;
    /** The same by channel: the server calls, standard output, and what was added to the two logs. */
    std::string calls;
    std::string output;
    std::string accessLog;
    std::string errorLog;
};

/** Runs `use` and gathers what it does; `accessLog` and `errorLog` are the paths of the logs. */
Outcome recordStory(const std::function<int()>& use, const std::string& accessLog,
                    const std::string& errorLog);

} // namespace harness

#endif
