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

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler; // without SA_RESTART: a wait for the keyboard ends
    sigaction(signal, &action, nullptr);
}

} // namespace

void noteInterruptions()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        handle(signal, note);
    }
}

InterruptionsIgnored::InterruptionsIgnored()
{
    handle(SIGINT, SIG_IGN);
}

InterruptionsIgnored::~InterruptionsIgnored()
{
    handle(SIGINT, note);
}

bool isInterrupted()
{
    return received != 0;
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
