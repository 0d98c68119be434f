// SPDX-License-Identifier: Apache-2.0
#include "tools/output/progress.h"

#include <string>

#include <unistd.h>

#include "tools/process/standard_streams.h"

namespace tools {

namespace {

/** Puts a text in the place of the line that is shown. */
void showLine(const std::string& text)
{
    static_cast<void>(writeAll(STDERR_FILENO, "\r" + text));
}

void eraseLine()
{
    showLine("\033[K");
}

} // namespace

Progress::Progress(const char* unit) : unit_(unit), isWatched_(standardErrorIsTerminal()) {}

Progress::~Progress()
{
    if (isShown_) {
        eraseLine();
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
    showLine("[" + std::string(filled, '#') + std::string(width - filled, ' ') + "] " + std::to_string(done) +
             " of " + std::to_string(total) + " " + unit_);
}

ElapsedTime::ElapsedTime(const char* work) : work_(work) {}

ElapsedTime::~ElapsedTime()
{
    if (shown_.count() > 0) {
        eraseLine();
    }
}

void ElapsedTime::show()
{
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - begin_);
    if (standardErrorIsTerminal() && elapsed > shown_) {
        shown_ = elapsed;
        showLine(std::string(work_) + ", " + std::to_string(elapsed.count()) + " s");
    }
}

} // namespace tools
