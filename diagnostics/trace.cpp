// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/trace.h"

#include <iostream>

int QVL_Traces_Level = 0;
int QVL_Traces_FirstTime = 1;

namespace velrzm {

void writeToConsole(std::initializer_list<Piece> pieces)
{
    const Line line(pieces, "", "\n");
    try {
        std::cout.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
    } catch (...) { // the program may have asked its stream to throw
        // A line that cannot be written is dropped, as in the log files: tracing must never stop an operation.
    }
}

} // namespace velrzm
