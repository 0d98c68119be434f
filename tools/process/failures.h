// SPDX-License-Identifier: Apache-2.0
//
// How a command ends when it cannot do what it was asked to. Each kind is an exit status; see main.cpp.
#ifndef VELRZM_TOOLS_PROCESS_FAILURES_H
#define VELRZM_TOOLS_PROCESS_FAILURES_H

#include <stdexcept>

namespace tools {

/** What was asked for was refused, or was not found. */
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The command line asks for something that makes no sense. */
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tools

#endif
