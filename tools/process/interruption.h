// SPDX-License-Identifier: Apache-2.0
//
// Ctrl-C, a closed terminal or a polite kill end the program at the next safe place, so that what has to be
// cleaned up is.
#ifndef VELRZM_TOOLS_PROCESS_INTERRUPTION_H
#define VELRZM_TOOLS_PROCESS_INTERRUPTION_H

namespace tools {

/** The program was asked to stop by `signal`. */
struct Interrupted {
    int signal;
};

/** From now on, a signal that asks the program to stop is noted instead of ending it at once. */
void noteInterruptions();

/** Throws Interrupted when the program was asked to stop. */
void checkInterruption();

} // namespace tools

#endif
