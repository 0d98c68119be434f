// SPDX-License-Identifier: Apache-2.0
#include "tools/output/results.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "tools/output/pager.h"
#include "tools/output/terminal.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/standard_streams.h"
#include "tools/process/visible_text.h"

namespace tools {

void writeResult(std::string_view text)
{
    if (terminal().interactive) {
        writeStyledResult(visible(text));
    } else {
        writeStyledResult(text);
    }
}

void writeStyledResult(std::string_view text)
{
    if (showInPager(text)) {
        return;
    }
    const int reason = writeAll(resultDescriptor(), text);
    if (reason == EINTR) {
        checkInterruption();
    }
    if (reason == EPIPE) {
        throw OutputClosed();
    }
    if (reason != 0) {
        throw Refused(std::string("standard output cannot be written: ") + std::strerror(reason));
    }
}

} // namespace tools
