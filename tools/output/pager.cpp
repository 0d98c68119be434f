// SPDX-License-Identifier: Apache-2.0
#include "tools/output/pager.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "tools/output/terminal.h"
#include "tools/process/child_process.h"
#include "tools/process/environment.h"
#include "tools/process/interruption.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

bool isSwitchedOff = false;

/** A pipe, whose ends are closed with this object at the latest. */
class Pipe {
public:
    Pipe() : isOpen_(pipe2(ends_.data(), O_CLOEXEC) == 0) {}
    ~Pipe()
    {
        closeWriting();
        closeEnd(ends_[0]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool isOpen() const { return isOpen_; }
    int reading() const { return ends_[0]; }
    int writing() const { return ends_[1]; }
    void closeReading() { closeEnd(ends_[0]); }
    void closeWriting() { closeEnd(ends_[1]); }

private:
    static void closeEnd(int& end)
    {
        if (end != -1) {
            close(end);
            end = -1;
        }
    }

    std::array<int, 2> ends_ = {-1, -1};
    bool isOpen_;
};

bool isLongerThanTerminal(std::string_view text)
{
    std::size_t lines = 1; // of the terminal, with the one that the prompt takes
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        lines += std::max<std::size_t>(1, (shownWidth(line) + terminal().width - 1) / terminal().width);
        if (lines > terminal().height) {
            return true;
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return false;
}

std::string pager()
{
    const std::string named = environmentVariable("PAGER").value_or("less");
    return named == "cat" ? "" : named;
}

} // namespace

void switchOffPager()
{
    isSwitchedOff = true;
}

bool showInPager(std::string_view text)
{
    constexpr int notFound = 127; // as the shell has it
    if (isSwitchedOff || !terminal().interactive || pager().empty() || !isLongerThanTerminal(text)) {
        return false;
    }
    std::vector<std::string> variables;
    if (!environmentVariable("LESS").has_value()) {
        variables.emplace_back("LESS=FRX"); // ends if all fits, shows colours, leaves the text on the screen
    }
    Pipe pipe;
    if (!pipe.isOpen()) {
        return false;
    }
    ChildProcess child({"/bin/sh", "-c", pager()}, pipe.reading(), resultDescriptor(), variables);
    if (child.startError() != 0) {
        return false;
    }
    const InterruptionsIgnored ignored; // Ctrl-C is the pager's
    pipe.closeReading();
    static_cast<void>(writeAll(pipe.writing(), text)); // a reader who has seen enough is fine
    pipe.closeWriting();
    return child.wait() != notFound;
}

} // namespace tools
