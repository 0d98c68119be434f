// SPDX-License-Identifier: Apache-2.0
//
// How a command ends when it cannot do what it was asked to: each kind has an exit status of its own.
#ifndef VELRZM_TOOLS_PROCESS_FAILURES_H
#define VELRZM_TOOLS_PROCESS_FAILURES_H

#include <stdexcept>
#include <string>

namespace tools {

/** The exit status of the program; one that a signal ends has 128 and the number of the signal, as in shells. */
enum class ExitStatus { Done = 0, NothingFound = 1, WrongUsage = 2, Refused = 3, BySignal = 128 };

/** A failure; `what()` is the message for the user. */
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus status, const std::string& text) : std::runtime_error(text), status_(status) {}
    ExitStatus status() const noexcept { return status_; }

private:
    ExitStatus status_;
};

/** The search found no record, or there is no object of these keys. */
class NothingFound : public Failure {
public:
    explicit NothingFound(const std::string& text) : Failure(ExitStatus::NothingFound, text) {}
};

/** The command line asks for something that makes no sense. */
class WrongUsage : public Failure {
public:
    explicit WrongUsage(const std::string& text) : Failure(ExitStatus::WrongUsage, text) {}
};

/** The server said no, or the system did. */
class Refused : public Failure {
public:
    explicit Refused(const std::string& text) : Failure(ExitStatus::Refused, text) {}
};

} // namespace tools

#endif
