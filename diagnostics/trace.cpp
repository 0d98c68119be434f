// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/trace.h"

#include <iostream>

int QVL_Traces_Level = 0;
int QVL_Traces_FirstTime = 1;

namespace velrzm {

void writeToConsole(std::initializer_list<Piece> pieces)
{
    const Line line(pieces, "", "\n");
    std::cout.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
}

} // namespace velrzm
