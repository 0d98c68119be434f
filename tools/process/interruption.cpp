// SPDX-License-Identifier: Apache-2.0
#include "tools/process/interruption.h"

#include <csignal>
#include <initializer_list>

namespace tools {

namespace {

volatile std::sig_atomic_t received = 0;

void note(int signal)
{
    received = signal;
}

} // namespace

void noteInterruptions()
{
    struct sigaction action = {};
    action.sa_handler = note; // without SA_RESTART: a wait for the keyboard ends
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
}

void checkInterruption()
{
    if (received != 0) {
        const int signal = received;
        received = 0; // told once, so that cleaning up is not interrupted again
        throw Interrupted{signal};
    }
}

} // namespace tools
