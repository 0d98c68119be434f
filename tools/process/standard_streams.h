// SPDX-License-Identifier: Apache-2.0
//
// Results go to standard output, everything else to standard error. The library writes its trace to standard
// output, so the two are parted at the start of the program: whatever is written to file descriptor 1 from
// then on reaches standard error, and results keep a descriptor of their own.
#ifndef VELRZM_TOOLS_PROCESS_STANDARD_STREAMS_H
#define VELRZM_TOOLS_PROCESS_STANDARD_STREAMS_H

#include <string_view>

namespace tools {

/** Parts results and trace; called once, before anything is written. */
void separateResults();

/** The file descriptor of the results. */
int resultDescriptor();

/** Writes all of `text` as it is to a descriptor; returns 0 or the reason why not, EINTR when the program was asked to
 * stop meanwhile. */
int writeAll(int descriptor, std::string_view text);

/** Whether standard error is a terminal. */
bool standardErrorIsTerminal();

/** Writes `text` to standard error, to a terminal as visible text; a failure is ignored. */
void writeNote(std::string_view text);

} // namespace tools

#endif
