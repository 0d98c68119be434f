// SPDX-License-Identifier: Apache-2.0
#include "tools/process/standard_streams.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "tools/process/interruption.h"
#include "tools/process/visible_text.h"

namespace tools {

namespace {

int resultFile = STDOUT_FILENO;

/** Gives a descriptor that the caller of the program left closed a place to go, so that no file takes its
 * number. */
void fillClosedDescriptors()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) {
            // Read-only, so that results written to it are refused rather than lost.
            static_cast<void>(open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
}

} // namespace

void separateResults()
{
    fillClosedDescriptors();
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is an error of the write, and clean-up goes on,
    std::signal(SIGXFSZ, SIG_IGN); // and so is a file that may not grow any more
    const int copy = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (copy != -1 && dup2(STDERR_FILENO, STDOUT_FILENO) != -1) {
        resultFile = copy;
    }
}

int resultDescriptor()
{
    return resultFile;
}

int writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR || isInterrupted()) {
            return errno;
        }
    }
    return 0;
}

bool standardErrorIsTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

void writeNote(std::string_view text)
{
    const std::string note = standardErrorIsTerminal() ? visible(text) : std::string(text);
    static_cast<void>(writeAll(STDERR_FILENO, note));
}

} // namespace tools
