// SPDX-License-Identifier: Apache-2.0
//
// Ctrl-C, a closed terminal or SIGTERM end the program at the next safe point, so that it can clean up.
#ifndef VELRZM_TOOLS_PROCESS_INTERRUPTION_H
#define VELRZM_TOOLS_PROCESS_INTERRUPTION_H

#include <string>

namespace tools {

/** The program was asked to stop by `signal`. */
struct Interrupted {
    int signal;
    std::string outcome = {}; // what became of the work, if anything is to be said: "nothing was stored"
};

/** From now on, a signal that asks the program to stop is noted instead of ending it at once. */
void noteInterruptions();

/** Whether the program was asked to stop and checkInterruption was not called since. */
bool isInterrupted();

/** While this object lives, Ctrl-C is left to a program that has the terminal meanwhile. */
class InterruptionsIgnored {
public:
    InterruptionsIgnored();
    ~InterruptionsIgnored();
    InterruptionsIgnored(const InterruptionsIgnored&) = delete;
    InterruptionsIgnored& operator=(const InterruptionsIgnored&) = delete;
};

/** Throws Interrupted when the program was asked to stop. */
void checkInterruption();

/** Runs `work`; if that is interrupted, the message says `outcome`. */
template <typename Work>
auto interruptibly(const std::string& outcome, Work work)
{
    try {
        return work();
    } catch (const Interrupted& interruption) {
        throw Interrupted{interruption.signal, outcome};
    }
}

} // namespace tools

#endif
