// SPDX-License-Identifier: Apache-2.0
#include "tools/output/progress.h"

#include <string>

#include <unistd.h>

#include "tools/process/standard_streams.h"

namespace tools {

Progress::Progress(const char* unit) : unit_(unit), isWatched_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress()
{
    if (isShown_) {
        writeNote("\r\033[K");
    }
}

void Progress::show(std::size_t done, std::size_t total)
{
    constexpr std::size_t width = 30;
    const std::size_t filled = total == 0 ? 0 : done * width / total;
    if (!isWatched_ || filled == filled_ ||
        (done == total && !isShown_)) { // what is done at once needs no bar
        return;
    }
    filled_ = filled;
    isShown_ = true;
    writeNote("\r[" + std::string(filled, '#') + std::string(width - filled, ' ') + "] " +
              std::to_string(done) + " of " + std::to_string(total) + " " + unit_);
}

} // namespace tools
